#include "gui/platform/theme.h"

#include <QApplication>
#include <QColor>
#include <QPalette>

namespace bramblet {

Theme systemTheme() {
    const QPalette palette = QApplication::palette();
    const bool darkWindows = palette.color(QPalette::Window).lightness() < 128;
    return darkWindows ? Theme::Dark : Theme::Light;
}

}  // namespace bramblet
