#include "core/orders/line_items.h"

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
}

}  // namespace
}  // namespace bramblet::test
