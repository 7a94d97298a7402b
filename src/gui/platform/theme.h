// The look: a few palettes over Qt's own style. It may change while the program runs: widgets with
// colours of their own give them with `recolour`.
#pragma once

#include <array>
#include <functional>

class QColor;
class QPalette;
class QWidget;

namespace bramblet {

enum class Theme { Light, Dark, HighContrastLight, HighContrastDark };
inline constexpr std::array kThemes{Theme::Light, Theme::Dark, Theme::HighContrastLight,
                                    Theme::HighContrastDark};

QPalette paletteOf(Theme theme);

/// The theme that comes nearest to the system's own colours.
Theme themeLike(const QPalette& system);

/// Gives the application its style and colours, or other colours.
void applyTheme(Theme theme);

/// Makes `change` to the application's colours for one widget, now and each time that they change.
/// A later call for the same widget takes the place of an earlier one.
void recolour(QWidget* widget, std::function<void(QPalette& colours)> change);

/// How well a text can be read on its ground: from 1, not at all, to 21, black on white. (This is
/// the contrast ratio of the web's guidelines, which ask for 4.5.)
double contrast(const QColor& text, const QColor& ground);

/// The colour that lies `share` of the way between two.
QColor blend(const QColor& from, const QColor& to, double share);

}  // namespace bramblet
