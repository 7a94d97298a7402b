#include "support/office.h"

namespace bramblet::test {
namespace {

class CommandsTest : public Office {
  protected:
    void SetUp() override {
        start();
        saveItem("Hinge", "Acme", "2.50");
        saveAddress(Vendor, "Acme", "1 Road");
        newOrder();
        addLine({"1", "ea", "Hammer", "10"});
        save();
    }
    Commands& commands() { return program().commands; }
};

constexpr Views kOrder{true, false, false, false, false};
constexpr Views kList{false, true, false, false, false};
constexpr Views kStock{false, false, true, false, false};
constexpr Views kItem{false, false, false, true, false};
constexpr Views kAnother{true, false, false, false, true};

Views both(const Views& a, const Views& b) {
    return {a.order || b.order, a.savedOrders || b.savedOrders, a.stockList || b.stockList,
            a.stockItem || b.stockItem, a.anotherOrder || b.anotherOrder};
}

TEST_F(CommandsTest, WhatACommandChangesIsShownOnceAtItsEnd) {
    OrderEditor& editor = program().editor;
    LineItems& items = program().lines;
    struct Case {
        const char* name;
        std::function<void()> command;
        Views shown;
        std::optional<Message> question = std::nullopt;
    };
    const std::vector<Case> cases{
        {"type", [&] { type(&Order::JobNumberEd, "J-1"); }, kOrder},
        {"type a name", [&] { typeName(Vendor, "Acme Two"); }, kOrder},
        {"pick a name", [&] { pickAddress(Vendor, "Acme"); }, both(kOrder, kStock)},
        {"kind", [&] { editor.chooseKind(OrderKind::Requisition); }, kOrder},
        {"total up", [&] { editor.TotalUp_Click(); }, kOrder},
        {"one-time item",
         [&] {
             addLine({"2", "ea", "Nail", "0.10"});
         },
         kOrder},
        {"edit a line", [&] { items.OrderGrid_DblClick(0); }, kOrder},
        {"pick an item", [&] { pickItem(0); }, kOrder},
        {"remove a line", [&] { items.removeLine(0); }, kOrder},
        {"save", [&] { save(); }, both(kOrder, kList)},
        {"copy", [&] { editor.Save_PO_Click(); }, both(kAnother, kList),
         yesNo("Create new purchase order based on details currently displayed?")},
        {"open", [&] { openOrder("000001"); }, both(kAnother, kStock)},
        {"delete", [&] { editor.POPop_delete_Click("000002"); }, kList,
         Message{"Delete purchase order 000002 ?", "Confirm", Buttons::YesNo, Icon::None,
                 Answer::No}},
        {"new", [&] { editor.NewPO_Click(); }, both(both(kAnother, kList), kStock),
         yesNo("Create blank new order ?")},
        {"clear", [&] { editor.Clear_Click(); }, both(kAnother, kStock)},
        {"save an item", [&] { saveItem("Bolt"); }, both(kStock, kItem)},
        {"pick an item's line", [&] { program().stock.StockGrid_Click(0); }, kItem},
        {"sort", [&] { program().savedOrders.sortBy(kVendorColumn); }, kList},
    };
    for (const Case& each : cases) {
        if (each.question) prompts.expect(*each.question, Answer::Yes);
        screen.refreshed.clear();
        each.command();
        // Picking a name types it first.
        const std::size_t commands = each.name == std::string("pick a name") ? 2 : 1;
        ASSERT_EQ(screen.refreshed.size(), commands) << each.name;
        EXPECT_EQ(screen.refreshed.back(), each.shown) << each.name;
    }
    screen.refreshed.clear();
    editor.make10_Click();
    EXPECT_EQ(screen.refreshed.size(), 10u) << "the ten copies take ten seconds";
}

TEST_F(CommandsTest, AQuestionIsAskedAboveWhatTheCommandHasChangedSoFar) {
    screen.refreshed.clear();
    commands().run([&] {
        type(&Order::JobNumberEd, "J-2");
        EXPECT_TRUE(screen.refreshed.empty());
        commands().prompts();
        EXPECT_EQ(screen.refreshed, std::vector{kOrder});
    });
    EXPECT_EQ(screen.refreshed.size(), 1u);
}

TEST_F(CommandsTest, AWindowOpensWhenItsCommandIsOver) {
    commands().onData([&] {
        program().backup.mu_DataBackup_Click();
        EXPECT_TRUE(screen.opened.empty()) << "what is done there are commands of their own";
    });
    EXPECT_EQ(screen.opened, std::vector<std::string>{"backup"});
}

TEST_F(CommandsTest, AnErrorThatNobodyForesawEndsTheCommandAndShowsWhatItDid) {
    screen.refreshed.clear();
    EXPECT_THROW(commands().run([&] {
        type(&Order::JobNumberEd, "J-3");
        commands().say("A step was left out");
        throw std::runtime_error("unforeseen");
    }),
                 std::runtime_error);
    EXPECT_FALSE(commands().running());
    EXPECT_EQ(screen.refreshed, std::vector{kOrder});
    EXPECT_EQ(screen.lastLine, "A step was left out.");
}

}  // namespace
}  // namespace bramblet::test
