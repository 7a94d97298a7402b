#include "support/office.h"

#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;

class StartUp : public Office {
  protected:
    Settings storedSettings() const {
        return decodeRecord(kSettingsLayout, contentOf(home() / "po15.cfg"));
    }
    void store(const Settings& settings) const {
        FileSystem().createFolders(home());
        writeFile(home() / "po15.cfg", encodeRecord(kSettingsLayout, settings));
    }
    static WindowPlace place() { return {9000, 12000, 150, -15}; }
};

TEST_F(StartUp, ShowsAnEmptyPendingOrderDatedToday) {
    start();
    EXPECT_EQ(order().PONoEd, "(PEND)");
    EXPECT_EQ(order().OrderDateEd, "3/4/2026");
    EXPECT_EQ(order().DiscountFactorEd, "");
    EXPECT_EQ(order().OrderTotalEd, "0.00");
    EXPECT_FALSE(program().open.SaveChangesEnabled || program().open.Save_POEnabled);
    EXPECT_TRUE(program().folder.DataPathOK());
    EXPECT_FALSE(FileSystem().exists(data("testfile.tmp")));
}

TEST_F(StartUp, TheHomeFolderGetsOneSeparator) {
    const auto expected = withSeparator("/home/me/Documents/Quenmoor");
    EXPECT_EQ(Program::homeFolderIn("/home/me/Documents"), expected);
    EXPECT_EQ(Program::homeFolderIn(withSeparator("/home/me/Documents")), expected);
}

TEST_F(StartUp, AMissingDataFolderIsToldOnceAndByEveryDataCommand) {
    Settings settings = defaultSettings(home());
    settings.DataDirectory = withSeparator(documents / "nowhere").string();
    store(settings);
    const Message noAccess{
        "Unable to access the data directory " + settings.DataDirectory +
            "\r\n\r\nThis could be caused by a number of factors, including an incorrect data path "
            "entry in your configuration file, the network being down, you not being connected to "
            "the network, or you lacking correct network permissions.\r\n\r\nThis problem must be "
            "corrected before you can continue. \r\n\r\nError 76 Path not found",
        "No Server Access!", Buttons::Ok, Icon::Information};
    prompts.expect(noAccess);
    start();
    EXPECT_TRUE(prompts.done());
    EXPECT_FALSE(FileSystem().exists(documents / "nowhere"));

    const std::vector<std::function<void()>> commands{
        [&] { program().editor.SaveChanges_Click(); },
        [&] { program().editor.NewPO_Click(); },
        [&] { program().editor.Save_PO_Click(); },
        [&] { program().editor.Clear_Click(); },
        [&] { program().editor.make10_Click(); },
        [&] { program().editor.POGrid_Click("000001"); },
        [&] { program().editor.POPop_delete_Click("000001"); },
        [&] { program().savedOrders.ListCheck_Click(&SavedOrders::ListCheckPO, false); },
        [&] { program().addresses.Changed_Click(AddressSide::Vendor); },
        [&] { program().addresses.Delete_Click(AddressSide::Destination); },
        [&] { program().savedOrders.ViewExisting_Click(); },
        [&] { program().histories.RemoveHistoryEntry(); },
        [&] { program().stock.VendorItemsCheck_Click(true); },
        [&] { program().stock.SaveNewStockItem_Click(); },
        [&] { program().stock.SaveChangedStockItem_Click(); },
        [&] { program().stock.DeleteStockItem_Click(); },
        [&] { program().stock.ItemsPopOnHand_Click(0); },
        [&] { program().stockExchange.mu_ExportStockItems_Click(); },
        [&] { program().stockExchange.mu_ImportStockItems_Click(); },
        [&] { program().csvExport.mu_DataExport_Click(); },
        [&] { program().viewer.MakeOrder_Click(); },
        [&] { program().contactImport.mu_ImportKettleby_Click(); },
        [&] { program().contactImport.ImportAsShipTos_Click(); },
        [&] { program().backup.mu_DataBackup_Click(); },
        [&] { program().backup.mu_DataRestore_Click(); },
    };
    for (std::size_t i = 0; i < commands.size(); ++i) {
        prompts.say("Something was not saved");
        prompts.expect(noAccess);
        commands[i]();
        EXPECT_EQ(prompts.lastLine, "") << i << ": what was said before is no longer news";
    }
    EXPECT_EQ(program().savedOrders.countText(), "The list could not be read");
    EXPECT_EQ(program().stock.countText(), "The list could not be read");
    EXPECT_TRUE(prompts.done());
    EXPECT_FALSE(FileSystem().exists(documents / "nowhere"));
}

TEST_F(StartUp, ADataFolderWithoutItsSeparatorStillNamesTheFolder) {
    Settings settings = defaultSettings(home());
    settings.DataDirectory = (documents / "orders").string();
    FileSystem().createFolders(documents / "orders");
    store(settings);
    start();
    EXPECT_EQ(program().folder.file("po_data.dat"), documents / "orders/po_data.dat");
}

