// The window tests' entry: they need an application, and run without a display.

#include "gui/platform/theme.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
#ifndef _WIN32
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    bramblet::applyTheme(bramblet::Theme::Light);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
