#include "core/stock/stock_list.h"
#include "support/merged_stock.h"
#include "support/office.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace bramblet::test {
namespace {

using Rows = std::vector<std::string>;
using Records = std::vector<StockItemRecord>;

std::string bytesOf(const Records& records) {
    std::string bytes;
    for (const auto& record : records)
        bytes += encodeRecord(kStockItemLayout, record);
    return bytes;
}

class Stock : public Office {
  protected:
    void SetUp() override { start(); }
    StockList& list() { return program().stock; }
    std::string bytes() const { return stored("po_stock.dat"); }
    StockItemRecord record(std::size_t number) const {
        return decodeRecord(kStockItemLayout, bytes().substr((number - 1) * 383, 383));
    }
    /// What the file holds, for example "1: screw, 2 deleted: nail x5" with five on hand.
    std::string catalogue() const {
        std::string text;
        for (std::size_t number = 1; number <= bytes().size() / 383; ++number) {
            const StockItemRecord item = record(number);
            const std::int64_t onHand = item.OnHand.tenThousandths / 10000;
            text += (number == 1 ? "" : ", ") + std::to_string(std::lround(item.Tag)) +
                    (item.Status == kDeletedItem ? " deleted: " : ": ") +
                    trimmedField(item.Description) +
                    (onHand == 0 ? "" : " x" + std::to_string(onHand));
            EXPECT_TRUE(item.Status == kDeletedItem || item.Status == kLiveItem);
        }
        return text;
    }
    /// Changes a record as another desk, or damage, would.
    template <class Member, class Value>
    void rewrite(std::size_t number, Member StockItemRecord::*member, const Value& value) const {
        StockItemRecord changed = record(number);
        changed.*member = value;
        writeFile(data("po_stock.dat"), bytes().replace((number - 1) * 383, 383,
                                                        encodeRecord(kStockItemLayout, changed)));
    }
    void saveItems(const Rows& descriptions) {
        for (const std::string& description : descriptions)
            saveItem(description);
    }
    void saveChanged(std::string StockItemBoxes::*box, const std::string& text) {
        list().boxes.*box = text;
        list().SaveChangedStockItem_Click();
    }
    void deleteItem(const std::string& item, Answer answer = Answer::Yes) {
        prompts.expect({"Delete stock item: \r\n\r\n" + item, "Confirm", Buttons::YesNo,
                        Icon::Question, Answer::No},
                       answer);
        list().DeleteStockItem_Click();
    }
    void setOnHand(int row, const std::string& item, const std::string& before,
                   const std::optional<std::string>& typed) {
        prompts.expectInput("Specify quantity on hand:\r\n\r\n" + item, "On Hand", before, typed);
        list().ItemsPopOnHand_Click(row);
    }
    Rows descriptions() {
        Rows rows;
        for (int row = 0; row < list().rowCount(); ++row)
            rows.push_back(list().text(row, StockColumn::Description));
        return rows;
    }
};

TEST_F(Stock, ARecordToTheByte) {
    list().boxes = {" Hinges ", "Eastgate", " pr", "Concealed hinge, caf\xE9", "$1,250.0625"};
    list().SaveNewStockItem_Click();
    const std::string one("\0\0\0\0\0\0\xF0\x3F", 8);
    const std::string cost("\x91\xBE\xBE\0\0\0\0\0", 8);  // 12,500,625
    EXPECT_EQ(bytes(), "1" + fitted("Hinges", 30) + one + fitted("Concealed hinge, caf\xE9", 120) +
                           fitted("pr", 20) + fitted("Eastgate", 60) + std::string(120, '\0') +
                           cost + std::string(16, '\0'));
    EXPECT_EQ(list().text(0, StockColumn::UnitCost), "1,250.0625");
    EXPECT_EQ(list().countText(), "1 stock items listed");
}

TEST_F(Stock, ANewItemCarriesTheLastRecordsOnHandAndSpareBytes) {
    saveItem("first");
    rewrite(1, &StockItemRecord::OnHand, Currency{120000});
    rewrite(1, &StockItemRecord::Spare1, fitted("kept", 60));
    rewrite(1, &StockItemRecord::Spare3, "12345678");
    saveItem("second");
    EXPECT_EQ(catalogue(), "1: first x12, 2: second x12");
    EXPECT_EQ(record(2).Spare1 + record(2).Spare3, fitted("kept", 60) + "12345678");
}

TEST_F(Stock, SavingAChangeFindsTheItemByItsNumberAndRevivesADeletedOne) {
    saveItems({"first", "second"});
    rewrite(2, &StockItemRecord::Tag, 9);
    rewrite(2, &StockItemRecord::OnHand, Currency{50000});
    list().PopStockList();
    list().StockGrid_Click(list().rowOf("9"));
    rewrite(2, &StockItemRecord::Status, kDeletedItem);
    saveChanged(&StockItemBoxes::StockDescriptionEd, "changed");
    EXPECT_EQ(catalogue(), "1: first, 9: changed x5");
}

TEST_F(Stock, AChangedUnitCostIsNotCleaned) {
    saveItem("first");
    const std::string before = bytes();
    start();
    list().SaveChangedStockItem_Click();
    deleteItem("\r\n\r\n");
    expectSaid("Bad record number");
    EXPECT_EQ(bytes(), before) << "without a picked item nothing is written";
    list().StockGrid_Click(0);
    saveChanged(&StockItemBoxes::StockUnitCostEd, "2 dollars");
    EXPECT_EQ(bytes(), before);
    expectSaid("\"2 dollars\" in the box Unit Cost is not an amount");
    saveChanged(&StockItemBoxes::StockUnitCostEd, "2.5");
    EXPECT_EQ(record(1).UnitCost.tenThousandths, 25000);
}

TEST_F(Stock, DeletingTakesTheNumberForTheRecordsAndKeepsTheRecord) {
    saveItems({"first", "second"});
    rewrite(1, &StockItemRecord::Tag, 2);  // the number of another record
    list().PopStockList();
    list().StockGrid_Click(0);
    deleteItem("A\r\nV\r\nfirst", Answer::No);
    EXPECT_EQ(catalogue(), "2: first, 2: second");
    deleteItem("A\r\nV\r\nfirst");
    EXPECT_EQ(screen.lastLine,
              "Number 2 in the file of the catalogue is \"second\" of \"V\": that one has been "
              "deleted, not the item shown. Stock item \"second\" deleted.");
    saveItem("third");
    EXPECT_EQ(catalogue(), "2: first, 2 deleted: second, 3: third");
}

TEST_F(Stock, WhichItemWasMetIsToldWhenTwoDesksGaveOneNumberTwice) {
    program().settings.UseQuantities = "Y";
    saveItems({"first", "second"});
    rewrite(2, &StockItemRecord::Tag, 1);
    list().PopStockList();
    list().StockGrid_Click(1);
    setOnHand(1, "A\r\nV\r\nsecond", "0", "5");
    EXPECT_EQ(catalogue(), "1: first x5, 1: second");
    const std::string met = "Number 1 in the file of the catalogue is \"first\" of \"V\": ";
    EXPECT_EQ(screen.lastLine,
              met + "its quantity has been changed from 0, not that of the item shown.");
    list().SaveChangedStockItem_Click();
    EXPECT_EQ(screen.lastLine, met + "it has been replaced by the item shown.");
    // The item shown is the one met from now on.
    screen.lastLine.clear();
    saveChanged(&StockItemBoxes::StockDescriptionEd, "renamed");
    deleteItem("A\r\nV\r\nrenamed");
    EXPECT_EQ(catalogue(), "1 deleted: renamed x5, 1: second");
    EXPECT_EQ(screen.lastLine, "Stock item \"renamed\" deleted.");
}

TEST_F(Stock, ACatalogueThatHasGrownBeyondSenseIsToldAndTheProgramStarts) {
    std::filesystem::resize_file(data("po_stock.dat"), kLongestFile + 1);
    start();
    expectSaid("The list of stock items was not read: the file is damaged");
    EXPECT_EQ(list().rowCount(), 0);
}

TEST_F(Stock, QuantityOnHandIsAskedForAndStored) {
    program().settings.UseQuantities = "Y";
    saveItem("first");
    list().StockGrid_Click(0);
    setOnHand(0, "A\r\nV\r\nfirst", "0", "12 pcs");
    EXPECT_EQ(list().text(0, StockColumn::OnHand), "12");
    for (const std::optional<std::string>& nothing : {std::optional<std::string>(), {""}}) {
        setOnHand(0, "A\r\nV\r\nfirst", "12", nothing);
        EXPECT_EQ(catalogue(), "1: first x12");
    }
    setOnHand(0, "A\r\nV\r\nfirst", "12", "0");
    EXPECT_EQ(catalogue(), "1: first");
}

TEST_F(Stock, TheListFollowsTheVendorTheSettingAndTheFile) {
    saveItem("screw", "Bolt Co", "1", "Screws");
    saveItem("nail", "Acme", "2", "screws");
    saveItem("bolt", "Bolt Co", "3", "Screws");
    EXPECT_EQ(descriptions(), (Rows{"screw", "nail", "bolt"}));
    EXPECT_EQ(list().entries().categories, (Rows{"Screws", "screws"}));
    EXPECT_EQ(list().entries().vendors, (Rows{"Bolt Co", "Acme"}));
    list().VendorItemsCheck_Click(true);
    EXPECT_EQ(list().rowCount(), 3);  // no vendor chosen
    pickAddress(Vendor, "Bolt Co ");
    EXPECT_EQ(descriptions(), (Rows{"screw", "bolt"}));
    EXPECT_EQ(list().entries().vendors, Rows{"Bolt Co"});
    EXPECT_EQ(list().columnCount(), 6);
    EXPECT_FALSE(list().showsOnHand());
    program().settings.UseQuantities = "Y";
    program().configure();
    EXPECT_EQ(list().columnCount(), 7);
    EXPECT_TRUE(list().showsOnHand());
    EXPECT_EQ(list().sortColumn(), std::nullopt) << "as in the file";
    list().sortBy(3);
    list().sortBy(3);
    EXPECT_EQ(list().sortColumn(), 3);
    EXPECT_TRUE(list().sortedDescending());
    EXPECT_STREQ(list().look(6).heading, "File Number");
    list().StockGrid_Click(1);
    EXPECT_EQ(list().FileOrderTag(), "3");
    EXPECT_EQ(list().boxes.StockDescriptionEd, "bolt");
}

TEST_F(Stock, AListOfManyBlocksOfTheFileKeepsWhatItIsAskedFor) {
    Records items;
    Rows ofBolt;
    for (int i = 1; i <= 2000; ++i) {
        StockItemRecord item = decodeRecord(kStockItemLayout, "");
        item.Tag = i;
        item.Vendor = i % 3 == 0 ? "Bolt Co" : "Acme";
        item.Description = "item " + std::to_string(i);
        items.push_back(item);
        if (i % 3 == 0) ofBolt.push_back(item.Description);
    }
    writeFile(data("po_stock.dat"), bytesOf(items));
    typeName(Vendor, "Bolt Co");
    list().VendorItemsCheck_Click(true);
    EXPECT_EQ(descriptions(), ofBolt);
}

TEST_F(Stock, HeadingsSortNumbersAsNumbersAndTextWithoutCase) {
    program().settings.UseQuantities = "Y";  // all columns are there
    saveItem("ten", "V", "10", "b");
    saveItem("nine", "V", "9", "A");
    saveItem("hundred", "V", "100", "C");
    const std::vector<std::pair<StockColumn, Rows>> sorted{
        {StockColumn::UnitCost, {"nine", "ten", "hundred"}},
        {StockColumn::UnitCost, {"hundred", "ten", "nine"}},
        {StockColumn::Category, {"nine", "ten", "hundred"}},
        {StockColumn::FileNumber, {"ten", "nine", "hundred"}},
        {StockColumn::UnitCost, {"nine", "ten", "hundred"}},
    };
    for (const auto& [column, rows] : sorted) {
        list().sortBy(static_cast<int>(column));
        EXPECT_EQ(descriptions(), rows);
    }
    obstruct(data("po_stock.dat"));
    list().VendorItemsCheck_Click(false);
    EXPECT_EQ(descriptions(), sorted.back().second) << "cannot be read, and stays";
    EXPECT_EQ(list().countText(), "3 stock items listed before; now it could not be read");
    expectSaid("The list of stock items was not read");
}

TEST_F(Stock, ANewItemIsThePickedOneAndAColleaguesIsNoticed) {
    saveItems({"zinc", "anvil"});
    list().sortBy(static_cast<int>(StockColumn::Description));
    EXPECT_EQ(list().FileOrderTag(), "2");
    saveChanged(&StockItemBoxes::StockDescriptionEd, "anvil, heavy");
    EXPECT_EQ(catalogue(), "1: zinc, 2: anvil, heavy");
    EXPECT_EQ(descriptions(), (Rows{"anvil, heavy", "zinc"})) << "it stays sorted";
    list().find("zinc");
    saveItem("bolt");
    expectSaid("Item 3 is saved; it is not among those listed.");
    EXPECT_EQ(list().FileOrderTag(), "3");
    list().find("");
    list().boxes.StockDescriptionEd = "clamp";
    list().boxes.StockUnitCostEd = "$1,250.00";
    list().SaveNewStockItem_Click();
    EXPECT_EQ(list().boxes.StockUnitCostEd, "1,250.00") << "which can be saved again as it stands";

    program().lookForNews();
    const std::size_t refreshed = screen.refreshed.size();
    rewrite(1, &StockItemRecord::Description, "tin");
    program().lookForNews();
    EXPECT_EQ(descriptions(), (Rows{"anvil, heavy", "bolt", "clamp", "tin"}));
    EXPECT_EQ(screen.refreshed.size(), refreshed + 1);
}

TEST_F(Stock, TheWidestAmountOfAColumnIsKnown) {
    program().settings.UseQuantities = "Y";
    EXPECT_EQ(list().widest(static_cast<int>(StockColumn::UnitCost)), "0.00");
    saveItem("dear", "V", "1,234,567.50");
    saveItem("odd", "V", "0.0625");
    EXPECT_EQ(list().widest(static_cast<int>(StockColumn::UnitCost)), "1,234,567.9999");
    EXPECT_EQ(list().widest(static_cast<int>(StockColumn::OnHand)), "0");
    EXPECT_EQ(list().widest(static_cast<int>(StockColumn::Description)), "");
}

TEST_F(Stock, PickingAddsALineAndAgainRaisesItAtTheEnd) {
    saveItem("hinge", "V", "1.9450");
    saveItem("screw", "V", "0.5");
    pickItem(0);
    EXPECT_EQ(lines(), "1 ea hinge 1.945 1.95 1");
    pickItem(1);
    pickItem(0);
    EXPECT_EQ(lines(), "1 ea screw 0.50 0.50 2; 2 ea hinge 1.945 3.89 1");
    EXPECT_EQ(order().OrderTotalEd, "4.39");
    program().settings.UseQuantities = "Y";  // decides which columns are read, nothing else
    list().PopStockList();
    pickItem(0);
    // Edited, it is a special line and no longer counts as the stock item.
    screen.lineAnswer = LineEntry{"3", "ea", "hinge", "1.945"};
    program().lines.OrderPop_DescriptionOverride_Click(1);
    pickItem(0);
    EXPECT_EQ(lines(),
              "1 ea screw 0.50 0.50 2; 3 ea hinge 1.945 5.84 special; "
              "1 ea hinge 1.945 1.95 1");
}

TEST_F(Stock, APickedQuantityIsAWholeNumberWithinSixteenBits) {
    saveItem("hinge");
    given(OrderLine{"2.5", "", "", "ea", "hinge", "1", "2.50", " 1 "});
    EXPECT_EQ(program().lines.GetQuantity("1").value, 4);  // 3.5, halves to even
    EXPECT_EQ(program().lines.GetQuantity("2").value, 0);
    given(OrderLine{"32767", "", "", "ea", "hinge", "1", "2.50", " 1 "});
    pickItem(0);
    EXPECT_EQ(order().lines.size(), 1u);
    EXPECT_EQ(screen.lastLine, "The item was not added: Overflow (error 6).");
}

class Exchange : public Stock {
  protected:
    /// Imports the file, or another outcome of the warning and the choice.
    void import(const std::optional<Message>& outcome = {}, Answer warned = Answer::Ok,
                bool chosen = true) {
        expectWarning(warned);
        if (warned == Answer::Ok)
            prompts.expectChoice("", chosen ? std::optional(file) : std::nullopt);
        if (outcome) prompts.expect(*outcome);
        program().stockExchange.mu_ImportStockItems_Click();
    }
    void expectWarning(Answer warned) {
        prompts.expect(
            {"It is strongly suggested that you run a complete data backup before "
             "performing an import operation! If you have not just done that, please "
             "click \"Cancel\" and do that first.",
             "Have you run a backup today?", Buttons::OkCancel, Icon::Exclamation, Answer::Cancel},
            warned);
    }
    static Message result(int added, int replaced) {
        return notice("Added " + std::to_string(added) + " new items.\r\nReplaced " +
                          std::to_string(replaced) + " existing items.",
                      "Finished");
    }
    void exportTo(const std::string& suggested, const std::optional<std::filesystem::path>& path,
                  const std::optional<Answer>& replace = {}, int written = 0) {
        prompts.expectChoice(suggested, path);
        if (replace) prompts.expect(replaceQuestion(), *replace);
        if (written > 0) {
            prompts.expect(
                notice(file.string() + " contains " + std::to_string(written) +
                           " stock item records.\r\n\r\nThese can be imported into any other "
                           "\"Bramblet\" or \"Hollowmere\" installation (version 1.5 or higher).",
                       "Finished"));
        }
        program().stockExchange.mu_ExportStockItems_Click();
    }
    static StockItemRecord item(const std::string& description, const std::string& vendor,
                                double tag, const std::string& status = kExportedItem) {
        StockItemRecord item = decodeRecord(kStockItemLayout, "");
        item.Status = status;
        item.Description = description;
        item.Vendor = vendor;
        item.Tag = tag;
        item.OnHand = Currency{70000};
        return item;
    }

