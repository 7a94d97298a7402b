#include "gui/desk.h"
#include "gui/document/display_window.h"
#include "gui/platform/qt_text.h"

#include <QAction>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QMap>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QWheelEvent>

namespace bramblet::test {
namespace {

class ViewerTest : public Desk {
  protected:
    /// Shows the order and hands the viewer to `use`, which ends with its being closed.
    void view(const std::function<void(QWidget& viewer)>& use) {
        driver->onNextDialog([use](QWidget& viewer) {
            EXPECT_EQ(viewer.objectName(), name("TandrilDisplayForm"));
            use(viewer);
            viewer.close();
        });
        driver->click(name("MakeOrder"));
        while (!driver->allAnswered() || QApplication::activeModalWidget() != nullptr) {
            Driver::settle();
        }
    }
    QTextBrowser* browser() { return driver->find<QTextBrowser>(name("WebBrowser1")); }
    S shown() { return browser()->toPlainText(); }
};

TEST_F(ViewerTest, TheOrderIsShownZoomedAndClosedWithEscape) {
    addLine(name("2"), name("Nails, 40 mm"), name("12.50"));
    driver->type(name("CommentsEd"), QString::fromUtf8("Café"));
    bool closedByEscape = false;
    view([&](QWidget& viewer) {
        EXPECT_TRUE(shown().contains(name("Nails, 40 mm")));
        EXPECT_TRUE(shown().contains(QString::fromUtf8("Café")));
        EXPECT_FALSE(shown().contains(name("PON")));
        QScrollBar* const bar = browser()->verticalScrollBar();
        EXPECT_EQ(bar->value(), 0) << "it opens at the top";
        const double usual = browser()->document()->size().width();
        const auto wheel = [&](int steps) {
            QWheelEvent turn({40, 40}, browser()->mapToGlobal(QPointF(40, 40)), {},
                             QPoint(0, 120 * steps), Qt::NoButton, Qt::ControlModifier,
                             Qt::NoScrollPhase, false);
            QApplication::sendEvent(browser()->viewport(), &turn);
        };
        wheel(1);
        wheel(1);
        EXPECT_NEAR(browser()->document()->size().width(), usual * 1.21, 2);
        for (int i = 0; i < 50; ++i) {
            wheel(-1);
            const bool fits = browser()->document()->size().width() < browser()->width() - 60;
            EXPECT_TRUE(!fits || browser()->horizontalScrollBar()->maximum() == 0) << i;
        }
        EXPECT_GT(browser()->document()->size().width(), 100);
        QTest::keyClick(&viewer, Qt::Key_0, Qt::ControlModifier);
        EXPECT_EQ(browser()->document()->size().width(), usual);
        QTest::keyClick(&viewer, Qt::Key_Escape);
        closedByEscape = !viewer.isVisible();
    });
    EXPECT_TRUE(closedByEscape);
}

TEST_F(ViewerTest, ItSavesAPdfAndMails) {
    newOrder();
    const S pdf = S::fromStdString(documents / "order.pdf");
    view([&](QWidget&) {
        driver->chooseFile(pdf);
        driver->click(name("SavePdf"));
        driver->click(name("IE_Button"));
    });
    EXPECT_EQ(contentOf(pdf.toStdString()).substr(0, 5), "%PDF-");
    EXPECT_EQ(desktop.mail.subject, "Bramblet #000001");
}

TEST_F(ViewerTest, RewriteShowsTheSettingsAtOnce) {
    newOrder();
    view([&](QWidget&) {
        EXPECT_FALSE(shown().contains(name("Larkfield")));
        driver->onNextDialog([&](QWidget& dialog) {
            driver->type(name("IDText1"), name("Larkfield Joinery"));
            driver->click(name("Option2"));
            driver->click(name("Command1"));
            EXPECT_FALSE(dialog.isVisible());
        });
        driver->click(name("Configuration"));
        driver->onNextDialog([&](QWidget& dialog) {
            QScrollBar* const bar = browser()->verticalScrollBar();
            bar->setValue(bar->maximum() / 2);
            const int place = bar->value();
            EXPECT_GT(place, 0);
            driver->click(name("ReWrite"));
            EXPECT_EQ(bar->value(), place) << "it stays where it was";
            EXPECT_TRUE(shown().contains(name("Larkfield Joinery")));
            dialog.close();
        });
        driver->click(name("Configuration"));
    });
}

TEST_F(ViewerTest, AClickOnALinkAsksTheBrowserAndLeavesTheOrderInSight) {
    addLine(name("1"), name("<a href=\"https://acme.example/\">our-site</a>"), name("1"));
    view([&](QWidget&) {
        const QTextCursor link = browser()->document()->find(name("our-site"));
        browser()->setTextCursor(link);
        const QPoint place = browser()->cursorRect().center() - QPoint(12, 0);
        QTest::mouseClick(browser()->viewport(), Qt::LeftButton, {}, place);
        ASSERT_FALSE(desktop.asked.empty()) << "the link was not followed";
        EXPECT_EQ(desktop.asked.back(), "open https://acme.example/ with browser");
        EXPECT_TRUE(shown().contains(name("our-site")));
    });
}

TEST_F(ViewerTest, OnTheMainWindowTheSettingsReachTheProgram) {
    driver->onNextDialog([&](QWidget& dialog) {
        EXPECT_FALSE(driver->isEnabled(name("ReWrite")));
        EXPECT_TRUE(driver->isEnabled(name("UseReqNumberCheck")));
        driver->click(name("RequestForQuoteCheck"));
        EXPECT_FALSE(driver->isEnabled(name("UseReqNumberCheck")));
        driver->click(name("UseQuantitiesCheck"));
        driver->click(name("WidthMore"));
        EXPECT_EQ(driver->text(name("WidthEd")), name("645"));
        driver->type(name("PrefixEd"), name("LJ-"));
        driver->type(name("SigLineSpaceEd"), name("few"));
        driver->answer(name("Bottom of form spacing"), QMessageBox::Ok);
        driver->click(name("Command1"));
        EXPECT_TRUE(dialog.isVisible());
        driver->type(name("SigLineSpaceEd"), name("12"));
        driver->click(name("Command1"));
    });
    driver->trigger(name("mu_Configuration"));
    EXPECT_EQ(program->settings.NumberPrefix, "LJ-");
    EXPECT_EQ(program->settings.SigLineSpace, 12);
    EXPECT_EQ(program->settings.RequestForQuote, "N");
    EXPECT_EQ(program->settings.FormWidth, "645");
    EXPECT_TRUE(window->findChild<QAction*>(name("ItemsPopOnHand"))->isVisible());
}

/// Letters that two controls of a window share.
S doubledMnemonics(const QWidget& window) {
    QMap<QChar, int> uses;
    const auto count = [&](const S& text) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (!key.isEmpty()) ++uses[QChar(key[0].key())];
    };
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
        if (button->isVisible()) count(button->text());
    }
    for (const auto* label : window.findChildren<QLabel*>()) {
        if (label->isVisible() && label->buddy() != nullptr) count(label->text());
    }
    if (const auto* bar = window.findChild<QMenuBar*>()) {
        for (const auto* menu : bar->actions())
            count(menu->text());
    }
    S doubled;
    for (auto letter = uses.begin(); letter != uses.end(); ++letter) {
        if (letter.value() > 1) doubled += letter.key();
    }
    return doubled;
}

