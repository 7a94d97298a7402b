// Qt's texts: u"Save"_s is one, and the core's code page texts become one here, and back.
#pragma once

#include <QString>

#include <filesystem>
#include <optional>
#include <string>

namespace bramblet {

using namespace Qt::StringLiterals;

QString toQt(const std::string& text);
/// One line of text: letters are composed, then converted to the code page. What it lacks becomes
/// "?"; pasted line breaks, tabs and other control characters become spaces.
std::string fromQt(const QString& text);
/// The first character that `fromQt` turns into "?" though it is none.
std::optional<char32_t> firstLost(const QString& text);

/// Text of several lines: CR LF in the core, LF in Qt's boxes.
QString linesToQt(const std::string& text);
std::string linesFromQt(const QString& text);

/// A path for display, and one that was typed or chosen.
QString pathToQt(const std::filesystem::path& path);
std::filesystem::path pathFromQt(const QString& text);

/// A message that may name a path, with LF for CR LF.
QString messageToQt(const std::string& message);

}  // namespace bramblet