    const std::filesystem::path file = documents / "items.sid";
};

TEST_F(Exchange, ExportsWhatIsListedInItsOrder) {
    saveItems({"zinc", "gone", "anvil", "odd"});
    rewrite(4, &StockItemRecord::Tag, 99);  // no record of the file has that number
    list().PopStockList();
    list().sortBy(static_cast<int>(StockColumn::Description));
    rewrite(2, &StockItemRecord::Status, kDeletedItem);  // elsewhere, since it was listed
    list().find("zinc");  // which hides the others, but they are listed
    EXPECT_EQ(list().rowCount(), 1);
    exportTo("Stock Items", file, {}, 2);
    Records exported{record(3), record(1)};
    exported[0].Status = exported[1].Status = kExportedItem;
    EXPECT_EQ(contentOf(file), bytesOf(exported));
}

TEST_F(Exchange, SuggestsTheVendorsNameMadeSafeAndAsksBeforeReplacing) {
    saveItem("zinc", "V/\"1\"");
    saveItem("bolt", "Other");
    typeName(Vendor, "V/\"1\"");
    list().VendorItemsCheck_Click(true);
    writeFile(file, "old");
    exportTo("V__1_", file, Answer::No);
    EXPECT_EQ(contentOf(file), "old");
    exportTo("V__1_", file, Answer::Yes, 1);
    EXPECT_EQ(contentOf(file).size(), 383u);
}

TEST_F(Exchange, WhatIsCancelledOrCannotBeDoneTouchesNothing) {
    saveItem("zinc");
    const std::string before = bytes();
    exportTo("Stock Items", std::nullopt);
    import({}, Answer::Cancel);
    import({}, Answer::Ok, false);
    exportTo("Stock Items", data("po_stock.dat"));
    expectSaid("The catalogue cannot be exported to its own file.");
    prompts.expectSaying("Have you run a backup today?");
    prompts.expectChoice("", data("po_stock.dat"));
    program().stockExchange.mu_ImportStockItems_Click();
    expectSaid("The catalogue cannot be imported into itself.");
    exportTo("Stock Items", documents / "none/items.sid");
    expectSaid("Path not found");
    import();  // a file that is not there
    expectSaid("File not found");
    EXPECT_EQ(bytes(), before);
}

TEST_F(Exchange, OnlyWholeFilesOfExportedItemsAreTaken) {
    const std::string two = bytesOf({item("a", "V", 1), item("b", "V", 2)});
    for (const std::string& bad :
         {two + "x", bytesOf({item("a", "V", 1), item("b", "V", 2, "1")})}) {
        writeFile(file, bad);
        import(
            notice("This file does not contain valid Stock Item data. Data must be created by "
                   "version 1.5 or later of Quenmoor \"Bramblet\" or \"Hollowmere\". Simply "
                   "re-naming an earlier version data file won't do.",
                   "Import Failed", Icon::Stop));
        EXPECT_EQ(bytes(), "");
    }
    writeFile(file, "");
    import(result(0, 0));
    writeFile(file, two);
    import(result(2, 0));
    EXPECT_EQ(descriptions(), (Rows{"a", "b"}));
}

TEST_F(Exchange, ItemsAreReplacedByDescriptionAndVendorAndOthersAdded) {
    saveItem("Caf\xE9 table", "Acme");  // 1: replaced
    saveItem("chair", "Acme");          // 2: replaced
    saveItem("lamp", "Acme");           // 3: deleted, so not matched
    saveItem("chair", "Acme");          // 4: a duplicate of 2, left alone
    rewrite(3, &StockItemRecord::Status, kDeletedItem);
    writeFile(file, bytesOf({item(" CAF\xC9 TABLE", "acme", 77), item("lamp", "Acme", 78),
                             item("Caf\xE9 table", "Bolt", 79), item("new", "Acme", 80),
                             item("NEW", "ACME", 81), item("CHAIR", "Acme", 82)}));
    import(result(3, 3));
    EXPECT_EQ(catalogue(),
              "1: CAF\xC9 TABLE x7, 2: CHAIR x7, 3 deleted: lamp, 4: chair, 5: lamp x7, "
              "6: Caf\xE9 table x7, 7: NEW x7");
}

TEST_F(Exchange, ManyNewItemsAreAddedInTheirOrder) {
    saveItem("bolt", "Acme");
    Records imported{item("BOLT", "Acme", 1)};
    for (int i = 2; i <= 6000; ++i)
        imported.push_back(item("item " + std::to_string(i), "Acme", 1));
    writeFile(file, bytesOf(imported));
    import(result(5999, 1));
    for (std::size_t i = 0; i < imported.size(); ++i) {
        imported[i].Status = kLiveItem;
        imported[i].Tag = static_cast<double>(i) + 1;
    }
    EXPECT_EQ(bytes(), bytesOf(imported));
}

TEST_F(Exchange, AnItemOfADamagedNumberDoesNotStretchTheFile) {
    saveItem("chair", "Acme");
    saveItem("lamp", "Acme");
    writeFile(file, bytesOf({item("LAMP", "acme", 1), item("CHAIR", "acme", 2)}));
    Records merged{record(1), item("LAMP", "acme", 2, kLiveItem)};
    for (const double number : {0.0, -1.0, 3.0, 2'147'000'000.0, 1e300, std::nan(""),
                                std::numeric_limits<double>::infinity()}) {
        rewrite(1, &StockItemRecord::Tag, number);
        import();
        merged[0].Tag = number;
        EXPECT_EQ(bytes(), bytesOf(merged)) << number << ": what came before it is kept";
        EXPECT_EQ(screen.lastLine,
                  "The import ended early: the item \"chair\" of \"Acme\" cannot be replaced, the "
                  "catalogue has no record of its number.");
    }
}

TEST_F(Exchange, TheKeyedSearchHasTheResultOfTheRecordByRecordOne) {
    unsigned seed = 1;
    const auto random = [&seed](unsigned below) {
        seed = seed * 1664525u + 1013904223u;
        return (seed >> 16) % below;
    };
    const auto anyItem = [&](double tag, const std::string& status) {
        const std::string description = random(2) == 0 ? "item " : "ITEM ";
        const std::string number = std::to_string(random(12));
        return item(description + number, "v" + std::to_string(random(3)), tag, status);
    };
    for (int round = 0; round < 20; ++round) {
        Records stock;
        Records imported;
        // Some numbers name another record than their own, as damaged files have them.
        for (unsigned i = 1; i <= 30; ++i) {
            const unsigned tag = random(5) == 0 ? 1 + random(30) : i;
            stock.push_back(anyItem(tag, random(4) == 0 ? kDeletedItem : kLiveItem));
            imported.push_back(anyItem(i, kExportedItem));
        }
        const std::string before = bytesOf(stock);
        writeFile(data("po_stock.dat"), before);
        writeFile(file, bytesOf(imported));
        prompts.expectSaying("Have you run a backup today?");
        prompts.expectChoice("", file);
        prompts.expectSaying("existing items.");
        program().stockExchange.mu_ImportStockItems_Click();
        ASSERT_EQ(bytes(), mergedByScanning(before, bytesOf(imported))) << "round " << round;
    }
}

TEST_F(Exchange, AFileOpenedFromTheDesktopIsImportedAfterTheSameWarning) {
    writeFile(file, encodeRecord(kStockItemLayout, item("Rope", "V", 1)));
    expectWarning(Answer::Cancel);
    program().stockExchange.offerImport(file);
    EXPECT_EQ(program().stock.rowCount(), 0);
    expectWarning(Answer::Ok);
    prompts.expect(result(1, 0));
    program().stockExchange.offerImport(file);
    EXPECT_EQ(program().stock.rowCount(), 1);
    std::filesystem::remove(file);
    expectWarning(Answer::Ok);
    program().stockExchange.offerImport(file);
    expectSaid("The import ended early");
}

}  // namespace
}  // namespace bramblet::test
