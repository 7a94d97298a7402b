// The look: a light and a dark palette, over Qt's own style.
#pragma once

class QApplication;
class QColor;

namespace bramblet {

enum class Theme { Light, Dark };

/// Dark when the system's own windows are dark, or the user has asked for dark programs.
Theme systemTheme();

/// Gives the application its style and colours.
void applyTheme(QApplication& application, Theme theme);

/// The thin lines around panels, in the colours of the theme applied last.
QColor borderColour();

/// The background of a box whose text cannot be accepted.
QColor refusedColour();

}  // namespace bramblet