TEST_F(StartUp, TheCopyThatAnInterruptedDeleteLeftIsRemovedOrTakenForTheBook) {
    start();
    program().addresses.Combo_Change(AddressSide::Vendor, "Acme");
    program().addresses.Changed_Click(AddressSide::Vendor);
    const auto leave = [&] {
        writeFile(data("po_addy.tmp"), contentOf(data("po_addy.dat")));
        os::setModified(data("po_addy.tmp"), 1'000'000'000'000'000'000);
    };
    leave();
    start();
    EXPECT_FALSE(FileSystem().exists(data("po_addy.tmp")));
    leave();
    std::filesystem::remove(data("po_addy.dat"));
    start();
    EXPECT_EQ(program().addresses.shown(AddressSide::Vendor).names.size(), 1u);
    EXPECT_EQ(prompts.lastLine,
              "The address book was missing and has been taken from po_addy.tmp.");
}

TEST_F(StartUp, LeavingKeepsPlaceAndKind) {
    start();
    program().editor.OptionRe_Click();
    EXPECT_EQ(program().leave(place()), Program::Leave::Now);
    EXPECT_EQ(storedSettings().WindowWidth + storedSettings().WindowHeight +
                  storedSettings().WindowTop + storedSettings().WindowLeft,
              "120009000 150  -15  ");
    start();
    EXPECT_EQ(order().kind, OrderKind::Requisition);
    EXPECT_EQ(program().windowPlace().left, -15);
    EXPECT_EQ(program().windowPlace().width, 12000);
}

TEST_F(StartUp, APlaceOfSixCharactersIsCutToFive) {
    start();
    program().leave({123456, 12000, 0, -28800});
    EXPECT_EQ(storedSettings().WindowHeight, "12345");
    EXPECT_EQ(storedSettings().WindowLeft, "-2880");
}

TEST_F(StartUp, WithoutADataDirectoryThereIsNoAccess) {
    Settings settings = defaultSettings(home());
    settings.DataDirectory = "";
    store(settings);
    prompts.expectSaying("Unable to access the data directory");
    start();
    EXPECT_FALSE(program().folder.DataPathOK());
}

class Leaving : public StartUp {
  protected:
    void SetUp() override {
        start();
        newOrder();
        program().editor.edit(&Order::JobNumberEd, "J-1");
        program().settings.NumberPrefix = "X-";
    }
    Program::Leave leaveAnswering(Answer answer) {
        prompts.expect(yesNoCancel("Save changes to Bramblet Number 000001 ?", "Save PO?"), answer);
        return program().leave(place());
    }
    std::string storedJob() const { return contentOf(data("po_data.dat")).substr(7, 3); }
};

TEST_F(Leaving, YesSavesTheOrderAndTheSettings) {
    EXPECT_EQ(leaveAnswering(Answer::Yes), Program::Leave::Now);
    EXPECT_EQ(storedJob(), "J-1");
    EXPECT_EQ(storedSettings().NumberPrefix, "X-        ");
    EXPECT_EQ(storedSettings().OrdersSavedCount, 2);
}

TEST_F(Leaving, NoDropsTheEditsAndSavesTheSettings) {
    EXPECT_EQ(leaveAnswering(Answer::No), Program::Leave::Now);
    EXPECT_EQ(storedJob(), "   ");
    EXPECT_EQ(storedSettings().NumberPrefix, "X-        ");
}

TEST_F(Leaving, CancelLeavesWithoutSavingAnything) {
    EXPECT_EQ(leaveAnswering(Answer::Cancel), Program::Leave::Now);
    EXPECT_EQ(storedJob(), "   ");
    EXPECT_EQ(trimmedField(storedSettings().NumberPrefix), "");
}

TEST_F(Leaving, AnOrderThatCannotBeSavedKeepsTheProgramOpen) {
    program().editor.edit(&Order::OrderDateEd, "someday");
    prompts.expect(yesNoCancel("Save changes to Bramblet Number 000001 ?", "Save PO?"),
                   Answer::Yes);
    prompts.expect(
        {"Order 000001 was not entered in the list of orders: \"someday\" in the box "
         "Order Date is not a date.\r\n\r\nBramblet stays open, so that nothing is lost.",
         "Bramblet", Buttons::Ok, Icon::Exclamation});
    EXPECT_EQ(program().leave(place()), Program::Leave::Stay);
    EXPECT_EQ(prompts.lastLine, "");
}

TEST_F(Leaving, SettingsThatCannotBeSavedAreTriedAgainAtWill) {
    const std::filesystem::path file = home() / "po15.cfg";
    const std::string before = contentOf(file);
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    prompts.expectSaying("Save changes", Answer::No);
    prompts.expectSaying("The settings were not saved in " + file.string(), Answer::Retry);
    prompts.expectSaying("Path/File access error (error 75)", Answer::Close);
    EXPECT_EQ(program().leave(place()), Program::Leave::Now);
    EXPECT_EQ(waits, 0);
}

}  // namespace
}  // namespace bramblet
