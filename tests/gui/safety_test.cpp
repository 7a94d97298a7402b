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

TEST_F(SafetyTest, ABackupIsMadeVerifiedAndRestored) {
    driver->inDialog("mu_DataBackup", [&](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), "TandrilfrmBackup");
        EXPECT_EQ(text("Backuplist"), pathToQt(program->folder.DataPath()));
        // Three orders, six histories, the list, addresses, catalogue.
        EXPECT_EQ(driver->find<QListView>("BackMeUp")->model()->rowCount(), 12);
        type("BackUpTarget", pathToQt(target));
        driver->answer("Backup completed!");
        click("RunBackup");
        EXPECT_EQ(text("BackUpProgress"), "12 files copied");
        auto* bar = driver->find<QProgressBar>("BackUpBar");
        EXPECT_EQ(bar->value(), bar->maximum());
        driver->answer("12 files agree, 0 differ, 0 missing.");
        click("Verify");
        click("BackUpSettings");
        EXPECT_EQ(driver->find<QListView>("BackMeUp")->model()->rowCount(), 13);
        click("BackUpDated");
        driver->answer("Backup completed!");
        click("RunBackup");
        EXPECT_EQ(text("BackUpProgress"), "13 files copied to \"Bramblet 2026-03-04 143005\"");
        click("StopBackup");
    });

    FileSystem().remove(target / "po_data.dat");
    FileSystem().remove(program->folder.file("po_data.dat"));
    driver->inDialog("mu_DataRestore", [&](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), "TandrilfrmRestore");
        EXPECT_EQ(text("Backuplist"), pathToQt(target));
        EXPECT_TRUE(text("BackUpWarning").startsWith("There is no list of orders in this folder."));
        click("TakeNewest");
        EXPECT_FALSE(visible("BackUpWarning") || visible("TakeNewest"));
        click("BackUpSettings");
        driver->answer("12 files agree, 0 differ, 1 missing.");
        click("Verify");
        driver->answer("CAUTION", QMessageBox::Yes);
        driver->answer("Restoration completed!");
        click("RunBackup");
        dialog.close();
    });
    EXPECT_EQ(driver->rows("POGrid"), 3);
}

TEST_F(SafetyTest, StopClosesTheWindowAndEndsTheRun) {
    driver->inDialog("mu_DataBackup", [&](QWidget& dialog) {
        type("BackUpTarget", pathToQt(target));
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
    const std::string whole = contentOf(list);
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

    driver->inDialog("mu_RebuildOrderList", [&](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), "RebuildDialog");
        EXPECT_EQ(text("RebuildSummary"),
                  "2 orders are missing in the list, 1 order has no document");
        EXPECT_EQ(driver->rows("RebuildFindings"), 3);
        driver->clickHeading("RebuildFindings", 1);
        EXPECT_EQ(driver->cell("RebuildFindings", 0, 1), "has no document");
        click("Cancel");
    });
    EXPECT_EQ(status(), "") << "the next command clears the line";
    EXPECT_EQ(contentOf(list), whole.substr(0, 203));

    driver->inDialog("mu_RebuildOrderList", [&](QWidget&) {
        driver->press("RebuildFindings", Qt::Key_R, Qt::AltModifier);
    });
    EXPECT_EQ(contentOf(list), whole);
    EXPECT_EQ(driver->rows("POGrid"), 3);
    EXPECT_TRUE(
        status().startsWith("The list of orders is rebuilt: 2 added, 0 changed; the former "
                            "list is kept"));

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

TEST_F(SafetyTest, ContactsAreImportedFromTheirWindow) {
    std::string contact(1047, ' ');
    contact.replace(81, 4, "Acme");
    writeFile(documents / "contacts.dat", contact);
    driver->inDialog("mu_ImportKettleby", [&](QWidget& dialog) {
        EXPECT_FALSE(enabled("ImportKettlebyVendors") || enabled("ImportAsShipTos"));
        driver->chooseFile(pathToQt(documents / "contacts.dat"));
        click("Command1");
        EXPECT_EQ(text("FileNameEd"), pathToQt(documents / "contacts.dat"));
        EXPECT_EQ(text("ContactSummary"), "1 contact");
        driver->answer("Finished!");
        click("ImportKettlebyVendors");
        EXPECT_TRUE(enabled("ImportAsShipTos"));
        EXPECT_EQ(text("ContactSummary"), "1 contact, 1 in the address book already");
        EXPECT_EQ(driver->rows("ContactGrid"), 1);
        dialog.close();
    });
    driver->pick("ToCombo", "Acme");
    EXPECT_EQ(order().ToCombo, "Acme");
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
