#include "core/stock/stock_list.h"
#include "support/office.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace bramblet {
namespace {

using namespace test;

using Rows = std::vector<std::string>;

class Stock : public Office {
  protected:
    void SetUp() override { start(); }
    StockList& list() { return program().stock; }
    std::string bytes() const { return contentOf(data("po_stock.dat")); }
    std::string recordBytes(std::size_t number) const {
        return bytes().substr((number - 1) * 383, 383);
    }
    StockItemRecord record(std::size_t number) const {
        return decodeRecord(kStockItemLayout, recordBytes(number));
    }
    void rewrite(std::size_t number, const StockItemRecord& record) const {
        std::string all = bytes();
        all.replace((number - 1) * 383, 383, encodeRecord(kStockItemLayout, record));
        writeFile(data("po_stock.dat"), all);
    }
    void saveNew(const std::string& category, const std::string& vendor,
                 const std::string& description, const std::string& cost) {
        list().boxes = {category, vendor, "ea", description, cost};
        list().SaveNewStockItem_Click();
    }
    void pick(const std::string& fileNumber) { list().StockGrid_Click(list().rowOf(fileNumber)); }
    Rows descriptions() {
        Rows rows;
        for (int row = 0; row < list().rowCount(); ++row) {
            rows.push_back(list().cell(row, StockColumn::Description));
        }
        return rows;
    }
    Message deletion(const std::string& item) const {
        return {"Delete stock item: \r\n\r\n" + item, "Confirm", Buttons::YesNo, Icon::Question,
                Answer::No};
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
    EXPECT_EQ(list().cell(0, StockColumn::UnitCost), "1,250.0625");
    EXPECT_EQ(list().countText(), "1 stock items listed");
}

TEST_F(Stock, ANewItemCarriesTheLastRecordsOnHandAndSpareBytes) {
    saveNew("A", "V", "first", "1");
    StockItemRecord last = record(1);
    last.OnHand = Currency{120000};
    last.Spare1 = fitted("kept", 60);
    last.Spare3 = "12345678";
    rewrite(1, last);
    saveNew("B", "V", "second", "2");
    EXPECT_EQ(record(2).OnHand.tenThousandths, 120000);
    EXPECT_EQ(recordBytes(2).substr(239, 4), "kept");
    EXPECT_EQ(recordBytes(2).substr(375), "12345678");
}

TEST_F(Stock, SavingAChangeFindsTheItemByItsNumberAndRevivesADeletedOne) {
    saveNew("A", "V", "first", "1");
    saveNew("A", "V", "second", "2");
    StockItemRecord moved = record(2);
    moved.Tag = 9;
    moved.OnHand = Currency{50000};
    rewrite(2, moved);
    list().PopStockList();
    pick("9");
    StockItemRecord deleted = record(2);
    deleted.Status = kDeletedItem;
    rewrite(2, deleted);
    list().boxes.StockDescriptionEd = "changed";
    list().SaveChangedStockItem_Click();
    EXPECT_EQ(record(2).Status, "1");
    EXPECT_EQ(trimmedField(record(2).Description), "changed");
    EXPECT_EQ(record(2).Tag, 9);
    EXPECT_EQ(record(2).OnHand.tenThousandths, 50000);
    EXPECT_EQ(trimmedField(record(1).Description), "first");
}

TEST_F(Stock, AChangedUnitCostIsNotCleaned) {
    saveNew("A", "V", "first", "1");
    pick("1");
    const std::string before = bytes();
    list().boxes.StockUnitCostEd = "2 dollars";
    list().SaveChangedStockItem_Click();
    EXPECT_EQ(bytes(), before);
    EXPECT_NE(prompts.lastLine.find("\"2 dollars\" in the box Unit Cost is not an amount"),
              std::string::npos);
    list().boxes.StockUnitCostEd = "2.5";
    list().SaveChangedStockItem_Click();
    EXPECT_EQ(record(1).UnitCost.tenThousandths, 25000);
}

TEST_F(Stock, WithoutAPickedItemNothingIsWritten) {
    saveNew("A", "V", "first", "1");
    const std::string before = bytes();
    list().SaveChangedStockItem_Click();
    prompts.expect(deletion("A\r\nV\r\nfirst"), Answer::Yes);
    list().DeleteStockItem_Click();
    EXPECT_NE(prompts.lastLine.find("Bad record number"), std::string::npos);
    EXPECT_EQ(bytes(), before);
}

TEST_F(Stock, DeletingTakesTheNumberForTheRecordsAndKeepsTheRecord) {
    saveNew("A", "V", "first", "1");
    saveNew("A", "V", "second", "2");
    StockItemRecord first = record(1);
    first.Tag = 2;  // the number of another record
    rewrite(1, first);
    list().PopStockList();
    list().StockGrid_Click(0);
    prompts.expect(deletion("A\r\nV\r\nfirst"), Answer::No);
    list().DeleteStockItem_Click();
    prompts.expect(deletion("A\r\nV\r\nfirst"), Answer::Yes);
    list().DeleteStockItem_Click();
    EXPECT_EQ(record(1).Status, "1");
    EXPECT_EQ(record(2).Status, "D");
    EXPECT_EQ(trimmedField(record(2).Description), "second");
    EXPECT_EQ(prompts.lastLine,
              "Number 2 in the file of the catalogue is \"second\" of \"V\": that one has been "
              "deleted, not the item shown.");
    saveNew("A", "V", "third", "3");
    EXPECT_EQ(record(3).Tag, 3);
}

TEST_F(Stock, WhichItemWasMetIsToldWhenTwoDesksGaveOneNumberTwice) {
    program().settings.UseQuantities = "Y";
    saveNew("A", "V", "first", "1");
    saveNew("A", "V", "second", "2");
    StockItemRecord second = record(2);
    second.Tag = 1;
    rewrite(2, second);
    list().PopStockList();
    list().StockGrid_Click(1);
    prompts.expectInput("Specify quantity on hand:\r\n\r\nA\r\nV\r\nsecond", "On Hand", "0", "5");
    list().ItemsPopOnHand_Click(1);
    EXPECT_EQ(record(1).OnHand.tenThousandths, 50000);
    EXPECT_EQ(prompts.lastLine,
              "Number 1 in the file of the catalogue is \"first\" of \"V\": its quantity has been "
              "changed from 0, not that of the item shown.");
    list().SaveChangedStockItem_Click();
    EXPECT_EQ(trimmedField(record(1).Description), "second");
    EXPECT_EQ(
        prompts.lastLine,
        "Number 1 in the file of the catalogue is \"first\" of \"V\": it has been replaced by "
        "the item shown.");
    // The item shown is the one met from now on.
    prompts.lastLine.clear();
    list().boxes.StockDescriptionEd = "renamed";
    list().SaveChangedStockItem_Click();
    prompts.expect(deletion("A\r\nV\r\nrenamed"), Answer::Yes);
    list().DeleteStockItem_Click();
    EXPECT_EQ(record(1).Status, "D");
    EXPECT_EQ(prompts.lastLine, "");
}

TEST_F(Stock, ACatalogueThatHasGrownBeyondSenseIsToldAndTheProgramStarts) {
    std::filesystem::resize_file(data("po_stock.dat"), kLongestFile + 1);
    start();
    EXPECT_EQ(prompts.lastLine.find("The list of stock items was not read: the file is damaged"),
              0u)
        << prompts.lastLine;
    EXPECT_EQ(list().rowCount(), 0);
}

TEST_F(Stock, QuantityOnHandIsAskedForAndStored) {
    program().settings.UseQuantities = "Y";
    saveNew("A", "V", "first", "1");
    pick("1");
    const std::string prompt = "Specify quantity on hand:\r\n\r\nA\r\nV\r\nfirst";
    prompts.expectInput(prompt, "On Hand", "0", "12 pcs");
    list().ItemsPopOnHand_Click(0);
    EXPECT_EQ(record(1).OnHand.tenThousandths, 120000);
    EXPECT_EQ(list().cell(0, StockColumn::OnHand), "12");
    for (const std::optional<std::string>& nothing : {std::optional<std::string>(), {""}}) {
        prompts.expectInput(prompt, "On Hand", "12", nothing);
        list().ItemsPopOnHand_Click(0);
        EXPECT_EQ(record(1).OnHand.tenThousandths, 120000);
    }
    prompts.expectInput(prompt, "On Hand", "12", "0");
    list().ItemsPopOnHand_Click(0);
    EXPECT_EQ(record(1).OnHand.tenThousandths, 0);
}

TEST_F(Stock, TheListFollowsTheVendorTheSettingAndTheFile) {
    saveNew("Screws", "Bolt Co", "screw", "1");
    saveNew("screws", "Acme", "nail", "2");
    saveNew("Screws", "Bolt Co", "bolt", "3");
    EXPECT_EQ(descriptions(), (Rows{"screw", "nail", "bolt"}));
    EXPECT_EQ(list().entries().categories, (Rows{"Screws", "screws"}));
    EXPECT_EQ(list().entries().vendors, (Rows{"Bolt Co", "Acme"}));
    list().VendorItemsCheck_Click(true);
    EXPECT_EQ(list().rowCount(), 3);  // no vendor chosen
    program().addresses.Combo_Change(AddressSide::Vendor, "Bolt Co ");
    program().addresses.Combo_Click(AddressSide::Vendor);
    EXPECT_EQ(descriptions(), (Rows{"screw", "bolt"}));
    EXPECT_EQ(list().entries().vendors, Rows{"Bolt Co"});
    EXPECT_EQ(list().columns().size(), 6u);
    program().settings.UseQuantities = "Y";
    list().PopStockList();
    EXPECT_EQ(list().columns().size(), 7u);
    EXPECT_EQ(list().columns()[6], StockColumn::FileNumber);
    list().StockGrid_Click(1);
    EXPECT_EQ(list().FileOrderTag(), "3");
    EXPECT_EQ(list().boxes.StockDescriptionEd, "bolt");
}

TEST_F(Stock, HeadingsSortNumbersAsNumbersAndTextWithoutCase) {
    saveNew("b", "V", "ten", "10");
    saveNew("A", "V", "nine", "9");
    saveNew("C", "V", "hundred", "100");
    list().sortByHeading(StockColumn::UnitCost);
    EXPECT_EQ(descriptions(), (Rows{"nine", "ten", "hundred"}));
    list().sortByHeading(StockColumn::UnitCost);
    EXPECT_EQ(descriptions(), (Rows{"hundred", "ten", "nine"}));
    list().sortByHeading(StockColumn::Category);
    EXPECT_EQ(descriptions(), (Rows{"nine", "ten", "hundred"}));
    list().sortByHeading(StockColumn::FileNumber);
    EXPECT_EQ(descriptions(), (Rows{"ten", "nine", "hundred"}));

    list().sortByHeading(StockColumn::UnitCost);
    std::filesystem::remove(data("po_stock.dat"));
    std::filesystem::create_directory(data("po_stock.dat"));
    list().VendorItemsCheck_Click(false);
    EXPECT_EQ(descriptions(), (Rows{"nine", "ten", "hundred"})) << "cannot be read, and stays";
    EXPECT_EQ(list().countText(), "3 stock items listed before; now it could not be read");
    EXPECT_EQ(prompts.lastLine.find("The list of stock items was not read"), 0u);
}

TEST_F(Stock, TheWidestAmountOfAColumnIsKnown) {
    program().settings.UseQuantities = "Y";
    EXPECT_EQ(list().widest(StockColumn::UnitCost), "0.00");
    saveNew("a", "V", "dear", "1,234,567.50");
    saveNew("a", "V", "odd", "0.0625");
    EXPECT_EQ(list().widest(StockColumn::UnitCost), "1,234,567.9999");
    EXPECT_EQ(list().widest(StockColumn::OnHand), "0");
    EXPECT_EQ(list().widest(StockColumn::Description), "");
}

TEST_F(Stock, PickingAddsALineAndAgainRaisesItAtTheEnd) {
    saveNew("A", "V", "hinge", "1.9450");
    saveNew("A", "V", "screw", "0.5");
    const auto pickRow = [&](int row) { program().lines.StockGrid_DblClick(list(), row); };
    pickRow(0);
    EXPECT_EQ(order().lines[0], (OrderLine{"1", "", "", "ea", "hinge", "1.945", "1.95", "1"}));
    pickRow(1);
    pickRow(0);
    ASSERT_EQ(order().lines.size(), 2u);
    EXPECT_EQ(order().lines[1], (OrderLine{"2", "", "", "ea", "hinge", "1.945", "3.89", "1"}));
    EXPECT_EQ(order().OrderTotalEd, "4.39");
    program().settings.UseQuantities = "Y";  // decides which columns are read, nothing else
    list().PopStockList();
    pickRow(0);
    EXPECT_EQ(order().lines[1][kQuantity], "3");
    // Edited, it is a special line and no longer counts as the stock item.
    lineAnswer = LineEntry{"3", "ea", "hinge", "1.945"};
    program().lines.OrderPop_DescriptionOverride_Click(1);
    pickRow(0);
    EXPECT_EQ(order().lines.size(), 3u);
}

TEST_F(Stock, APickedQuantityIsAWholeNumberWithinSixteenBits) {
    saveNew("A", "V", "hinge", "1");
    order().lines = {{"2.5", "", "", "ea", "hinge", "1", "2.50", " 1 "}};
    EXPECT_EQ(program().lines.GetQuantity("1").value, 4);  // 3.5, halves to even
    EXPECT_EQ(program().lines.GetQuantity("2").value, 0);
    order().lines[0][kQuantity] = "32767";
    program().lines.StockGrid_DblClick(list(), 0);
    EXPECT_EQ(order().lines.size(), 1u);
    EXPECT_EQ(prompts.lastLine, "The item was not added: Overflow (error 6).");
}

class Exchange : public Stock {
  protected:
    std::filesystem::path file() const { return documents / "items.sid"; }
    static Message warning() {
        return {
            "It is strongly suggested that you run a complete data backup before performing an "
            "import operation! If you have not just done that, please click \"Cancel\" and do "
            "that first.",
            "Have you run a backup today?", Buttons::OkCancel, Icon::Exclamation, Answer::Cancel};
    }
    void importFile() {
        prompts.expect(warning(), Answer::Ok);
        prompts.expectChoice("", file());
        program().stockExchange.mu_ImportStockItems_Click();
    }
    Message finished(int count) const {
        return {file().string() + " contains " + std::to_string(count) +
                    " stock item records.\r\n\r\nThese can be imported into any other "
                    "\"Bramblet\" or \"Hollowmere\" installation (version 1.5 or higher).",
                "Finished", Buttons::Ok, Icon::Information};
    }
    static Message result(int added, int replaced) {
        return {"Added " + std::to_string(added) + " new items.\r\nReplaced " +
                    std::to_string(replaced) + " existing items.",
                "Finished", Buttons::Ok, Icon::Information};
    }
    static std::string exported(const std::string& description, const std::string& vendor,
                                double tag) {
        StockItemRecord item = decodeRecord(kStockItemLayout, "");
        item.Status = kExportedItem;
        item.Description = description;
        item.Vendor = vendor;
        item.Tag = tag;
        item.OnHand = Currency{70000};
        return encodeRecord(kStockItemLayout, item);
    }
};

TEST_F(Exchange, ExportsWhatIsListedInItsOrder) {
    saveNew("A", "V", "zinc", "1");
    saveNew("A", "V", "gone", "2");
    saveNew("A", "V", "anvil", "3");
    StockItemRecord gone = record(2);
    list().sortByHeading(StockColumn::Description);
    gone.Status = kDeletedItem;
    rewrite(2, gone);  // deleted elsewhere since it was listed
    prompts.expectChoice("Stock Items", file());
    prompts.expect(finished(2));
    program().stockExchange.mu_ExportStockItems_Click();
    StockItemRecord anvil = record(3);
    anvil.Status = kExportedItem;
    StockItemRecord zinc = record(1);
    zinc.Status = kExportedItem;
    EXPECT_EQ(contentOf(file()),
              encodeRecord(kStockItemLayout, anvil) + encodeRecord(kStockItemLayout, zinc));
}

TEST_F(Exchange, SuggestsTheVendorsNameMadeSafeAndAsksBeforeReplacing) {
    saveNew("A", "V/\"1\"", "zinc", "1");
    saveNew("A", "Other", "bolt", "1");
    program().addresses.Combo_Change(AddressSide::Vendor, "V/\"1\"");
    list().VendorItemsCheck_Click(true);
    writeFile(file(), "old");
    const Message replace{"File already exists - do you want to replace it?", "Confirm",
                          Buttons::YesNo, Icon::Exclamation};
    prompts.expectChoice("V__1_", file());
    prompts.expect(replace, Answer::No);
    program().stockExchange.mu_ExportStockItems_Click();
    EXPECT_EQ(contentOf(file()), "old");
    prompts.expectChoice("V__1_", file());
    prompts.expect(replace, Answer::Yes);
    prompts.expect(finished(1));
    program().stockExchange.mu_ExportStockItems_Click();
    EXPECT_EQ(contentOf(file()).size(), 383u);
}

TEST_F(Exchange, CancellingTouchesNothing) {
    saveNew("A", "V", "zinc", "1");
    prompts.expectChoice("Stock Items", std::nullopt);
    program().stockExchange.mu_ExportStockItems_Click();
    prompts.expect(warning(), Answer::Cancel);
    program().stockExchange.mu_ImportStockItems_Click();
    prompts.expect(warning(), Answer::Ok);
    prompts.expectChoice("", std::nullopt);
    program().stockExchange.mu_ImportStockItems_Click();
    EXPECT_EQ(bytes().size(), 383u);
}

TEST_F(Exchange, TheCatalogueItselfAndUnreadableFilesEndInTheStatusLine) {
    saveNew("A", "V", "zinc", "1");
    const std::string before = bytes();
    prompts.expectChoice("Stock Items", data("po_stock.dat"));
    program().stockExchange.mu_ExportStockItems_Click();
    EXPECT_EQ(prompts.lastLine, "The catalogue cannot be exported to its own file.");
    prompts.expectChoice("Stock Items", documents / "none/items.sid");
    program().stockExchange.mu_ExportStockItems_Click();
    EXPECT_NE(prompts.lastLine.find("Path not found"), std::string::npos);
    importFile();  // a file that is not there
    EXPECT_NE(prompts.lastLine.find("File not found"), std::string::npos);
    EXPECT_EQ(bytes(), before);
}

TEST_F(Exchange, OnlyWholeFilesOfExportedItemsAreTaken) {
    const Message refused{
        "This file does not contain valid Stock Item data. Data must be created by version 1.5 or "
        "later of Quenmoor \"Bramblet\" or \"Hollowmere\". Simply re-naming an earlier version "
        "data file won't do.",
        "Import Failed", Buttons::Ok, Icon::Stop};
    const std::string two = exported("a", "V", 1) + exported("b", "V", 2);
    std::string wrongStatus = two;
    wrongStatus[383] = '1';
    for (const std::string& content : {two + "x", wrongStatus}) {
        writeFile(file(), content);
        prompts.expect(warning(), Answer::Ok);
        prompts.expectChoice("", file());
        prompts.expect(refused);
        program().stockExchange.mu_ImportStockItems_Click();
        EXPECT_EQ(bytes(), "");
    }
    for (const auto& [content, added] : {std::pair(std::string(), 0), std::pair(two, 2)}) {
        writeFile(file(), content);
        prompts.expect(warning(), Answer::Ok);
        prompts.expectChoice("", file());
        prompts.expect(result(added, 0));
        program().stockExchange.mu_ImportStockItems_Click();
    }
    EXPECT_EQ(descriptions(), (Rows{"a", "b"}));
}

TEST_F(Exchange, ItemsAreReplacedByDescriptionAndVendorAndOthersAdded) {
    saveNew("A", "Acme", "Caf\xE9 table", "1");  // 1: replaced
    saveNew("A", "Acme", "chair", "1");          // 2: other description
    saveNew("A", "Acme", "lamp", "1");           // 3: deleted, so not matched
    saveNew("A", "Acme", "chair", "1");          // 4: a duplicate of 2, left alone
    StockItemRecord lamp = record(3);
    lamp.Status = kDeletedItem;
    rewrite(3, lamp);
    writeFile(file(), exported(" CAF\xC9 TABLE", "acme", 77) + exported("lamp", "Acme", 78) +
                          exported("Caf\xE9 table", "Bolt", 79) + exported("new", "Acme", 80) +
                          exported("NEW", "ACME", 81) + exported("CHAIR", "Acme", 82));
    prompts.expect(warning(), Answer::Ok);
    prompts.expectChoice("", file());
    prompts.expect(result(3, 3));
    program().stockExchange.mu_ImportStockItems_Click();
    ASSERT_EQ(bytes().size(), 7 * 383u);
    EXPECT_EQ(trimmedField(record(1).Description), "CAF\xC9 TABLE");
    EXPECT_EQ(record(1).Tag, 1);
    EXPECT_EQ(record(1).Status, "1");
    EXPECT_EQ(record(1).OnHand.tenThousandths, 70000);
    EXPECT_EQ(trimmedField(record(2).Description), "CHAIR");
    EXPECT_EQ(record(3).Status, "D");
    EXPECT_EQ(trimmedField(record(4).Description), "chair");
    EXPECT_EQ(trimmedField(record(5).Description), "lamp");
    EXPECT_EQ(record(6).Tag, 6);
    EXPECT_EQ(trimmedField(record(7).Description), "NEW");  // the second replaced the first
}

TEST_F(Exchange, AnItemOfADamagedNumberDoesNotStretchTheFile) {
    const std::vector<double> numbers{
        0, -1, 3, 2'147'000'000, 1e300, std::nan(""), std::numeric_limits<double>::infinity()};
    for (const double number : numbers) {
        std::filesystem::resize_file(data("po_stock.dat"), 0);
        saveNew("A", "Acme", "chair", "1");
        saveNew("A", "Acme", "lamp", "1");
        StockItemRecord chair = record(1);
        chair.Tag = number;
        rewrite(1, chair);
        const std::string before = bytes();
        writeFile(file(), exported("CHAIR", "acme", 1));
        importFile();
        EXPECT_EQ(bytes(), before) << number;
        EXPECT_EQ(prompts.lastLine,
                  "The import ended early: the item \"chair\" of \"Acme\" cannot be replaced, the "
                  "catalogue has no record of its number.");
    }
}

/// What a search of the whole file for each record comes to.
std::vector<StockItemRecord> mergedByScanning(std::vector<StockItemRecord> stock,
                                              const std::vector<StockItemRecord>& imported) {
    const auto same = [](const StockItemRecord& a, const StockItemRecord& b) {
        return upper(trimmedField(a.Description)) == upper(trimmedField(b.Description)) &&
               upper(trimmedField(a.Vendor)) == upper(trimmedField(b.Vendor));
    };
    for (StockItemRecord item : imported) {
        std::size_t found = 0;
        while (found < stock.size() &&
               (stock[found].Status == kDeletedItem || !same(stock[found], item))) {
            ++found;
        }
        if (found == stock.size()) {
            item.Tag = static_cast<double>(stock.size()) + 1;
            item.Status = kLiveItem;
            stock.push_back(item);
        } else {
            item.Tag = stock[found].Tag;
            item.Status = stock[found].Status;
            stock[static_cast<std::size_t>(item.Tag) - 1] = item;
        }
    }
    return stock;
}

TEST_F(Exchange, TheKeyedSearchHasTheResultOfTheRecordByRecordOne) {
    unsigned seed = 1;
    const auto random = [&seed](unsigned below) {
        seed = seed * 1664525u + 1013904223u;
        return (seed >> 16) % below;
    };
    const auto anyItem = [&](double tag, const std::string& status) {
        StockItemRecord item = decodeRecord(kStockItemLayout, "");
        item.Description = (random(2) == 0 ? "item " : "ITEM ") + std::to_string(random(12));
        item.Vendor = "v" + std::to_string(random(3));
        item.Tag = tag;
        item.Status = status;
        return item;
    };
    for (int round = 0; round < 20; ++round) {
        std::vector<StockItemRecord> stock;
        std::vector<StockItemRecord> imported;
        // Some numbers name another record than their own, as damaged files have them.
        for (unsigned i = 1; i <= 30; ++i) {
            const unsigned tag = random(5) == 0 ? 1 + random(30) : i;
            stock.push_back(anyItem(tag, random(4) == 0 ? kDeletedItem : kLiveItem));
        }
        for (int i = 0; i < 30; ++i)
            imported.push_back(anyItem(i, kExportedItem));
        const auto bytesOf = [](const std::vector<StockItemRecord>& records) {
            std::string all;
            for (const auto& item : records)
                all += encodeRecord(kStockItemLayout, item);
            return all;
        };
        writeFile(data("po_stock.dat"), bytesOf(stock));
        writeFile(file(), bytesOf(imported));
        prompts.expect(warning(), Answer::Ok);
        prompts.expectChoice("", file());
        prompts.expectSaying("existing items.");
        program().stockExchange.mu_ImportStockItems_Click();
        ASSERT_EQ(bytes(), bytesOf(mergedByScanning(stock, imported))) << "round " << round;
    }
}

}  // namespace
}  // namespace bramblet
