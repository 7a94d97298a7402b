#include "core/orders/line_items.h"

#include "core/orders/pasted_lines.h"
#include "core/platform/fault.h"
#include "support/office.h"
#include "support/regions.h"

namespace bramblet::test {
namespace {

class LineItemsTest : public Office {
  protected:
    void SetUp() override { start(); }
    void edit(int row, std::optional<LineEntry> answer) {
        screen.lineAnswer = std::move(answer);
        program().lines.OrderPop_DescriptionOverride_Click(row);
    }
};

TEST_F(LineItemsTest, AOneTimeItemIsTotalledAndMarkedSpecial) {
    addLine({"3", "box", "Nails", "1,200.00"});
    EXPECT_EQ(screen.lastCaption, "Add a one-time item...");
    EXPECT_EQ(screen.lastEntry.quantity + screen.lastEntry.unit + screen.lastEntry.description +
                  screen.lastEntry.unitCost,
              "1ea0");
    EXPECT_EQ(order().OrderTotalEd, "3,600.00");
    EXPECT_TRUE(saveEnabled() && !dirty());
    screen.lineAnswer.reset();  // a cancelled one is still added
    program().lines.OrderPop_OneTime_Click();
    EXPECT_EQ(lines(), "3 box Nails 1,200.00 3,600.00 special; 1 ea  0 0.00 special");
}

TEST_F(LineItemsTest, EditingMakesTheLineSpecialEvenWhenCancelled) {
    newOrder();
    given(OrderLine{"2", "", "", "ea", "Hammer", "10", "20.00", "17"});
    edit(0, std::nullopt);
    EXPECT_EQ(lines(), "2 ea Hammer 10 20.00 special");
    EXPECT_TRUE(dirty());
    edit(0, LineEntry{"4", "doz", "Big hammer", "12.50"});
    EXPECT_EQ(screen.lastCaption, "Edit Line Item");
    EXPECT_EQ(screen.lastEntry.description, "Hammer");
    EXPECT_EQ(lines(), "4 doz Big hammer 12.50 50.00 special");
}

TEST_F(LineItemsTest, QuantityZeroRemovesTheLineAlsoTheOnlyOne) {
    edit(-1, LineEntry{});
    edit(0, LineEntry{});
    program().lines.removeLine(0);
    EXPECT_EQ(screen.lastCaption, "") << "without a line nothing happens";
    EXPECT_FALSE(saveEnabled());
    addLine({"1", "ea", "first", "1"});
    addLine({"1", "ea", "second", "2"});
    edit(0, LineEntry{"0", "ea", "first", "1"});
    EXPECT_EQ(lines(), "1 ea second 2 2.00 special");
    edit(0, LineEntry{"0.00", "ea", "second", "2"});
    EXPECT_EQ(lines() + order().OrderTotalEd, "0.00");
    addLine({"1", "ea", "third", "3"});
    program().lines.removeLine(0);
    EXPECT_EQ(lines(), "");
}

TEST_F(LineItemsTest, APickedItemsCellsStayCellsAndItsLineIsShown) {
    program().stock.boxes = {"", "", "sq\tft", "Sheet\r\n2 mm\tcut", "4"};
    program().stock.SaveNewStockItem_Click();
    newOrder();
    pickItem(0);
    addLine({"1", "ea", "other", "1"});
    pickItem(0);  // raised, and at the end now
    EXPECT_EQ(screen.linesShown, (std::vector<int>{0, 1, 1}));
    const std::string raised = "1 ea other 1 1.00 special; 2 sq ft Sheet  2 mm cut 4.00 8.00 1";
    EXPECT_EQ(lines(), raised);
    save();
    openOrder("000001");
    EXPECT_EQ(lines(), raised);
}

TEST(LineTableTest, ShowsTheLinesWithRoomForTheirWidestAmounts) {
    LineTable table(enUS());
    const std::vector<OrderLine> lines{
        {"2", "", "", "ea", "Hammer", "10.00", "20.00", "17"},
        {"1", "", "", "box", "Nails", "1,250.50", "5.00", "special"}};
    EXPECT_TRUE(table.take(lines));
    EXPECT_FALSE(table.take(lines)) << "nothing is new";
    EXPECT_EQ(table.cell(1, kDescription), "Nails");
    EXPECT_EQ(table.widest(kUnitCost), "1,250.50");
    EXPECT_EQ(table.widest(kDescription), "") << "descriptions may be cut short";
    EXPECT_EQ(table.sortColumn(), std::nullopt);
}

TEST(LineEntryTest, WhatTheDialogStores) {
    const LineEntry stored = storedEntry({" 2 pcs ", " sq\tft ", " a\nb\tc\xE9~ ", "$1,200.00"});
    EXPECT_EQ(stored.quantity, "2");
    EXPECT_EQ(stored.unit, "sq ft");
    EXPECT_EQ(stored.description, "a b c ~");
    EXPECT_EQ(stored.unitCost, "1,200.00");
    EXPECT_EQ(storedEntry({"", "", "", "free"}).unitCost, "0");
    EXPECT_EQ(checkedEntry({"2 pcs", "", "", "3"}, {}).quantity, "2");
    EXPECT_THROW(checkedEntry({"1", "", "", "1.2.3"}, {}), BoxFault);
    EXPECT_THROW(checkedEntry({"1.2.3", "", "", "1"}, {}), BoxFault);
    for (const char* division : {"12/0", "567.45 / 23 / 2", "/", "ten / 2"})
        EXPECT_THROW(checkedEntry({"1", "", "", division}, {}), BoxFault) << division;
}

TEST_F(LineItemsTest, AUnitCostFollowsFromTheTotalAndFromADivision) {
    const RegionalFormats us = enUS();
    const RegionalFormats de = deDE();
    const std::vector<std::array<std::string, 3>> cases{{"567.45", "23", "24.6717"},
                                                        {"100", "3", "33.333"},
                                                        {"0", "7", "0.00"},
                                                        {"$1,200.00", "4 pcs", "300.00"},
                                                        {"0.01", "32767", "0.0000003"},
                                                        {"5", "0", ""},
                                                        {"five", "1", "0.00"},
                                                        {"5", "1.2.3", ""},
                                                        {"9999999999999999999", "0.0001", "?"}};
    for (const auto& [total, quantity, cost] : cases) {
        const std::string found = unitCostFor(total, quantity, us);
        if (cost != "?") {
            EXPECT_EQ(found, cost) << total << " / " << quantity;
        }
        EXPECT_EQ(quotientIn(total + " / " + quantity, us), total == "five" ? "" : found);
    }
    EXPECT_EQ(unitCostFor("1.234,50", "7", de), "176,357");
    EXPECT_EQ(quotientIn("567.45", us), "");
}

TEST_F(LineItemsTest, LinesMoveWithinTheOrder) {
    newOrder();
    for (const char* each : {"a", "b", "c"})
        addLine({"1", "ea", each, "1"});
    const auto moved = [&](int row, int by) {
        program().lines.moveLine(row, by);
        std::string order;
        for (const auto& line : program().open.order().lines)
            order += line[kDescription];
        return order;
    };
    EXPECT_EQ(moved(2, -1), "acb");
    EXPECT_EQ(screen.linesShown.back(), 1);
    EXPECT_EQ(moved(0, 2), "cba");
    const auto shown = screen.linesShown;
    for (const auto& [row, by] : {std::pair(0, -1), {2, 1}, {-1, 1}, {3, -1}})
        EXPECT_EQ(moved(row, by), "cba");
    EXPECT_EQ(screen.linesShown, shown);
    EXPECT_TRUE(dirty());
}

TEST(CopiedCells, AreThoseOfTheTable) {
    using Rows = std::vector<std::vector<std::string>>;
    EXPECT_EQ(cellsIn("a\tb\r\nc\r\n\t\r\n", '\t'), (Rows{{"a", "b"}, {"c", ""}}));
    EXPECT_EQ(cellsIn("\"two\nlines\"\t\"3\"\" pipe\"\nlast", '\t'),
              (Rows{{"two\nlines", "3\" pipe"}, {"last", ""}}));
    EXPECT_EQ(cellsIn("\"never closed\ta\n", '\t'), (Rows{{"never closed\ta"}}));
    EXPECT_EQ(cellsIn("a\r\rb", '\t'), (Rows{{"a"}, {"b"}}));
    EXPECT_EQ(cellsIn(" \r\n\t", '\t'), Rows{});
}

TEST_F(LineItemsTest, PastedRowsBecomeOneTimeItems) {
    const std::vector<std::tuple<const char*, std::string, std::string>> cases{
        {"headings in any order", "Unit price\tItem\tQty\tUOM\n$1,200.00\tSaw\t2\tbox\n",
         "2 box Saw 1,200.00 2,400.00 special"},
        {"as the lines stand", "2\tbox\tSaw blades\t3.5\n1\tea\tSaw\t7\n",
         "2 box Saw blades 3.5 7.00 special; 1 ea Saw 7 7.00 special"},
        {"quantities and words", "2\tSaw\n3\tNails\n",
         "2 ea Saw 0 0.00 special; 3 ea Nails 0 0.00 special"},
        {"words and prices", "Saw\t7\nNails\t0.5\n",
         "1 ea Saw 7 7.00 special; 1 ea Nails 0.5 0.50 special"},
        {"words only", "Saw\nNails\n", "1 ea Saw 0 0.00 special; 1 ea Nails 0 0.00 special"},
    };
    newOrder();
    for (const auto& [name, clipboard, expected] : cases) {
        program().open.setLines({});
        program().lines.paste(clipboard);
        EXPECT_EQ(lines(), expected) << name;
    }
    EXPECT_TRUE(dirty());
    const std::string before = lines();
    program().lines.paste(" \n");
    expectSaid("The clipboard holds no lines to paste");
    screen.onPastedLines = [] { return false; };
    program().lines.paste("Saw");
    EXPECT_EQ(lines(), before);
}

TEST_F(LineItemsTest, WhatIsPastedCanBeChosenAndDoubtsAreTold) {
    screen.onPastedLines = [this] {
        PastedLines& pasted = program().lines.pasted();
        EXPECT_TRUE(pasted.table().headed());
        EXPECT_EQ(pasted.table().columns(),
                  (std::vector<std::string>{"A: Item", "B: Net", "C: Gross"}));
        EXPECT_EQ(pasted.table().source(3), SourceTable::kNowhere);
        pasted.choose(3, 2);
        EXPECT_EQ(pasted.summary(), "2 lines, 9.00 in all");
        EXPECT_EQ(pasted.doubts(), "One amount cannot be read and counts as 0: \"-2\"");
        pasted.setHeaded(false);
        EXPECT_EQ(pasted.doubts(), "2 amounts cannot be read and count as 0: \"Gross\", \"-2\"");
        EXPECT_EQ(pasted.rowCount(), 3);
        pasted.choose(3, 1);
        return true;
    };
    program().lines.paste("Item\tNet\tGross\nSaw\t8\t9\nCredit\t-1\t-2\n");
    EXPECT_EQ(lines(),
              "1 ea Item 0 0.00 special; 1 ea Saw 8 8.00 special; 1 ea Credit 0 0.00 special");
}

}  // namespace
}  // namespace bramblet::test
