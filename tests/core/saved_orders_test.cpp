#include "core/orders/saved_orders.h"

#include "support/office.h"

#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;

class SavedOrdersTest : public Office {
  protected:
    void SetUp() override {
        start();
        add("A", "000009", "zinc", 0);
        add("R", "000010", "Anvil", kToday);
        add("a", "PO11", "bolts", 0);
        add("r", "000002", "anchors", 0);
        add("D", "000100", "gone", 0);
        list().PopPOGrid();
    }
    SavedOrders& list() { return program().savedOrders; }

    void add(const std::string& status, const std::string& number, const std::string& vendor,
             double date) {
        OrderIndexRecord record;
        record.Status = status;
        record.Number = number;
        record.Vendor = vendor;
        record.OrderDate = date;
        record.OrderTotal = Currency{12345000};
        writeFile(data("po_data.dat"),
                  contentOf(data("po_data.dat")) + encodeRecord(kOrderIndexLayout, record));
    }
    std::vector<std::string> numbers() {
        std::vector<std::string> numbers;
        for (int row = 0; row < list().rowCount(); ++row)
            numbers.push_back(list().number(row));
        return numbers;
    }
};

using Numbers = std::vector<std::string>;

TEST_F(SavedOrdersTest, HighestNumberFirstAndDeletedOnesLeftOut) {
    EXPECT_EQ(numbers(), (Numbers{"000010", "000009", "000002", "PO11"}));
    EXPECT_EQ(list().countText(), "4 orders listed");
    EXPECT_EQ(list().rowOf("000002"), 2);
    EXPECT_EQ(list().rowOf("000100"), -1);
}

TEST_F(SavedOrdersTest, CellsAreFormattedAndBlankDatesEmpty) {
    EXPECT_EQ(list().cell(0, kDateColumn), "3/4/2026");
    EXPECT_EQ(list().cell(1, kDateColumn), "");
    EXPECT_EQ(list().cell(0, kVendorColumn), "Anvil");
    EXPECT_EQ(list().cell(0, kOrderTotalColumn), "$1,234.50");
    EXPECT_EQ(list().cell(0, kStatusColumn), "R");
    EXPECT_EQ(list().widest(kOrderTotalColumn), "$1,234.50");
    EXPECT_EQ(list().widest(kVendorColumn), "");
}

TEST_F(SavedOrdersTest, AccentedLettersStandWithTheirOwn) {
    add("A", "000020",
        "\xC1"
        "bel",
        0);
    add("A", "000021", "\xE4nderung", 0);
    add("A", "000022", "\xDFtra", 0);
    add("A", "000023", "\xC6gir", 0);
    add("A", "000024", "Abel", 0);
    list().PopPOGrid();
    list().sortByHeading(kVendorColumn);
    std::vector<std::string> vendors;
    for (int row = 0; row < list().rowCount(); ++row)
        vendors.push_back(list().cell(row, kVendorColumn));
    EXPECT_EQ(vendors, (std::vector<std::string>{"Abel",
                                                 "\xC1"
                                                 "bel",
                                                 "\xC6gir", "anchors", "\xE4nderung", "Anvil",
                                                 "bolts", "\xDFtra", "zinc"}));
}

TEST_F(SavedOrdersTest, FiltersGovernTheirKindsAndReceivedOnesTheirOwn) {
    const auto filtered = [&](bool orders, bool requisitions, bool received) {
        list().ListCheckPO = orders;
        list().ListCheckRE = requisitions;
        list().ListCheck_Click(&SavedOrders::ListCheckRecd, received);
        return numbers();
    };
    EXPECT_EQ(filtered(true, false, false), Numbers{"000009"});
    EXPECT_EQ(filtered(false, true, false), Numbers{"000010"});
    EXPECT_EQ(filtered(false, false, true), (Numbers{"000002", "PO11"}));
    EXPECT_TRUE(filtered(false, false, false).empty());
    EXPECT_EQ(list().countText(), "0 orders listed");
}

TEST_F(SavedOrdersTest, AListThatCannotBeReadKeepsItsRowsAndSaysSo) {
    std::filesystem::rename(data("po_data.dat"), data("away"));
    std::filesystem::create_directory(data("po_data.dat"));
    list().ViewExisting_Click();
    EXPECT_EQ(numbers().size(), 4u);
    EXPECT_EQ(list().countText(), "4 orders listed before; now it could not be read");
    EXPECT_EQ(prompts.lastLine.find("The list of saved orders was not read"), 0u);
    list().ListCheck_Click(&SavedOrders::ListCheckRecd, false);
    EXPECT_EQ(numbers(), (Numbers{"000010", "000009"}));
    std::filesystem::remove(data("po_data.dat"));
    std::filesystem::rename(data("away"), data("po_data.dat"));
    list().ListCheck_Click(&SavedOrders::ListCheckRecd, true);
    EXPECT_EQ(list().countText(), "4 orders listed");
    EXPECT_EQ(prompts.lastLine, "") << "what could not be read now is";
}

TEST_F(SavedOrdersTest, HeadingsSortInTurn) {
    list().sortByHeading(kNumberColumn);
    EXPECT_EQ(numbers(), (Numbers{"PO11", "000002", "000009", "000010"}));
    list().sortByHeading(kNumberColumn);
    EXPECT_EQ(numbers(), (Numbers{"000010", "000009", "000002", "PO11"}));
    list().sortByHeading(kVendorColumn);  // anchors, Anvil, bolts, zinc
    EXPECT_EQ(numbers(), (Numbers{"000002", "000010", "PO11", "000009"}));
    list().sortByHeading(kVendorColumn);
    EXPECT_EQ(numbers(), (Numbers{"000009", "PO11", "000010", "000002"}));
    list().PopPOGrid();
    EXPECT_EQ(numbers().front(), "000010");
}

}  // namespace
}  // namespace bramblet
