#include "support/office.h"

#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;
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
    EXPECT_TRUE(FileSystem().exists(folder_ / "by_field.dat"));
    remember("  Zo\xEB ");
    remember("Ann");
    remember("ann");
    remember("   ");
    EXPECT_EQ(remember("Ann  "), (Values{"Zo\xEB", "Ann", "ann"}));
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
    void removeShown(OrderField field) {
        histories().GotFocus(field);
        histories().RemoveHistoryEntry();
    }
};

TEST_F(HistoryFlows, EachOfTheSixHasItsFile) {
    const std::vector<std::pair<OrderField, std::string>> files{
        {&Order::ByEd, "by_field.dat"},        {&Order::ShipViaEd, "via_field.dat"},
        {&Order::FOBEd, "fob_field.dat"},      {&Order::TermsEd, "ter_field.dat"},
        {&Order::CommentsEd, "com_field.dat"}, {&Order::JobNumberEd, "jno_field.dat"},
    };
    newOrder();
    for (const auto& [field, file] : files)
        histories().Change(field, " of " + file.substr(0, 3));
    program().editor.SaveChanges_Click();
    for (const auto& [field, file] : files) {
        EXPECT_EQ(contentOf(data(file)), "of " + file.substr(0, 3) + "\r\n");
        EXPECT_EQ(listed(field), Values{"of " + file.substr(0, 3)});
        EXPECT_EQ(order().*field, "of " + file.substr(0, 3)) << "the text stays, trimmed";
    }
    EXPECT_NE(contentOf(data("000001.htm")).find("<!-- JOB of jno JOB -->"), std::string::npos)
        << "and is so in the document";
    start();
    for (const auto& [field, file] : files) {
        EXPECT_EQ(listed(field), Values{"of " + file.substr(0, 3)}) << "loaded at the start";
        EXPECT_EQ(order().*field, "");
    }
}

TEST_F(HistoryFlows, WhichCommandsRemember) {
    histories().Change(&Order::ByEd, "by a new order");
    newOrder();
    EXPECT_EQ(listed(&Order::ByEd), Values{"by a new order"});
    EXPECT_EQ(order().ByEd, "");

    histories().Change(&Order::ByEd, "not by a copy");
    prompts.expect(yesNoCancel("Save changes to Bramblet Number 000001 ?", "Save PO?"), Answer::No);
    prompts.expect(yesNo("Create new purchase order based on details currently displayed?"),
                   Answer::Yes);
    program().editor.Save_PO_Click();
    EXPECT_EQ(contentOf(data("by_field.dat")), "by a new order\r\n");

    histories().Change(&Order::ByEd, "by ten copies");
    program().editor.make10_Click();
    EXPECT_EQ(listed(&Order::ByEd), (Values{"by a new order", "by ten copies"}));
}

TEST_F(HistoryFlows, ADroppedListAndAnEditMarkANumberedOrderOnly) {
    histories().DropDown();
    histories().Change(&Order::TermsEd, "Net 30");
    EXPECT_FALSE(program().open.OrderDirty);
    newOrder();
    histories().DropDown();
    EXPECT_TRUE(program().open.OrderDirty && program().open.SaveChangesEnabled);
    program().open.markSaved();
    histories().Click(&Order::TermsEd, "Net 10");
    EXPECT_TRUE(program().open.OrderDirty);
    EXPECT_EQ(histories().CurrentHistoryText, "Net 10");
}

TEST_F(HistoryFlows, ARemovedValueIsGoneFromBoxListAndFile) {
    writeFile(data("ter_field.dat"), "Net 10\r\nNet 30\r\nNet 10 \r\n");
    newOrder();
    histories().Change(&Order::TermsEd, "Net 10");
    histories().Change(&Order::ByEd, "Ann");
    program().open.markSaved();
    removeShown(&Order::TermsEd);
    EXPECT_EQ(order().TermsEd, "");
    EXPECT_TRUE(program().open.OrderDirty);
    EXPECT_EQ(listed(&Order::TermsEd), Values{"Net 30"});
    EXPECT_EQ(contentOf(data("ter_field.dat")), "Net 30\r\n");
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
    program().addresses.Combo_Change(AddressSide::Vendor, "Acme");
    program().addresses.Changed_Click(AddressSide::Vendor);
    program().addresses.Combo_Change(AddressSide::Destination, "Depot");
    program().addresses.Changed_Click(AddressSide::Destination);
    const std::string history = contentOf(data("by_field.dat"));
    histories().GotFocus(AddressSide::Destination);
    histories().RemoveHistoryEntry();
    EXPECT_EQ(program().addresses.shown(AddressSide::Destination).names, Values{});
    EXPECT_EQ(program().addresses.shown(AddressSide::Vendor).names, Values{"Acme"});
    EXPECT_EQ(order().ShipToCombo, "");
    histories().GotFocus(AddressSide::Vendor);
    histories().RemoveHistoryEntry();
    EXPECT_EQ(program().addresses.shown(AddressSide::Vendor).names, Values{});
    EXPECT_EQ(contentOf(data("by_field.dat")), history);
}

TEST_F(HistoryFlows, AHistoryThatCannotBeReadIsToldAndTheOrderSavedAllTheSame) {
    newOrder();
    std::filesystem::remove(data("via_field.dat"));
    std::filesystem::create_directory(data("via_field.dat"));
    program().editor.edit(&Order::ByEd, "Ann");
    program().editor.edit(&Order::FOBEd, "Leeds");
    program().editor.SaveChanges_Click();
    EXPECT_EQ(listed(&Order::ByEd), Values{"Ann"});
    EXPECT_EQ(listed(&Order::FOBEd), Values{}) << "the first fault ends it";
    EXPECT_EQ(prompts.lastLine,
              "The lists of earlier entries were not brought up to date: via_field.dat: Path/File "
              "access error (error 75). Order 000001 is saved");
    EXPECT_FALSE(program().open.OrderDirty);
    EXPECT_EQ(waits, 0) << "no list of suggestions holds up an order";
    program().editor.make10_Click();
    EXPECT_EQ(prompts.lastLine,
              "The lists of earlier entries were not brought up to date: via_field.dat: Path/File "
              "access error (error 75). Order 000011 is saved")
        << "said once";
    newOrder();
    program().refillLists();
    EXPECT_EQ(listed(&Order::ByEd), Values{"Ann"});
    EXPECT_EQ(waits, 0);
}

}  // namespace
}  // namespace bramblet
