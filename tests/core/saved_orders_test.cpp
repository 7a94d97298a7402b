#include "core/orders/saved_orders.h"

#include "support/office.h"

#include <limits>

namespace bramblet::test {
namespace {

using Texts = std::vector<std::string>;

class SavedOrdersTest : public Office {
  protected:
    void SetUp() override {
        start();
        add("A", "000009", "zinc");
        add("R", "000010", "Anvil", kToday);
        add("a", "PO11", "bolts");
        add("r", "000002", "anchors");
        add("D", "000100", "gone");
        list().PopPOGrid();
    }
    SavedOrders& list() { return program().savedOrders; }
    void add(const std::string& status, const std::string& number, const std::string& vendor,
             double date = 0) {
        OrderIndexRecord record;
        record.Status = status;
        record.Number = number;
        record.Vendor = vendor;
        record.OrderDate = date;
        record.OrderTotal = Currency{12345000};
        writeFile(data("po_data.dat"),
                  stored("po_data.dat") + encodeRecord(kOrderIndexLayout, record));
    }
    Texts cells(int column) {
        Texts cells;
        for (int row = 0; row < list().rowCount(); ++row)
            cells.push_back(list().cell(row, column));
        return cells;
    }
    Texts numbers() { return cells(kNumberColumn); }
};

TEST_F(SavedOrdersTest, HighestNumberFirstAndDeletedOnesLeftOut) {
    EXPECT_EQ(numbers(), (Texts{"000010", "000009", "000002", "PO11"}));
    EXPECT_EQ(list().countText(), "4 orders listed");
    EXPECT_EQ(list().rowOf("000002"), 2);
    EXPECT_EQ(list().rowOf("000100"), -1);
    EXPECT_EQ(cells(kDateColumn), (Texts{"3/4/2026", "", "", ""}));
    EXPECT_EQ(list().cell(0, kVendorColumn), "Anvil");
    EXPECT_EQ(list().cell(0, kOrderTotalColumn), "$1,234.50");
    EXPECT_EQ(list().cell(0, kStatusColumn), "R");
    EXPECT_EQ(list().widest(kOrderTotalColumn), "$1,234.50");
    EXPECT_EQ(list().widest(kVendorColumn), "");
}

TEST_F(SavedOrdersTest, AccentedLettersStandWithTheirOwn) {
    for (const char* vendor : {"\301bel", "\xE4nderung", "\xDFtra", "\xC6gir", "Abel"})
        add("A", "000020", vendor);
    list().PopPOGrid();
    list().sortBy(kVendorColumn);
    EXPECT_EQ(cells(kVendorColumn), (Texts{"Abel", "\301bel", "\xC6gir", "anchors", "\xE4nderung",
                                           "Anvil", "bolts", "\xDFtra", "zinc"}));
}

TEST_F(SavedOrdersTest, FiltersGovernTheirKindsAndReceivedOnesTheirOwn) {
    const auto filtered = [&](bool orders, bool requisitions, bool received) {
        list().ListCheckPO = orders;
        list().ListCheckRE = requisitions;
        list().ListCheck_Click(&SavedOrders::ListCheckRecd, received);
        return numbers();
    };
    EXPECT_EQ(filtered(true, false, false), Texts{"000009"});
    EXPECT_EQ(filtered(false, true, false), Texts{"000010"});
    EXPECT_EQ(filtered(false, false, true), (Texts{"000002", "PO11"}));
    EXPECT_EQ(filtered(false, false, false), Texts{});
    EXPECT_EQ(list().countText(), "0 orders listed");
}

TEST_F(SavedOrdersTest, AListThatCannotBeReadKeepsItsRowsAndSaysSo) {
    const std::string index = stored("po_data.dat");
    obstruct(data("po_data.dat"));
    list().ViewExisting_Click();
    EXPECT_EQ(numbers().size(), 4u);
    EXPECT_EQ(list().countText(), "4 orders listed before; now it could not be read");
    EXPECT_TRUE(screen.lastLine.starts_with("The list of saved orders was not read"));
    list().ListCheck_Click(&SavedOrders::ListCheckRecd, false);
    EXPECT_EQ(numbers(), (Texts{"000010", "000009"}));
    std::filesystem::remove(data("po_data.dat"));
    writeFile(data("po_data.dat"), index);
    list().ListCheck_Click(&SavedOrders::ListCheckRecd, true);
    EXPECT_EQ(list().countText(), "4 orders listed");
    EXPECT_EQ(screen.lastLine, "") << "what could not be read now is";
}

TEST_F(SavedOrdersTest, HeadingsSortInTurn) {
    const std::vector<std::pair<int, Texts>> sorted{
        {kNumberColumn, {"PO11", "000002", "000009", "000010"}},
        {kNumberColumn, {"000010", "000009", "000002", "PO11"}},
        {kVendorColumn, {"000002", "000010", "PO11", "000009"}},  // anchors, Anvil, bolts, zinc
        {kVendorColumn, {"000009", "PO11", "000010", "000002"}},
    };
    for (const auto& [column, expected] : sorted) {
        list().sortBy(column);
        EXPECT_EQ(numbers(), expected);
    }
    list().PopPOGrid();
    EXPECT_EQ(numbers(), sorted.back().second) << "it stays sorted as it was";
}

TEST_F(SavedOrdersTest, WhatIsListedIsSummedUpAndToldInWords) {
    EXPECT_EQ(list().totalText(), "$4,938.00");
    list().find("n");
    EXPECT_EQ(list().totalText(), "$3,703.50");
    EXPECT_EQ(list().sumsText(),
              "Order Total: $3,703.50\r\nShipping: $0.00\r\nSales Tax: $0.00\r\nNet: $0.00\r\n"
              "Discount: $0.00\r\nSub Total: $0.00");
    list().find("");
    Texts marks;
    for (int row = 0; row < list().rowCount(); ++row)
        marks.push_back(list().markText(row));
    EXPECT_EQ(marks,
              (Texts{"Requisition", "", "Requisition, received", "Purchase order, received"}));

    OrderIndexRecord damaged;
    damaged.OrderTotal = Currency{std::numeric_limits<std::int64_t>::max()};
    writeFile(data("po_data.dat"),
              stored("po_data.dat") + encodeRecord(kOrderIndexLayout, damaged));
    list().PopPOGrid();
    EXPECT_EQ(list().totalText(), "") << "beyond the range";
}

TEST_F(SavedOrdersTest, AColleaguesChangeIsNoticedWithoutAWord) {
    const auto refreshes = [&] {
        const std::size_t before = screen.refreshed.size();
        program().lookForNews();
        return screen.refreshed.size() - before;
    };
    EXPECT_EQ(refreshes(), 0u) << "nothing is new";
    list().sortBy(kVendorColumn);
    list().find("n");
    add("A", "000011", "Amber & Nut");
    EXPECT_EQ(refreshes(), 1u);
    EXPECT_EQ(numbers(), (Texts{"000011", "000002", "000010", "000009"}));
    EXPECT_EQ(refreshes(), 0u);
    const std::string index = stored("po_data.dat");
    writeFile(data("po_data.dat"), index);  // another time stamp, perhaps, but the same orders
    EXPECT_EQ(refreshes(), 0u);

    program().commands.say("A failure");
    const int waited = waits;
    std::filesystem::remove(data("po_data.dat"));
    EXPECT_EQ(refreshes(), 0u);
    EXPECT_FALSE(std::filesystem::exists(data("po_data.dat"))) << "a look creates nothing";
    obstruct(data("po_data.dat"));
    EXPECT_EQ(refreshes(), 0u);
    EXPECT_EQ(numbers().size(), 4u);
    EXPECT_EQ(waits, waited);
    EXPECT_EQ(screen.lastLine, "A failure.") << "it says nothing of its own";

    std::filesystem::remove_all(data("po_data.dat"));
    writeFile(data("po_data.dat"), index.substr(0, 2 * index.size() / 6));
    program().commands.run([&] { EXPECT_EQ(refreshes(), 0u) << "a command runs"; });
    EXPECT_EQ(refreshes(), 1u);
    EXPECT_EQ(numbers(), (Texts{"000010", "000009"}));
}

TEST_F(SavedOrdersTest, EqualRowsStayAsTheyWereUntilTheListIsReadAgain) {
    add("A", "000011", "zinc");
    list().PopPOGrid();
    list().sortBy(kNumberColumn);
    list().sortBy(kVendorColumn);
    EXPECT_EQ(numbers(), (Texts{"000002", "000010", "PO11", "000009", "000011"}));
    list().PopPOGrid();
    EXPECT_EQ(numbers(), (Texts{"000002", "000010", "PO11", "000011", "000009"})) << "newest first";
}

TEST_F(SavedOrdersTest, AWordIsFoundAnywhereInTheRow) {
    add("A", "000030", "\311clair & S\366hne, Caf\351", kToday);
    add("A", "000031", "Stra\337e Eclair");
    list().PopPOGrid();
    const std::vector<std::pair<std::string, Texts>> found{
        {"ZINC", {"000009"}},
        {"eclair", {"000031", "000030"}},
        {"\351CLAIR", {"000031", "000030"}},
        {"  CAFE  \311cl ", {"000030"}},
        {"strasse", {"000031"}},
        {"clair 31", {"000031"}},
        {"3/4/2026", {"000030", "000010"}},
        {"2026 anvil", {"000010"}},
        {"zinc 31", {}},
        {"cafe1,234", {}},
        {"1,234.50", {}},  // amounts are no texts
        {"gone", {}},      // deleted
        {" ", {"000031", "000030", "000010", "000009", "000002", "PO11"}},
    };
    for (const auto& [typed, expected] : found) {
        list().find(typed);
        EXPECT_EQ(numbers(), expected) << typed;
        list().find("");
        for (std::size_t length = 1; length <= typed.size(); ++length)
            list().find(typed.substr(0, length));  // one letter after the other
        EXPECT_EQ(numbers(), expected) << typed;
    }
}

TEST_F(SavedOrdersTest, ANarrowedListIsSortedFilteredAndReadAnewAsSuch) {
    list().find("n");  // zinc, Anvil, anchors
    EXPECT_EQ(numbers(), (Texts{"000010", "000009", "000002"}));
    EXPECT_EQ(list().countText(), "3 of 4 orders listed");
    EXPECT_EQ(list().rowOf("000002"), 2);
    EXPECT_EQ(list().rowOf("PO11"), -1);
    EXPECT_EQ(list().useOf("PO11"), NumberUse::Taken);
    list().sortBy(kVendorColumn);
    EXPECT_EQ(numbers(), (Texts{"000002", "000010", "000009"}));
    add("A", "000020", "nails");
    add("A", "000021", "bolts");
    list().ListCheck_Click(&SavedOrders::ListCheckRecd, false);
    EXPECT_EQ(numbers(), (Texts{"000010", "000020", "000009"}));
    EXPECT_EQ(list().countText(), "3 of 4 orders listed");
    list().find("an");
    EXPECT_EQ(numbers(), Texts{"000010"});
    list().find("o");
    EXPECT_EQ(numbers(), Texts{"000021"});
    list().find("");
    EXPECT_EQ(numbers(), (Texts{"000010", "000021", "000020", "000009"}));
    EXPECT_EQ(list().countText(), "4 orders listed");
}

}  // namespace
}  // namespace bramblet::test
