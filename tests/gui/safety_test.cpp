// The windows for backup, restoring and contact import.

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
        click("StopBackup");
    });

    FileSystem().remove(program->folder.file("po_data.dat"));
    driver->inDialog("mu_DataRestore", [&](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), "TandrilfrmRestore");
        EXPECT_EQ(text("Backuplist"), pathToQt(target));
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

TEST_F(SafetyTest, ContactsAreImportedFromTheirWindow) {
    std::string contact(1047, ' ');
    contact.replace(81, 4, "Acme");
    writeFile(documents / "contacts.dat", contact);
    driver->inDialog("mu_ImportKettleby", [&](QWidget& dialog) {
        EXPECT_FALSE(enabled("ImportKettlebyVendors") || enabled("ImportAsShipTos"));
        driver->chooseFile(pathToQt(documents / "contacts.dat"));
        click("Command1");
        EXPECT_EQ(text("FileNameEd"), pathToQt(documents / "contacts.dat"));
        driver->answer("Finished!");
        click("ImportKettlebyVendors");
        EXPECT_TRUE(enabled("ImportAsShipTos"));
        dialog.close();
    });
    driver->pick("ToCombo", "Acme");
    EXPECT_EQ(order().ToCombo, "Acme");
}

}  // namespace
}  // namespace bramblet::test
