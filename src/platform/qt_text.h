// Between the core's code page texts and Qt's.
#pragma once

#include <QString>

#include <string>

namespace bramblet {

QString toQt(const std::string& text);
/// One line of text: composed letters first, then by the code page; what it lacks becomes "?",
/// and pasted line breaks, tabs and other control characters become blanks.
std::string fromQt(const QString& text);

/// Texts of several lines: CR LF in the core, LF in Qt's boxes.
QString linesToQt(const std::string& text);
std::string linesFromQt(const QString& text);

/// Paths, and messages that may name one.
QString pathToQt(const std::string& path);
std::string pathFromQt(const QString& path);

}  // namespace bramblet
