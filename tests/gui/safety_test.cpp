// The windows for backup, restoring, rebuilding the list of orders and contact import.

#include "gui/desk.h"

namespace bramblet::test {
namespace {

class SafetyTest : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        for (int i = 0; i < 3; ++i)
            newOrder();
        std::filesystem::create_directory(target);
    }
    const std::filesystem::path target = withSeparator(documents / "safe");
};

TEST_F(SafetyTest, StopClosesTheWindowAndEndsTheRun) {
    driver->inDialog("mu_DataBackup", [&](QWidget& dialog) {
        type("BackUpTarget", pathToQt(target));
        // Three orders, six histories, the list, addresses, catalogue.
        EXPECT_EQ(driver->find<QListView>("BackMeUp")->model()->rowCount(), 12);
        EXPECT_EQ(driver->find<QPushButton>("StopBackup")->text(), "Close");
        bool clicked = false;
        QTimer hand;
        QObject::connect(&hand, &QTimer::timeout, &hand, [&] {
            if (clicked || program->backup.progress().files < 2) return;
            clicked = true;
            EXPECT_FALSE(enabled("RunBackup"));
            click("StopBackup");
        });
        hand.start(0);
        click("RunBackup");
        EXPECT_TRUE(clicked);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(FileSystem().fileNames(target).size(), 2u);
}

TEST_F(SafetyTest, TheListOfOrdersIsRebuiltAfterALook) {
    const auto list = program->folder.file("po_data.dat");
    const auto status = [&] { return window->statusBar()->currentMessage(); };
    std::filesystem::resize_file(list, 203);
    std::filesystem::remove(program->folder.file("000001.htm"));
    open();
    EXPECT_EQ(status(),
              "1 order of the list has no document, 2 documents are not in the list: Data > "
              "Rebuild Order List from Documents shows which");
    std::filesystem::rename(program->folder.file("po_addy.dat"),
                            program->folder.file("po_addy.tmp"));
    writeFile(program->folder.file("po_addy.tmp"), std::string(570, ' '));
    os::setModified(program->folder.file("po_addy.tmp"), 1'000'000'000'000'000'000);
    open();
    EXPECT_EQ(status(), "The address book was missing and has been taken from po_addy.tmp.")
        << "the list's troubles displace no others";
    open();

    driver->inDialog("mu_RebuildOrderList", [&](QWidget&) {
        EXPECT_EQ(text("RebuildSummary"),
                  "2 orders are missing in the list, 1 order has no document");
        EXPECT_EQ(driver->rows("RebuildFindings"), 3);
        driver->clickHeading("RebuildFindings", 1);
        EXPECT_EQ(driver->cell("RebuildFindings", 0, 1), "has no document");
        click("Cancel");
    });
    EXPECT_EQ(status(), "") << "the next command clears the line";
    EXPECT_EQ(std::filesystem::file_size(list), 203u);

    driver->inDialog("mu_RebuildOrderList", [&](QWidget&) {
        driver->press("RebuildFindings", Qt::Key_R, Qt::AltModifier);
    });
    EXPECT_EQ(driver->rows("POGrid"), 3);
    driver->inDialog("mu_RebuildOrderList", [&](QWidget& dialog) {
        EXPECT_FALSE(enabled("Rebuild")) << "the order without a document stays in the list";
        dialog.close();
    });
}

TEST_F(SafetyTest, ReadingTheDocumentsCanBeStoppedOnceItTakesLong) {
    QElapsedTimer sinceStart;
    sinceStart.start();
    bool clicked = false;
    while (prompts.mayGoOn("Reading", 0, 1) && sinceStart.elapsed() < 3'000) {
        auto* const stop = window->findChild<QPushButton*>("StopProgress");
        if (stop == nullptr || !stop->isVisible()) continue;
        EXPECT_TRUE(clicked || sinceStart.elapsed() > 100) << "nothing flashes up";
        clicked = true;
        QTest::mouseClick(stop, Qt::LeftButton);
    }
    EXPECT_TRUE(clicked);
    EXPECT_LT(sinceStart.elapsed(), 3'000);
    prompts.progress("Reading", 1, 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(SafetyTest, ATableIsImportedAsWhatTheUserSaysItIs) {
    writeFile(documents / "table.csv", "Name;Town;Note\nAcme;Leeds;a\nBolt;York;b\n");
    driver->chooseFile(pathToQt(documents / "table.csv"));
    driver->inDialog("mu_ImportTable", [&](QWidget&) {
        EXPECT_EQ(text("ImportSeparator") + ", " + text("ImportKind"), "Semicolons, Vendors");
        EXPECT_FALSE(visible("ImportDecimals"));
        driver->pick("ImportKind", "Stock items");
        EXPECT_TRUE(visible("ImportDecimals") && visible("ImportItems"));
        driver->pick("ImportKind", "Ship-to destinations");
        EXPECT_EQ(driver->rows("ImportAddresses"), 2);
        driver->pick("ImportTown", "C: Note");
        click("ImportHeaded");
        EXPECT_EQ(text("ImportSummary"), "3 rows");
        click("ImportHeaded");
        driver->answer("Addresses added: 2");
        click("RunImport");
    });
    driver->pick("ShipToCombo", "Bolt");
    EXPECT_EQ(order().ShipToField, "b");
}

}  // namespace
}  // namespace bramblet::test
