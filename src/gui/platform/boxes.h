// Makes the small controls of the panels, and keeps a box showing the text that it should.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include <filesystem>
#include <string>

class QPlainTextEdit;

namespace bramblet {

enum class Drawing;

/// A label with a mnemonic for `buddy`.
QLabel* boxLabel(const QString& caption, QWidget* buddy);

/// A button with an icon, and a caption beside it unless `caption` is empty.
QToolButton* toolButton(const char* name, Drawing drawing, const QString& caption,
                        const QString& tip);

/// Puts `text` into a box that shows something else, leaving the cursor where it was. Sends no
/// editing signal.
void showText(QLineEdit* box, const std::string& text);
/// The same for a path.
void showPath(QLineEdit* box, const std::filesystem::path& path);
void showText(QPlainTextEdit* box, const std::string& lines);

/// Tints a box whose text cannot be accepted, or shows it as usual again.
void markRefused(QLineEdit* box, bool refused);

/// The lines of a box as they stand in it; no-break spaces are kept.
QString linesIn(const QPlainTextEdit* box);

}  // namespace bramblet
