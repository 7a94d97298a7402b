#include "gui/platform/theme.h"

#include <QSettings>

namespace bramblet {

Theme systemTheme() {
    const QSettings colours(QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\"
                                           "CurrentVersion\\Themes\\Personalize"),
                            QSettings::NativeFormat);
    const bool light = colours.value(QStringLiteral("AppsUseLightTheme"), 1).toInt() != 0;
    return light ? Theme::Light : Theme::Dark;
}

}  // namespace bramblet
