#include "support/odd_share.h"
#include "support/office.h"

#include <algorithm>
#include <functional>
#include <map>
#include <sstream>

namespace bramblet::test {
namespace {

class OrderDocumentsTest : public Office {
  protected:
    void SetUp() override { beginAnew(); }
    void TearDown() override { oddities = {}; }
    /// With 000001 by Ann and 000002 by Bob, which is shown.
    void beginAnew() {
        std::filesystem::remove_all(home());
        start();
        for (const char* by : {"Ann", "Bob"})
            saveNewOrder(by);
    }
    OrderEditor& editor() { return program().editor; }
    void saveNewOrder(const std::string& by) {
        newOrder();
        saveBy(by);
    }
    void saveBy(const std::string& by) {
        type(&Order::ByEd, by);
        save();
    }
    /// Who ordered what is kept: "000001 2026-03-04 143005.htm by Ann".
    std::string kept() const {
        std::vector<std::string> orders;
        if (!os::exists(data("kept"))) return {};
        for (const auto& name : FileSystem().fileNames(data("kept")))
            orders.push_back(name.string() + " by " + by(contentOf(data("kept") / name)));
        std::sort(orders.begin(), orders.end());
        std::string text;
        for (const std::string& order : orders)
            text += (text.empty() ? "" : ", ") + order;
        return text;
    }
    static std::string by(const std::string& document) {
        const auto start = document.find("<!-- BY? ") + 9;
        return start < 9 ? "?" : document.substr(start, document.find(" BY? -->") - start);
    }
    std::string storedBy(const std::string& number) const { return by(stored(number + ".htm")); }
    /// What a colleague's desk does meanwhile.
    void colleagueSaves(const std::string& number) {
        std::string document = stored("000002.htm");
        document.replace(document.find("BY? Bob"), 7, "BY? Eve");
        for (auto at = document.find("000002"); at != std::string::npos;
             at = document.find("000002", at + 6))
            document.replace(at, 6, number);
        writeFile(data(number + ".htm"), document);
    }
    /// For example "open 000001, colleague 000001, by Cy".
    void perform(const std::string& steps) {
        using What = const std::string&;
        const std::map<std::string, std::function<void(What)>> verbs{
            {"open", [&](What number) { openOrder(number); }},
            {"number", [&](What number) { type(&Order::PONoEd, number); }},
            {"by", [&](What by) { saveBy(by); }},
            {"newBy", [&](What by) { saveNewOrder(by); }},
            {"colleague", [&](What number) { colleagueSaves(number); }},
            {"lose", [&](What file) { os::remove(data(file)); }},
            {"confuse",
             [&](What number) { writeFile(data(number + ".htm"), stored("000001.htm")); }},
            {"clear", [&](What) { editor().Clear_Click(); }},
            {"look", [&](What) { lookAtOrder(); }},
        };
        std::istringstream input(steps);
        std::string what;
        for (std::string verb; input >> verb >> std::ws && std::getline(input, what, ',');)
            verbs.at(verb)(what);
    }
    void lookAtOrder() {
        program().viewer.MakeOrder_Click();
        program().viewer.ReWrite();
    }
};

TEST_F(OrderDocumentsTest, WhatTheOrderIsNotALaterStateOfIsKept) {
    struct Case {
        const char* name;
        const char* steps;
        const char* number;  ///< under which the last save writes
        const char* kept;
    };
    const std::vector<Case> cases{
        {"its own document", "open 000001, by Cy, by Dee, clear it, by Eve", "000001", ""},
        {"a colleague has saved the order since it was opened",
         "open 000001, colleague 000001, by Cy", "000001", "000001 2026-03-04 143005.htm by Eve"},
        {"twice in one second", "open 000001, colleague 000001, by Cy, colleague 000001, by Dee",
         "000001", "000001 2026-03-04 143005 2.htm by Eve, 000001 2026-03-04 143005.htm by Eve"},
        {"a colleague has drawn the same number", "colleague 000003, newBy Cy", "000003",
         "000003 2026-03-04 143005.htm by Eve"},
        {"the index is gone, and the first number is given again", "lose po_data.dat, newBy Cy",
         "000001", "000001 2026-03-04 143005.htm by Ann"},
        {"the list holds no more than six digits", "number 999999, by Cy, newBy Dee, newBy Eve",
         "1000000", "1000000 2026-03-04 143005.htm by Dee"},
        {"another order's number was typed", "number 000001, by Cy", "000001",
         "000001 2026-03-04 143005.htm by Ann"},
        {"the document opened is another order's", "confuse 000002, open 000002, by Cy", "000001",
         "000001 2026-03-04 143005.htm by Ann"},
        {"it was missing, and the list has made an empty one",
         "lose 000001.htm, open 000001, number 000001, by Cy", "000001", ""},
        {"it is gone", "open 000001, lose 000001.htm, by Cy", "000001", ""},
        {"only looked at", "look at it", "000002", ""},
    };
    for (const bool exchanges : {true, false}) {
        oddities.exchanges = exchanges;
        for (const Case& each : cases) {
            SCOPED_TRACE(each.name);
            beginAnew();
            perform(each.steps);
            EXPECT_EQ(kept(), each.kept);
            EXPECT_EQ(storedBy(each.number), order().ByEd);
            EXPECT_FALSE(dirty());
        }
    }
}

TEST_F(OrderDocumentsTest, WhatCannotBeKeptIsNotReplaced) {
    openOrder("000001");
    colleagueSaves("000001");
    writeFile(data("kept"), "a file in the folder's place");
    saveBy("Cy");
    EXPECT_EQ(storedBy("000001"), "Eve");
    EXPECT_TRUE(dirty());
    expectSaid("The document of order 000001 was not saved: ");
    os::remove(data("kept"));
    save();
    EXPECT_EQ(storedBy("000001"), "Cy");
    EXPECT_EQ(kept(), "000001 2026-03-04 143005.htm by Eve");
}

TEST_F(OrderDocumentsTest, AKeptOrderIsOpenedAndGetsANumberOfItsOwn) {
    editor().openKeptOrder();
    expectSaid("No order has been kept");
    openOrder("000001");
    colleagueSaves("000001");
    saveBy("Cy");
    expectSaid(
        "Another document of order 000001 was there and is kept as kept/000001 2026-03-04 "
        "143005.htm");
    prompts.expectChoice("", data("kept") / "000001 2026-03-04 143005.htm");
    editor().openKeptOrder();
    EXPECT_EQ(order().PONoEd + order().ByEd, "000001Eve");
    EXPECT_FALSE(dirty());
    expectSaid("\"Save as Copy\" gives it a number of its own");
    program().viewer.MakeOrder_Click();
    EXPECT_EQ(storedBy("000001"), "Cy") << "after a look at the kept one";
    EXPECT_EQ(storedBy("po"), "Eve");
    EXPECT_TRUE(program().open.SaveChangesEnabled());
    prompts.expect(yesNo("Create new purchase order based on details currently displayed?"),
                   Answer::Yes);
    editor().Save_PO_Click();
    EXPECT_EQ(storedBy("000003"), "Eve");
    EXPECT_EQ(storedBy("000001"), "Cy");

    prompts.expectChoice("", data("kept") / "000001 2026-03-04 143005.htm");
    editor().openKeptOrder();
    saveBy("Dee");
    EXPECT_EQ(storedBy("000001"), "Dee");
    EXPECT_TRUE(contains(kept(), "000001 2026-03-04 143005 2.htm by Cy")) << kept();

    type(&Order::ByEd, "Fay");
    prompts.expectChoice("", data("kept") / "000001 2026-03-04 143005.htm");
    prompts.expectSaying("Save changes to Bramblet Number 000001 ?", Answer::Cancel);
    editor().openKeptOrder();
    EXPECT_EQ(order().ByEd, "Fay");
    saveBy("Dee");

    prompts.expectChoice("", data("kept") / "none.htm");
    prompts.expectSaying("The kept order none.htm cannot be opened: File not found");
    editor().openKeptOrder();
    EXPECT_EQ(order().ByEd, "Dee");
}

TEST_F(OrderDocumentsTest, WhatADeadProgramHasLeftBecomesAnOrderOrIsKeptOrGoes) {
    const std::string whole = stored("000001.htm");
    const std::string other = [&] {
        std::string changed = whole;
        return changed.replace(changed.find("BY? Ann"), 7, "BY? Eve");
    }();
    const std::string half = whole.substr(0, whole.size() / 2);
    const std::vector<std::tuple<const char*, std::string, bool, bool, std::string, bool>> cases{
        {"the document is missing", whole, true, true, "", false},
        {"a later state", other, false, true, "000001 left over 2026-03-04 143005.htm by Eve",
         false},
        {"the same", whole, false, true, "", false},
        {"half of it", half, true, true, "", false},
        {"no order", "notes", false, true, "", false},
        {"somebody may be writing it", whole, true, false, "", true},
    };
    const std::filesystem::path leftover = data("~bramblet-4711.tmp");
    for (const auto& [name, content, missing, old, keeps, stays] : cases) {
        SCOPED_TRACE(name);
        writeFile(data("000001.htm"), whole);
        if (missing) os::remove(data("000001.htm"));
        std::filesystem::remove_all(data("kept"));
        writeFile(leftover, content);
        constexpr std::int64_t kMinute = 60'000'000'000;
        os::setModified(leftover, program().folder.checkedAt() - (old ? 11 : 9) * kMinute);
        program().lookAround();
        EXPECT_EQ(os::exists(leftover), stays);
        EXPECT_EQ(kept(), keeps);
        const bool complete = !missing || (content == whole && old);
        EXPECT_EQ(os::exists(data("000001.htm")) && stored("000001.htm") == whole, complete);
    }
    EXPECT_TRUE(os::exists(data("po_data.dat")));
    EXPECT_TRUE(screen.hints.empty()) << "no order is told of as missing: " << screen.hints.front();
}

}  // namespace
}  // namespace bramblet::test
