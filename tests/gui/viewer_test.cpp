#include "driver/inspection.h"
#include "gui/desk.h"
#include "gui/platform/theme.h"

namespace bramblet::test {
namespace {

class ViewerTest : public Desk {
  protected:
    /// Shows the order, hands the viewer to `use`, and closes it.
    void view(const std::function<void(QWidget& viewer)>& use) {
        driver->inDialog("MakeOrder", [&](QWidget& viewer) {
            EXPECT_EQ(viewer.objectName(), "TandrilDisplayForm");
            browser = driver->find<QTextBrowser>("WebBrowser1");
            use(viewer);
            viewer.close();
        });
    }
    QString shown() const { return browser->toPlainText(); }
    double width() const { return browser->document()->size().width(); }

    QTextBrowser* browser = nullptr;
};

TEST_F(ViewerTest, TheOrderIsShownZoomedAndClosedWithEscape) {
    addLine("2", "Nails, 40 mm", "12.50");
    type("CommentsEd", "Café");
    view([&](QWidget& viewer) {
        EXPECT_TRUE(shown().contains("Nails, 40 mm"));
        EXPECT_TRUE(shown().contains("Café"));
        EXPECT_FALSE(shown().contains("PON"));
        EXPECT_EQ(browser->verticalScrollBar()->value(), 0) << "it opens at the top";
        const double usual = width();
        const auto wheel = [&](int steps) {
            QWheelEvent turn({40, 40}, browser->mapToGlobal(QPointF(40, 40)), {},
                             QPoint(0, 120 * steps), Qt::NoButton, Qt::ControlModifier,
                             Qt::NoScrollPhase, false);
            QApplication::sendEvent(browser->viewport(), &turn);
        };
        wheel(1);
        wheel(1);
        EXPECT_NEAR(width(), usual * 1.21, 2);
        for (int i = 0; i < 50; ++i) {
            wheel(-1);
            const bool fits = width() < browser->width() - 60;
            EXPECT_TRUE(!fits || browser->horizontalScrollBar()->maximum() == 0) << i;
        }
        EXPECT_GT(width(), 100);
        QTest::keyClick(&viewer, Qt::Key_0, Qt::ControlModifier);
        EXPECT_EQ(width(), usual);
        QTest::keyClick(&viewer, Qt::Key_Escape);
        EXPECT_FALSE(viewer.isVisible());
    });
}

TEST_F(ViewerTest, ItSavesAPdfMailsAndFollowsALinkInTheBrowser) {
    newOrder();
    addLine("1", "<a href=\"https://acme.example/\">our-site</a>", "1");
    const auto pdf = documents / "order.pdf";
    view([&](QWidget&) {
        driver->chooseFile(pathToQt(pdf));
        click("SavePdf");
        click("IE_Button");
        const QTextCursor link = browser->document()->find("our-site");
        browser->setTextCursor(link);
        const QPoint place = browser->cursorRect().center() - QPoint(12, 0);
        QTest::mouseClick(browser->viewport(), Qt::LeftButton, {}, place);
        ASSERT_FALSE(desktop.asked.empty()) << "the link was not followed";
        EXPECT_EQ(desktop.asked.back(), "open https://acme.example/ with browser");
        EXPECT_TRUE(shown().contains("our-site")) << "the order stays in sight";
    });
    EXPECT_EQ(contentOf(pdf).substr(0, 5), "%PDF-");
    EXPECT_EQ(desktop.mail.subject, "Bramblet #000001");
    view([&](QWidget&) { click("MailPdf"); });
    ASSERT_EQ(desktop.mail.attachments.size(), 1u);
    const auto withoutDate = [](const std::filesystem::path& path) {
        std::string pages = contentOf(path);
        const auto date = pages.find("/CreationDate");
        return pages.erase(date, pages.find('\n', date) - date);
    };
    EXPECT_EQ(withoutDate(desktop.mail.attachments[0]), withoutDate(pdf)) << "the same pages";
}

TEST_F(ViewerTest, RewriteShowsTheSettingsAtOnce) {
    newOrder();
    view([&](QWidget&) {
        EXPECT_FALSE(shown().contains("Larkfield"));
        driver->inDialog("Configuration", [&](QWidget& dialog) {
            type("IDText1", "Larkfield Joinery");
            click("Option2");
            click("Command1");
            EXPECT_FALSE(dialog.isVisible());
        });
        driver->inDialog("Configuration", [&](QWidget& dialog) {
            QScrollBar* const bar = browser->verticalScrollBar();
            bar->setValue(bar->maximum() / 2);
            const int place = bar->value();
            EXPECT_GT(place, 0);
            click("ReWrite");
            EXPECT_EQ(bar->value(), place) << "it stays where it was";
            EXPECT_TRUE(shown().contains("Larkfield Joinery"));
            dialog.close();
        });
    });
}

TEST_F(ViewerTest, OnTheMainWindowTheSettingsReachTheProgram) {
    driver->inDialog("mu_Configuration", [&](QWidget& dialog) {
        EXPECT_FALSE(enabled("ReWrite"));
        EXPECT_TRUE(enabled("UseReqNumberCheck"));
        click("RequestForQuoteCheck");
        EXPECT_FALSE(enabled("UseReqNumberCheck"));
        click("UseQuantitiesCheck");
        click("WidthMore");
        EXPECT_EQ(text("WidthEd"), "645");
        type("PrefixEd", "LJ-");
        type("SigLineSpaceEd", "few");
        driver->answer("Bottom of form spacing");
        click("Command1");
        EXPECT_TRUE(dialog.isVisible());
        type("SigLineSpaceEd", "12");
        click("Command1");
    });
    EXPECT_EQ(program->settings.NumberPrefix, "LJ-");
    EXPECT_EQ(program->settings.SigLineSpace, 12);
    EXPECT_EQ(program->settings.RequestForQuote, "N");
    EXPECT_EQ(program->settings.FormWidth, "645");
    EXPECT_TRUE(window->findChild<QAction*>("ItemsPopOnHand")->isVisible());
}

TEST_F(ViewerTest, EveryWindowCanBeUsedByKeysByEarAndInEveryTheme) {
    const auto expectGood = [](const QWidget& shown, const std::string& opener) {
        EXPECT_EQ(shortcomingsOf(shown).join("\n"), "") << opener;
    };
    for (const Theme theme : kThemes) {
        applyTheme(theme);
        click("ViewExisting");
        expectGood(*window, "saved orders");
        click("HideOrders");
        expectGood(*window, "stock items");
        for (const char* opener :
             {"MakeOrder", "OrderPop_OneTime", "mu_Configuration", "mu_DataBackup",
              "mu_DataRestore", "mu_ImportKettleby", "mu_Spending"}) {
            driver->inDialog(opener, [&](QWidget& dialog) {
                expectGood(dialog, opener);
                dialog.close();
            });
        }
    }
    applyTheme(Theme::Light);
}

TEST_F(ViewerTest, APictureIsChosenWithAPreview) {
    QImage picture(1000, 500, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    EXPECT_TRUE(picture.save(pathToQt(program->folder.file("logo.bmp"))));
    writeFile(program->folder.file("broken.gif"), "no picture");
    driver->inDialog("mu_Configuration", [&](QWidget&) {
        driver->inDialog("SelectGraphic", [&](QWidget& chooser) {
            EXPECT_EQ(chooser.windowTitle(), "Graphic Selector");
            EXPECT_FALSE(enabled("Command1"));
            auto* files = driver->find<QListWidget>("File1");
            EXPECT_EQ(files->count(), 2);
            files->setCurrentRow(0);
            files->setCurrentRow(1);
            QStringList labels;
            for (const auto* label : chooser.findChildren<QLabel*>())
                labels.append(label->text());
            EXPECT_TRUE(labels.contains("logo.bmp (shown smaller here)")) << labels.join(", ");
            click("Command1");
        });
        EXPECT_EQ(text("TopGraphicEd"), "logo.bmp");
        click("Command1");
    });
    EXPECT_EQ(program->settings.TopGraphic, "logo.bmp");
}

}  // namespace
}  // namespace bramblet::test