TEST_F(ViewerTest, NoTwoControlsOfAWindowHaveTheSameMnemonic) {
    EXPECT_EQ(doubledMnemonics(*window), S());
    driver->click(name("HideOrders"));
    EXPECT_EQ(doubledMnemonics(*window), S());
    view([](QWidget& viewer) { EXPECT_EQ(doubledMnemonics(viewer), S()); });
    for (const char* entry :
         {"mu_Configuration", "mu_DataBackup", "mu_DataRestore", "mu_ImportKettleby"}) {
        driver->onNextDialog([&](QWidget& dialog) {
            EXPECT_EQ(doubledMnemonics(dialog), S()) << entry;
            dialog.close();
        });
        driver->trigger(name(entry));
    }
}

TEST_F(ViewerTest, APictureIsChosenWithAPreview) {
    const S folder = pathToQt(program->folder.DataPath());
    QImage picture(1000, 500, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    EXPECT_TRUE(picture.save(folder + name("logo.bmp")));
    writeFile(program->folder.file("broken.gif"), "no picture");
    driver->onNextDialog([&](QWidget&) {
        driver->onNextDialog([&](QWidget& chooser) {
            EXPECT_EQ(chooser.windowTitle(), name("Graphic Selector"));
            EXPECT_FALSE(chooser.findChild<QPushButton*>(name("Command1"))->isEnabled());
            auto* files = driver->find<QListWidget>(name("File1"));
            EXPECT_EQ(files->count(), 2);
            files->setCurrentRow(0);
            files->setCurrentRow(1);
            const auto labels = chooser.findChildren<QLabel*>();
            EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
                return label->text() == name("logo.bmp (shown smaller here)");
            }));
            QTest::mouseClick(chooser.findChild<QPushButton*>(name("Command1")), Qt::LeftButton);
        });
        driver->click(name("SelectGraphic"));
        EXPECT_EQ(driver->text(name("TopGraphicEd")), name("logo.bmp"));
        driver->click(name("Command1"));
    });
    driver->trigger(name("mu_Configuration"));
    EXPECT_EQ(program->settings.TopGraphic, "logo.bmp");
}

}  // namespace
}  // namespace bramblet::test
