#include "core/document/document_reader.h"
#include "support/office.h"

#include <algorithm>

namespace bramblet::test {
namespace {

class StartUp : public Office {
  protected:
    Settings storedSettings() const {
        return decodeRecord(kSettingsLayout, contentOf(home() / "po15.cfg"));
    }
    void storeDataDirectory(const std::string& directory) const {
        Settings settings = defaultSettings(home());
        settings.DataDirectory = directory;
        FileSystem().createFolders(home());
        writeFile(home() / "po15.cfg", encodeRecord(kSettingsLayout, settings));
    }
};

TEST_F(StartUp, ShowsAnEmptyPendingOrderDatedToday) {
    start();
    EXPECT_EQ(order().PONoEd, "(PEND)");
    EXPECT_EQ(order().OrderDateEd, "3/4/2026");
    EXPECT_EQ(order().DiscountFactorEd + order().OrderTotalEd, "0.00");
    EXPECT_FALSE(saveEnabled() || copyEnabled());
    EXPECT_TRUE(program().folder.DataPathOK());
    EXPECT_FALSE(os::exists(data("testfile.tmp")));
    for (const std::filesystem::path folder : {"/home/me", "/home/me/"})
        EXPECT_EQ(Program::homeFolderIn(folder), withSeparator("/home/me/Quenmoor"));
}

TEST_F(StartUp, AMissingDataFolderIsToldOnceAndByEveryDataCommand) {
    const std::string nowhere = withSeparator(documents / "nowhere").string();
    storeDataDirectory(nowhere);
    const Message noAccess = notice(
        "Unable to access the data directory " + nowhere +
            "\r\n\r\nThis could be caused by a number of factors, including an incorrect data path "
            "entry in your configuration file, the network being down, you not being connected to "
            "the network, or you lacking correct network permissions.\r\n\r\nThis problem must be "
            "corrected before you can continue. \r\n\r\nError 76 Path not found",
        "No Server Access!");
    prompts.expect(noAccess);
    start();
    EXPECT_TRUE(prompts.done());
    Program& p = program();
    const std::vector<std::function<void()>> commands{
        [&] { p.editor.SaveChanges_Click(); },
        [&] { p.editor.NewPO_Click(); },
        [&] { p.editor.Save_PO_Click(); },
        [&] { p.editor.Clear_Click(); },
        [&] { p.editor.make10_Click(); },
        [&] { p.editor.POGrid_Click("000001"); },
        [&] { p.editor.POPop_delete_Click("000001"); },
        [&] { p.savedOrders.ListCheck_Click(&SavedOrders::ListCheckPO, false); },
        [&] { p.addresses.Changed_Click(Vendor); },
        [&] { p.addresses.Delete_Click(Destination); },
        [&] { p.savedOrders.ViewExisting_Click(); },
        [&] { p.histories.RemoveHistoryEntry(); },
        [&] { p.stock.VendorItemsCheck_Click(true); },
        [&] { p.stock.SaveNewStockItem_Click(); },
        [&] { p.stock.SaveChangedStockItem_Click(); },
        [&] { p.stock.DeleteStockItem_Click(); },
        [&] { p.stock.ItemsPopOnHand_Click(0); },
        [&] { p.stockExchange.mu_ExportStockItems_Click(); },
        [&] { p.stockExchange.mu_ImportStockItems_Click(); },
        [&] { p.csvExport.mu_DataExport_Click(); },
        [&] { p.viewer.MakeOrder_Click(); },
        [&] { p.contactImport.mu_ImportKettleby_Click(); },
        [&] { p.contactImport.ImportAsShipTos_Click(); },
        [&] { p.backup.mu_DataBackup_Click(); },
        [&] { p.backup.mu_DataRestore_Click(); },
        [&] { p.listRebuild.mu_RebuildOrderList_Click(); },
    };
    for (std::size_t i = 0; i < commands.size(); ++i) {
        p.commands.say("Something was not saved");
        prompts.expect(noAccess);
        commands[i]();
        EXPECT_EQ(screen.lastLine, "") << i << ": what was said before is no longer news";
        EXPECT_TRUE(prompts.done()) << i;
    }
    EXPECT_EQ(p.savedOrders.countText(), "The list could not be read");
    EXPECT_EQ(p.stock.countText(), "The list could not be read");
    EXPECT_FALSE(os::exists(nowhere));
}

TEST_F(StartUp, WithoutADataFolderNothingIsWrittenAnywhere) {
    storeDataDirectory("");
    const std::filesystem::path here = std::filesystem::current_path();
    std::filesystem::current_path(documents.path());
    prompts.expectSaying("Error 76 Path not found");
    start();
    std::filesystem::current_path(here);
    EXPECT_FALSE(program().folder.DataPathOK());
    EXPECT_EQ(FileSystem().fileNames(documents.path()).size(), 0u);
}

TEST_F(StartUp, ADataFolderWithoutItsSeparatorStillNamesTheFolder) {
    FileSystem().createFolders(documents / "orders");
    storeDataDirectory((documents / "orders").string());
    start();
    EXPECT_EQ(program().folder.file("po_data.dat"), documents / "orders/po_data.dat");
}

TEST_F(StartUp, LeavingKeepsPlaceKindAndWhetherTheVendorsItemsAreListedAlone) {
    start();
    program().editor.chooseKind(OrderKind::Requisition);
    program().stock.VendorItemsCheck_Click(true);
    EXPECT_EQ(program().leave({9000, 12000, 150, -15}), Program::Leave::Now);
    EXPECT_EQ(storedSettings().WindowWidth + storedSettings().WindowHeight +
                  storedSettings().WindowTop + storedSettings().WindowLeft,
              "120009000 150  -15  ");
    start();
    EXPECT_EQ(order().kind, OrderKind::Requisition);
    EXPECT_TRUE(program().stock.VendorItemsCheck);
    EXPECT_EQ(program().windowPlace().left, -15);
    EXPECT_EQ(program().windowPlace().width, 12000);
    program().leave({123456, 12000, 0, -28800});  // six characters are cut to five
    EXPECT_EQ(storedSettings().WindowHeight + storedSettings().WindowLeft, "12345-2880");
}

class Leaving : public StartUp {
  protected:
    void SetUp() override {
        start();
        newOrder();
        type(&Order::JobNumberEd, "J-1");
        program().settings.NumberPrefix = "X-";
    }
    Program::Leave leaveAnswering(Answer answer) {
        prompts.expect(yesNoCancel("Save changes to Bramblet Number 000001 ?", "Save PO?"), answer);
        return program().leave({});
    }
    std::string storedJob() const { return trimmed(stored("po_data.dat").substr(7, 12)); }
};

TEST_F(Leaving, CancelSavesNothingNoTheSettingsYesTheOrderToo) {
    const struct {
        Answer answer;
        Program::Leave leave;
        const char *job, *prefix;
    } cases[] = {{Answer::Cancel, Program::Leave::Cancelled, "", ""},
                 {Answer::No, Program::Leave::Now, "", "X-"},
                 {Answer::Yes, Program::Leave::Now, "J-1", "X-"}};
    for (const auto& [answer, leave, job, prefix] : cases) {
        EXPECT_EQ(leaveAnswering(answer), leave);
        EXPECT_EQ(storedJob(), job);
        EXPECT_EQ(trimmedField(storedSettings().NumberPrefix), prefix);
    }
    EXPECT_EQ(storedSettings().OrdersSavedCount, 2);
}

TEST_F(Leaving, AnOrderThatCannotBeSavedKeepsTheProgramOpen) {
    type(&Order::OrderDateEd, "someday");
    prompts.expectSaying("Save changes", Answer::Yes);
    prompts.expect(
        notice("Order 000001 was not entered in the list of orders: \"someday\" in the "
               "box Order Date is not a date.\r\n\r\nBramblet stays open, so that "
               "nothing is lost.",
               "Bramblet", Icon::Exclamation));
    EXPECT_EQ(program().leave({}), Program::Leave::Stay);
    EXPECT_EQ(screen.lastLine, "");
}

TEST_F(Leaving, SettingsThatCannotBeSavedAreTriedAgainAtWill) {
    obstruct(home() / "po15.cfg");
    prompts.expectSaying("Save changes", Answer::No);
    prompts.expectSaying("The settings were not saved in " + (home() / "po15.cfg").string(),
                         Answer::Retry);
    prompts.expectSaying("Path/File access error (error 75)", Answer::Close);
    EXPECT_EQ(program().leave({}), Program::Leave::Now);
    EXPECT_EQ(waits, 0);
}

class LeavingUnasked : public Leaving {
  protected:
    /// The files in a folder, in order; none when it is missing.
    static std::vector<std::string> filesIn(const std::filesystem::path& folder) {
        std::vector<std::string> names;
        for (const auto& name : FileSystem().fileNames(folder))
            names.push_back(name.string());
        std::sort(names.begin(), names.end());
        return names;
    }
    std::filesystem::path kept() const { return home() / "po_data" / "kept"; }
};

TEST_F(LeavingUnasked, KeepsTheOrderAndTheSettingsAndTheNextStartSaysSoOnce) {
    const std::string saved = stored("000001.htm");
    addLine({"2", "ea", "Hammer", "10"});
    const Order before = order();
    program().leaveUnasked({9000, 12000, 150, -15});
    program().leaveUnasked({9000, 12000, 150, -15});  // for the session, then for a signal
    EXPECT_EQ(trimmedField(storedSettings().NumberPrefix), "X-");
    EXPECT_EQ(stored("000001.htm"), saved);
    ASSERT_EQ(filesIn(kept()), std::vector<std::string>{"000001 unsaved 2026-03-04 143005.htm"});

    start();
    const std::filesystem::path document = kept() / "000001 unsaved 2026-03-04 143005.htm";
    EXPECT_EQ(screen.lastLine, "Bramblet had to end and has kept the unsaved order as " +
                                   shown(document) + ". Lists, Open Kept Order opens it.");
    start();
    EXPECT_EQ(screen.lastLine, "");
    // Put in the place of the order's document, it brings everything back.
    std::filesystem::rename(document, data("000001.htm"));
    openOrder("000001");
    EXPECT_EQ(order().JobNumberEd, "J-1");
    EXPECT_EQ(order().lines, before.lines);
    EXPECT_EQ(order().OrderTotalEd, "20.00");
}

TEST_F(LeavingUnasked, KeepsNothingThatIsSavedSettledOrEmpty) {
    prompts.expectSaying("Save changes", Answer::No);
    program().leave({});
    program().leaveUnasked({});  // the session ends, as asked
    save();
    program().leaveUnasked({});
    start();
    program().editor.chooseKind(OrderKind::Requisition);
    program().leaveUnasked({});
    program().editor.Clear_Click();
    program().leaveUnasked({});
    EXPECT_FALSE(os::exists(kept()));
    EXPECT_FALSE(os::exists(home() / "kept.txt"));
}

TEST_F(LeavingUnasked, KeepsAnOrderWithoutANumberAndOneThatCannotBeTotalled) {
    type(&Order::ShippingEd, "1.2.3");
    typeAddress(Vendor, "1 Works Road\r\nTown");
    program().leaveUnasked({});
    start();
    type(&Order::CommentsEd, "call back");
    program().leaveUnasked({});
    start();
    type(&Order::CommentsEd, "never");
    program().leaveUnasked({});
    EXPECT_EQ(filesIn(kept()), (std::vector<std::string>{"000001 unsaved 2026-03-04 143005.htm",
                                                         "pending unsaved 2026-03-04 143005 2.htm",
                                                         "pending unsaved 2026-03-04 143005.htm"}));
    Order read;
    const std::string untotalled = contentOf(kept() / "000001 unsaved 2026-03-04 143005.htm");
    EXPECT_TRUE(contains(untotalled, "1 Works Road<br>\r\nTown"));
    readMarkers(untotalled, read);
    EXPECT_EQ(read.ShippingEd, "1.2.3");
    readMarkers(contentOf(kept() / "pending unsaved 2026-03-04 143005.htm"), read);
    EXPECT_EQ(read.CommentsEd, "call back");
}

TEST_F(LeavingUnasked, UsesTheHomeFolderWhereTheDataFolderTakesNothingAndNeverAsks) {
    writeFile(kept(), "");
    program().leaveUnasked({});
    EXPECT_EQ(filesIn(home() / "kept").size(), 1u);
    std::filesystem::rename(home() / "kept", home() / "moved");
    writeFile(home() / "kept", "");
    obstruct(home() / "po15.cfg");
    type(&Order::JobNumberEd, "J-2");
    program().leaveUnasked({});
    EXPECT_EQ(waits, 0);
}

}  // namespace
}  // namespace bramblet::test
