// The look: a light and a dark palette, over Qt's own style.
#pragma once

class QColor;

namespace bramblet {

enum class Theme { Light, Dark };

/// Gives the application its style and colours.
void applyTheme(Theme theme);

/// The colour that lies `share` of the way between two.
QColor blend(const QColor& from, const QColor& to, double share);

}  // namespace bramblet
