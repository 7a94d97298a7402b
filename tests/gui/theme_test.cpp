// The program's colours: that they can be read, and that windows change them while they are open.

#include "gui/platform/theme.h"

#include "gui/desk.h"
#include "gui/platform/icons.h"
#include "gui/platform/system_desktop.h"

namespace bramblet::test {
namespace {

TEST(Themes, TextsStandOutFromTheirGrounds) {
    using enum QPalette::ColorRole;
    const std::vector<std::pair<QPalette::ColorRole, std::vector<QPalette::ColorRole>>> cases{
        {WindowText, {Window}},
        {Text, {Base, AlternateBase}},
        {ButtonText, {Button, Window, AlternateBase}},
        {ToolTipText, {ToolTipBase}},
        {PlaceholderText, {Window, Base, AlternateBase}},
        {HighlightedText, {Highlight}},
        {Link, {Window, Base}},
        {LinkVisited, {Base}},
    };
    for (const Theme theme : kThemes) {
        const bool high = theme > Theme::Dark;
        const QPalette palette = paletteOf(theme);
        for (const auto& [text, grounds] : cases) {
            for (const auto ground : grounds) {
                EXPECT_GE(contrast(palette.color(text), palette.color(ground)), high ? 7 : 4.5)
                    << "theme " << int(theme) << ", " << text << " on " << ground;
            }
        }
        const double disabled =
            contrast(palette.color(QPalette::Disabled, WindowText), palette.color(Window));
        EXPECT_LT(disabled, contrast(palette.color(WindowText), palette.color(Window)));
        EXPECT_GE(disabled, high ? 4.5 : 2.5);
        // The rows of grids, picked or not, and boxes that are refused.
        const QColor base = palette.color(Base);
        for (const double share : {.18, .38}) {
            const QColor picked = blend(base, palette.color(Highlight), share);
            EXPECT_GE(contrast(palette.color(Text), picked), 4.5);
        }
        EXPECT_GE(contrast(palette.color(Text), blend(base, QColor("#d03030"), .3)), 4.5);
        EXPECT_GE(contrast(palette.color(Mid), palette.color(Window)), high ? 7 : 1.2);
    }
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, .01);
    EXPECT_NEAR(contrast(QColor("#767676"), Qt::white), 4.54, .01);
}

TEST(Themes, TheOneNearestToTheSystemsIsTaken) {
    const std::vector<std::tuple<const char*, const char*, Theme>> cases{
        {"#f6f5f4", "#2e3436", Theme::Light},
        {"#efefef", "#000000", Theme::Light},
        {"#2a2e32", "#fcfcfc", Theme::Dark},
        {"#ffffff", "#000000", Theme::HighContrastLight},
        {"#000000", "#ffffff", Theme::HighContrastDark},
    };
    for (const auto& [window, text, theme] : cases) {
        QPalette system;
        system.setColor(QPalette::Window, QColor(window));
        system.setColor(QPalette::WindowText, QColor(text));
        EXPECT_EQ(themeLike(system), theme) << window;
    }
}

class ThemeTest : public Desk {
  protected:
    void TearDown() override {
        applyTheme(Theme::Light);
        Desk::TearDown();
    }
    static bool same(const QImage& a, const QImage& b) {
        return a.convertToFormat(QImage::Format_RGB32) == b.convertToFormat(QImage::Format_RGB32);
    }
    /// A picture of a window, without blinking cursors.
    static QImage pictureOf(QWidget& shown) {
        if (QWidget* const focus = shown.focusWidget()) focus->clearFocus();
        Driver::settle();
        return shown.grab().toImage();
    }
    /// What has changed its colours looks as if it had been opened in them.
    void expectToFollow(const char* opener, const char* closer) {
        QImage light;
        QImage followed;
        QImage dark;
        driver->inDialog(opener, [&](QWidget& shown) {
            light = pictureOf(shown);
            applyTheme(Theme::Dark);
            followed = pictureOf(shown);
            closer == nullptr ? void(shown.close()) : click(closer);
        });
        driver->inDialog(opener, [&](QWidget& shown) {
            dark = pictureOf(shown);
            applyTheme(Theme::Light);
            EXPECT_TRUE(same(pictureOf(shown), light)) << opener << " and back";
            closer == nullptr ? void(shown.close()) : click(closer);
        });
        EXPECT_FALSE(same(light, dark)) << opener;
        EXPECT_TRUE(same(followed, dark)) << opener;
    }
};

TEST_F(ThemeTest, OpenWindowsFollow) {
    addLine("2", "Nails, 40 mm", "12.50");
    expectToFollow("MakeOrder", "Leave");
    expectToFollow("mu_Configuration", "Close");
    expectToFollow("OrderPop_OneTime", "Cancel");
}

TEST_F(ThemeTest, TheMainWindowFollowsWithEverythingInIt) {
    addLine("2", "Nails, 40 mm", "12.50");
    type("ShipDateEd", "soon");
    driver->control("ByEd")->setFocus();
    click("OrderDatePicker");
    QApplication::activePopupWidget()->close();
    const QImage light = pictureOf(*window);
    applyTheme(Theme::HighContrastDark);
    const QImage followed = pictureOf(*window);
    const QColor refused = driver->control("ShipDateEd")->palette().color(QPalette::Base);
    EXPECT_NE(refused, QColor(Qt::black)) << "still tinted";
    EXPECT_LT(refused.lightness(), 60);
    for (const char* box : {"NetTotalEd", "OrderGrid", "CommentsEd"}) {
        const QPalette palette = driver->control(box)->palette();
        EXPECT_EQ(palette.color(QPalette::Base), QColor(Qt::black)) << box;
        EXPECT_EQ(palette.color(QPalette::Text), QColor(Qt::white)) << box;
    }
    click("OrderDatePicker");
    const QWidget* const calendar = QApplication::activePopupWidget();
    EXPECT_EQ(calendar->palette().color(QPalette::Window), QColor(Qt::black));
    const auto* const days = calendar->findChild<QCalendarWidget*>();
    EXPECT_EQ(days->weekdayTextFormat(Qt::Sunday).foreground().color(), QColor(Qt::white));
    QApplication::activePopupWidget()->close();
    EXPECT_EQ(icon(Drawing::Save).pixmap(16).toImage().pixelColor(2, 8).rgb(), qRgb(255, 255, 255));
    applyTheme(Theme::Light);
    EXPECT_FALSE(same(light, followed));
    EXPECT_TRUE(same(pictureOf(*window), light));
}

#ifndef _WIN32
TEST_F(ThemeTest, TheSystemsChangeOfItsLookIsHeard) {
    int heard = 0;
    applyTheme(Theme::Dark);
    onSystemLook(*window, [&] {
        ++heard;
        applyTheme(systemTheme());
    });
    QEvent change(QEvent::ThemeChange);
    QApplication::sendEvent(window.get(), &change);
    Driver::settle();
    EXPECT_EQ(heard, 1) << "the program's own change is none of the system's";
    EXPECT_EQ(QApplication::palette().color(QPalette::Window),
              paletteOf(Theme::Light).color(QPalette::Window))
        << "the system's own window is light, whatever the program's was";
}
#endif

TEST_F(ThemeTest, TheHelpFollowsAndStaysWhereItWas) {
    click("HelpButton");
    auto* const text = driver->find<QTextBrowser>("HelpText");
    text->verticalScrollBar()->setValue(100);
    const auto headings = [&] { return text->document()->defaultStyleSheet(); };
    const QString light = headings();
    applyTheme(Theme::Dark);
    Driver::settle();
    EXPECT_NE(headings(), light);
    EXPECT_EQ(text->verticalScrollBar()->value(), 100);
    EXPECT_FALSE(text->toPlainText().isEmpty());
    driver->control("HelpForm")->close();
    Driver::settle();
}

}  // namespace
}  // namespace bramblet::test
