// Between the core's code page texts and Qt's.
#pragma once

#include <QString>

#include <filesystem>
#include <string>

namespace bramblet {

QString toQt(const std::string& text);
/// One line of text: composed letters first, then by the code page; what it lacks becomes "?",
/// and pasted line breaks, tabs and other control characters become blanks.
std::string fromQt(const QString& text);

/// Texts of several lines: CR LF in the core, LF in Qt's boxes.
QString linesToQt(const std::string& text);
std::string linesFromQt(const QString& text);

/// A path as it is shown, and one that was typed or chosen.
QString pathToQt(const std::filesystem::path& path);
std::filesystem::path pathFromQt(const QString& text);

/// A message that may name a path, with LF for CR LF.
QString messageToQt(const std::string& message);

}  // namespace bramblet
