#include "support/office.h"

namespace bramblet::test {
namespace {

using Values = std::vector<std::string>;

class History : public ::testing::Test {
  protected:
    Values remember(const std::string& value) {
        history_.remember(FileSystem(), value);
        return *history_.entries();
    }
    Values forget(const std::string& value) {
        history_.forget(FileSystem(), value);
        return remember("");
    }
    std::string file() const { return contentOf(folder_ / "by_field.dat"); }

    TemporaryFolder folder_;
    FieldHistory history_{folder_ / "by_field.dat"};
};

TEST_F(History, ValuesAreAddedOnceInTheOrderInWhichTheyCame) {
    EXPECT_EQ(remember(""), Values{});
    EXPECT_TRUE(os::exists(folder_ / "by_field.dat"));
    for (const char* value : {"  Zo\xEB ", "Ann", "ann", "   ", "Ann  "})
        remember(value);
    EXPECT_EQ(*history_.entries(), (Values{"Zo\xEB", "Ann", "ann"}));
    EXPECT_EQ(file(), "Zo\xEB\r\nAnn\r\nann\r\n");
}

TEST_F(History, LinesOfTheFileAreListedUnchanged) {
    writeFile(folder_ / "by_field.dat", " Ann \r\n\r\nBob\rCarl\nAnn\r\nDora");
    EXPECT_EQ(remember("Bob"), (Values{" Ann ", "", "Bob", "Carl", "Ann", "Dora"}));
    const auto before = history_.entries();
    remember("Ann");
    EXPECT_EQ(history_.entries(), before) << "nothing to list anew";
    // The last line had no end; the new one still gets a line of its own.
    EXPECT_EQ(remember("Emil").back(), "Emil");
    EXPECT_EQ(file(), " Ann \r\n\r\nBob\rCarl\nAnn\r\nDora\r\nEmil\r\n");
}

TEST_F(History, AValueOfSeveralLinesIsOneEntry) {
    for (const char* value : {"a\r\nb", "\r\na\r\nb", " a\r\nb \n"}) {
        remember(value);
        EXPECT_EQ(remember(value), Values{"a  b"});
    }
    EXPECT_EQ(remember(" \r\n"), Values{"a  b"}) << "a blank one";
    EXPECT_EQ(forget("\na\r\nb"), Values{});
}

TEST_F(History, ForgettingRemovesEveryLineOfTheValue) {
    writeFile(folder_ / "by_field.dat", "Ann\r\nBob\r\n Ann \r\nann\r\n");
    // Of another desk, which is forgetting a value too.
    writeFile(folder_ / "user.tmp", "Net 10\r\n");
    EXPECT_EQ(forget("Ann "), (Values{"Bob", "ann"}));
    EXPECT_EQ(file(), "Bob\r\nann\r\n");
    EXPECT_EQ(contentOf(folder_ / "user.tmp"), "Net 10\r\n");
    EXPECT_EQ(forget("Carl"), (Values{"Bob", "ann"}));
}

class HistoryFlows : public Office {
  protected:
    void SetUp() override { start(); }
    FieldHistories& histories() { return program().histories; }
    Values listed(OrderField field) { return *histories().entries(field); }
    template <class Box>
    void removeShown(Box box) {
        histories().GotFocus(box);
        histories().RemoveHistoryEntry();
    }
};

TEST_F(HistoryFlows, EachOfTheSixHasItsFile) {
    newOrder();
    for (const auto& [box, field, file] : kHistories)
        histories().Change(field, std::string(" of ") + box);
    save();
    for (const auto& [box, field, file] : kHistories) {
        const std::string value = std::string("of ") + box;
        EXPECT_EQ(stored(file), value + "\r\n");
        EXPECT_EQ(listed(field), Values{value});
        EXPECT_EQ(order().*field, value) << "the text stays, trimmed";
    }
    EXPECT_EQ(stored("jno_field.dat") + stored("fob_field.dat") + stored("com_field.dat"),
              "of JobNumberEd\r\nof FOBEd\r\nof CommentsEd\r\n");
    EXPECT_TRUE(contains(stored("000001.htm"), "<!-- JOB of JobNumberEd JOB -->"))
        << "and is so in the document";
    start();
    for (const auto& [box, field, file] : kHistories) {
        EXPECT_EQ(listed(field), Values{std::string("of ") + box}) << "loaded at the start";
        EXPECT_EQ(order().*field, "");
    }
}

TEST_F(HistoryFlows, WhichCommandsRemember) {
    histories().Change(&Order::ByEd, "by a new order");
    newOrder();
    EXPECT_EQ(listed(&Order::ByEd), Values{"by a new order"});
    EXPECT_EQ(order().ByEd, "");

    histories().Change(&Order::ByEd, "not by a copy");
    prompts.expectSaying("Save changes to Bramblet Number 000001 ?", Answer::No);
    prompts.expectSaying("Create new purchase order", Answer::Yes);
    program().editor.Save_PO_Click();
    EXPECT_EQ(stored("by_field.dat"), "by a new order\r\n");

    histories().Change(&Order::ByEd, "by ten copies");
    program().editor.make10_Click();
    EXPECT_EQ(listed(&Order::ByEd), (Values{"by a new order", "by ten copies"}));
}

TEST_F(HistoryFlows, ARemovedValueIsGoneFromBoxListAndFile) {
    writeFile(data("ter_field.dat"), "Net 10\r\nNet 30\r\nNet 10 \r\n");
    newOrder();
    histories().Change(&Order::ByEd, "Ann");
    histories().Change(&Order::TermsEd, "Net 10");
    EXPECT_EQ(histories().CurrentHistoryText, "Net 10");
    givenUnchanged();
    removeShown(&Order::TermsEd);
    EXPECT_EQ(order().TermsEd, "");
    EXPECT_TRUE(dirty());
    EXPECT_EQ(listed(&Order::TermsEd), Values{"Net 30"});
    EXPECT_EQ(stored("ter_field.dat"), "Net 30\r\n");
    EXPECT_EQ(listed(&Order::ByEd), Values{"Ann"}) << "all six are brought up to date";

    // An entry that was pointed at while another text, perhaps half typed, stands in the box.
    histories().Change(&Order::TermsEd, "Net 60");
    histories().GotFocus(&Order::TermsEd);
    histories().CurrentHistoryText = "Net 30";
    histories().RemoveHistoryEntry();
    EXPECT_EQ(order().TermsEd, "Net 60");
    EXPECT_EQ(listed(&Order::TermsEd), Values{});
}

TEST_F(HistoryFlows, InAnAddressBoxTheAddressBookDeletes) {
    saveAddress(Vendor, "Acme", "");
    saveAddress(Destination, "Depot", "");
    const std::string history = stored("by_field.dat");
    removeShown(Destination);
    EXPECT_EQ(names(Destination), Values{});
    EXPECT_EQ(names(Vendor), Values{"Acme"});
    EXPECT_EQ(order().ShipToCombo, "");
    removeShown(Vendor);
    EXPECT_EQ(names(Vendor), Values{});
    EXPECT_EQ(stored("by_field.dat"), history);
}

TEST_F(HistoryFlows, AHistoryThatCannotBeReadIsToldAndTheOrderSavedAllTheSame) {
    newOrder();
    obstruct(data("via_field.dat"));
    type(&Order::ByEd, "Ann");
    type(&Order::FOBEd, "Leeds");
    save();
    EXPECT_EQ(listed(&Order::ByEd), Values{"Ann"});
    EXPECT_EQ(listed(&Order::FOBEd), Values{}) << "the first fault ends it";
    const std::string failure =
        "The lists of earlier entries were not brought up to date: via_field.dat: Path/File access "
        "error (error 75). ";
    EXPECT_EQ(screen.lastLine, failure + "Order 000001 is saved");
    EXPECT_FALSE(dirty());
    program().editor.make10_Click();
    EXPECT_EQ(screen.lastLine, failure + "Order 000011 is saved") << "said once";
    newOrder();
    program().histories.reload();
    EXPECT_EQ(listed(&Order::ByEd), Values{"Ann"});
    EXPECT_EQ(waits, 0) << "no list of suggestions holds up an order";
}

}  // namespace
}  // namespace bramblet::test
