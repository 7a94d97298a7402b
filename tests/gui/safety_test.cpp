// The windows for backup, restoring and contact import.

#include "gui/desk.h"
#include "gui/platform/qt_text.h"

#include <QListView>
#include <QProgressBar>
#include <QPushButton>

namespace bramblet::test {
namespace {

class SafetyTest : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        for (int i = 0; i < 3; ++i)
            newOrder();
        std::filesystem::create_directory(target());
    }
    std::filesystem::path target() const { return withSeparator(documents / "safe"); }
    int listed() { return driver->find<QListView>(name("BackMeUp"))->model()->rowCount(); }
    S caption(const char* button) { return driver->find<QPushButton>(name(button))->text(); }
};

TEST_F(SafetyTest, ABackupIsMadeVerifiedAndRestored) {
    driver->onNextDialog([&](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), name("TandrilfrmBackup"));
        EXPECT_EQ(driver->text(name("Backuplist")), pathToQt(program->folder.DataPath()));
        EXPECT_EQ(listed(), 12);  // three orders, six histories, the list, addresses, catalogue
        driver->type(name("BackUpTarget"), pathToQt(target()));
        driver->answer(name("Backup completed!"), QMessageBox::Ok);
        driver->click(name("RunBackup"));
        EXPECT_EQ(driver->text(name("BackUpProgress")), name("12 files copied"));
        auto* bar = driver->find<QProgressBar>(name("BackUpBar"));
        EXPECT_EQ(bar->value(), bar->maximum());
        driver->answer(name("12 files agree, 0 differ, 0 missing."), QMessageBox::Ok);
        driver->click(name("Verify"));
        driver->click(name("StopBackup"));
    });
    driver->trigger(name("mu_DataBackup"));

    FileSystem().remove(program->folder.file("po_data.dat"));
    driver->onNextDialog([&](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), name("TandrilfrmRestore"));
        EXPECT_EQ(driver->text(name("Backuplist")), pathToQt(target()));
        driver->answer(name("CAUTION"), QMessageBox::Yes);
        driver->answer(name("Restoration completed!"), QMessageBox::Ok);
        driver->click(name("RunBackup"));
        dialog.close();
    });
    driver->trigger(name("mu_DataRestore"));
    EXPECT_EQ(driver->rows(name("POGrid")), 3);
}

TEST_F(SafetyTest, StopClosesTheWindowAndEndsTheRun) {
    driver->onNextDialog([&](QWidget& dialog) {
        driver->type(name("BackUpTarget"), pathToQt(target()));
        EXPECT_EQ(caption("StopBackup"), name("Close"));
        bool clicked = false;
        const auto shown = program->backup.onChange;
        program->backup.onChange = [&, shown] {
            shown();
            if (clicked || program->backup.progress().files < 2) return;
            clicked = true;
            EXPECT_FALSE(driver->isEnabled(name("RunBackup")));
            driver->click(name("StopBackup"));
        };
        driver->click(name("RunBackup"));
        EXPECT_TRUE(clicked);
        EXPECT_FALSE(dialog.isVisible());
    });
    driver->trigger(name("mu_DataBackup"));
    EXPECT_EQ(FileSystem().fileNames(target()).size(), 2u);
}

TEST_F(SafetyTest, ContactsAreImportedFromTheirWindow) {
    std::string contact(1047, ' ');
    contact.replace(81, 4, "Acme");
    writeFile(documents / "contacts.dat", contact);
    driver->onNextDialog([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), name("Bramblet - Kettleby Import"));
        EXPECT_FALSE(driver->isEnabled(name("ImportKettlebyVendors")));
        EXPECT_FALSE(driver->isEnabled(name("ImportAsShipTos")));
        driver->chooseFile(pathToQt(documents / "contacts.dat"));
        driver->click(name("Command1"));
        EXPECT_EQ(driver->text(name("FileNameEd")), pathToQt(documents / "contacts.dat"));
        driver->answer(name("Finished!"), QMessageBox::Ok);
        driver->click(name("ImportKettlebyVendors"));
        EXPECT_TRUE(driver->isEnabled(name("ImportAsShipTos")));
        dialog.close();
    });
    driver->trigger(name("mu_ImportKettleby"));
    driver->pick(name("ToCombo"), name("Acme"));
    EXPECT_EQ(program->open.order.ToCombo, "Acme");
}

}  // namespace
}  // namespace bramblet::test
