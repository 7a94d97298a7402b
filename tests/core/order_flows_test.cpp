#include "support/office.h"

#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;

class OrderFlows : public Office {
  protected:
    void SetUp() override { start(); }
    OrderEditor& editor() { return program().editor; }
    const OpenOrder& open() { return program().open; }
    bool saved(const std::string& number) const {
        return FileSystem().exists(data(number + ".htm"));
    }
    std::size_t records() const { return contentOf(data("po_data.dat")).size() / 203; }
    std::string job(std::size_t record) const {
        return trimmedField(contentOf(data("po_data.dat")).substr((record - 1) * 203 + 7, 12));
    }
    /// The job number in a saved document.
    std::string documentJob(const std::string& number) const {
        const std::string text = contentOf(data(number + ".htm"));
        const auto start = text.find("<!-- JOB ") + 9;
        return text.substr(start, text.find(" JOB -->") - start);
    }
    void editJob(const std::string& job) { editor().edit(&Order::JobNumberEd, job); }
    void expectChanged(bool changed) {
        EXPECT_EQ(open().OrderDirty, changed);
        EXPECT_EQ(open().SaveChangesEnabled, changed);
    }
    static Message saveNew() { return yesNo("Save new Bramblet Number?", "Save PO?"); }
    static Message saveFirst(const std::string& number) {
        return yesNoCancel("Save changes to Bramblet Number " + number + " ?", "Save PO?");
    }
    static Message copy() {
        return yesNo("Create new purchase order based on details currently displayed?");
    }
};

TEST_F(OrderFlows, APendingOrderIsNumberedBySavingIt) {
    addLine({"2", "ea", "Hammer", "10"});
    prompts.expect(saveNew(), Answer::No);
    editor().SaveChanges_Click();
    EXPECT_EQ(order().PONoEd, "(PEND)");
    EXPECT_EQ(records(), 0u);

    program().addresses.Combo_Change(AddressSide::Vendor, "Acme");
    program().addresses.Field_Change(AddressSide::Vendor, "A Road");
    program().addresses.Combo_Change(AddressSide::Destination, "Depot");
    prompts.expect(saveNew(), Answer::Yes);
    editor().SaveChanges_Click();
    EXPECT_EQ(order().PONoEd, "000001");
    EXPECT_TRUE(saved("000001"));
    EXPECT_EQ(records(), 1u);
    expectChanged(false);
    EXPECT_TRUE(open().Save_POEnabled);
    EXPECT_EQ(program().savedOrders.number(0), "000001");
    // Both addresses were stored first.
    EXPECT_EQ(contentOf(data("po_addy.dat")).size(), 2 * 570u);
    EXPECT_EQ(order().ToField, "A Road");
}

TEST_F(OrderFlows, EditsOfAPendingOrderNeverCount) {
    editJob("J");
    editor().OptionRe_Click();
    editor().MarkReceivedCheck_Click(true);
    editor().TotalUp_Click();
    expectChanged(false);
}

TEST_F(OrderFlows, EveryEditOfANumberedOrderMarksIt) {
    newOrder();
    const std::vector<std::function<void()>> edits{
        [&] { editJob("J"); },
        [&] { editor().OptionRe_Click(); },
        [&] { editor().MarkReceivedCheck_Click(true); },
        [&] { editor().MonthView1_DateClick(&Order::ShipDateEd, kToday); },
        [&] { program().addresses.Field_Change(AddressSide::Vendor, "x"); },
        [&] {
            addLine({"1", "ea", "x", "1"});
        },
        [&] { editor().Clear_Click(); },
    };
    for (std::size_t i = 0; i < edits.size(); ++i) {
        edits[i]();
        EXPECT_TRUE(open().OrderDirty && open().SaveChangesEnabled) << i;
        editor().SaveChanges_Click();
        expectChanged(false);
    }
    editor().TotalUp_Click();  // nothing changes
    editJob("");               // as it was
    expectChanged(false);
    EXPECT_EQ(records(), 1u);
}

TEST_F(OrderFlows, ANewOrderIsSavedEmptyWithTodaysDate) {
    editor().OptionRe_Click();
    newOrder();
    EXPECT_EQ(order().PONoEd, "000001");
    EXPECT_EQ(order().OrderDateEd, "3/4/2026");
    EXPECT_EQ(order().DiscountFactorEd + order().TaxFactorEd, "00");
    EXPECT_EQ(order().kind, OrderKind::Requisition);
    EXPECT_TRUE(saved("000001"));
    EXPECT_TRUE(open().Save_POEnabled);
    expectChanged(false);

    editJob("J-1");
    prompts.expect(yesNoCancel("Save changes to Order Number 000001 ?", "Save?"), Answer::Cancel);
    editor().NewPO_Click();
    expectChanged(true);

    prompts.expect(yesNoCancel("Save changes to Order Number 000001 ?", "Save?"), Answer::Yes);
    prompts.expect(yesNo("Create blank new order ?"), Answer::No);
    editor().NewPO_Click();
    EXPECT_EQ(order().PONoEd, "000001");
    EXPECT_EQ(order().JobNumberEd, "J-1");
    EXPECT_EQ(job(1), "J-1");
}

TEST_F(OrderFlows, ACopyCarriesTheEditsAndTheSourceKeepsItsLastSave) {
    newOrder();
    editor().MarkReceivedCheck_Click(true);
    editJob("J-2");
    prompts.expect(saveFirst("000001"), Answer::No);
    prompts.expect(copy(), Answer::Yes);
    editor().Save_PO_Click();
    EXPECT_EQ(order().PONoEd, "000002");
    EXPECT_FALSE(order().MarkReceivedCheck);
    EXPECT_EQ(documentJob("000001"), "");
    EXPECT_EQ(documentJob("000002"), "J-2");
    EXPECT_EQ(job(2), "J-2");
    expectChanged(false);
}

TEST_F(OrderFlows, ClearKeepsNumberAndKindAndMarksANumberedOrder) {
    editor().OptionRe_Click();
    newOrder();
    addLine({"1", "ea", "x", "1"});
    editJob("J");
    editor().SaveChanges_Click();
    editor().Clear_Click();
    EXPECT_EQ(order().PONoEd, "000001");
    EXPECT_EQ(order().kind, OrderKind::Requisition);
    EXPECT_TRUE(order().lines.empty());
    EXPECT_EQ(order().JobNumberEd + order().OrderTotalEd, "0.00");
    expectChanged(true);
}

TEST_F(OrderFlows, TenCopiesHaveConsecutiveNumbers) {
    std::vector<std::string> captions{open().caption};
    program().open.onChange = [&] {
        if (captions.back() != open().caption) captions.push_back(open().caption);
    };
    editJob("J");
    editor().make10_Click();
    EXPECT_EQ(order().PONoEd, "000010");
    EXPECT_EQ(records(), 10u);
    EXPECT_EQ(documentJob("000001"), "J");
    EXPECT_EQ(documentJob("000010"), "J");
    ASSERT_EQ(captions.size(), 12u);
    EXPECT_EQ(captions[0], "Bramblet");
    EXPECT_EQ(captions[1], "making number 1");
    EXPECT_EQ(captions[10], "making number 10");
    EXPECT_EQ(captions[11], "done");
    EXPECT_TRUE(open().Save_POEnabled);
    expectChanged(false);
}

TEST_F(OrderFlows, TheCaptionDoneGoesWithTheNextCommandOrEdit) {
    const std::vector<std::function<void()>> next{
        [&] { editJob("J"); },
        [&] { editor().TotalUp_Click(); },
        [&] { editor().POGrid_Click("000001"); },
        [&] { program().viewer.MakeOrder_Click(); },
        [&] { program().addresses.Combo_Change(AddressSide::Vendor, "A"); },
        [&] { program().savedOrders.ListCheck_Click(&SavedOrders::ListCheckRE, false); },
        [&] { editor().Clear_Click(); },
    };
    for (std::size_t i = 0; i < next.size(); ++i) {
        editor().make10_Click();
        EXPECT_EQ(open().caption, "done");
        next[i]();
        EXPECT_EQ(open().caption, "Bramblet") << i;
    }
}

TEST_F(OrderFlows, UnlockingTheNumberLetsTheNumberingStartElsewhere) {
    const Message question{
        "Are you SURE you want to unlock the PO number field?\r\n\r\nThis should only be done ONE "
        "TIME in order to make Bramblet conform to your existing numbered records. DO NOT do this "
        "as a matter of course - data corruption is very likely if you do!",
        "Confirm Setting Initial Document Number", Buttons::YesNo, Icon::Stop, Answer::No};
    newOrder();
    prompts.expect(question, Answer::No);
    editor().Label11_DblClick();
    EXPECT_FALSE(open().numberUnlocked);
    prompts.expect(question, Answer::Yes);
    editor().Label11_DblClick();
    EXPECT_TRUE(open().numberUnlocked);
    editor().edit(&Order::PONoEd, "004711");
    editor().SaveChanges_Click();
    newOrder();
    EXPECT_EQ(order().PONoEd, "004712");
}

TEST_F(OrderFlows, OpeningAnOrderBringsItBackUnchanged) {
    program().addresses.Combo_Change(AddressSide::Vendor, "Acme");
    program().addresses.Field_Change(AddressSide::Vendor, "A Road");
    program().addresses.Changed_Click(AddressSide::Vendor);
    newOrder();
    program().addresses.Combo_Change(AddressSide::Vendor, "Acme");
    program().addresses.Combo_Click(AddressSide::Vendor);
    addLine({"3", "ea", "Hammer", "10"});
    editor().edit(&Order::DiscountFactorEd, ".1");
    editor().edit(&Order::TaxFactorEd, ".065");
    editor().edit(&Order::CommentsEd, "Mind the dog");
    editor().OptionRe_Click();
    editor().MarkReceivedCheck_Click(true);
    editor().SaveChanges_Click();
    const Order first = order();
    newOrder();
    editor().POGrid_Click("000001");
    EXPECT_EQ(order(), first);
    EXPECT_EQ(order().OrderTotalEd, "28.76");
    expectChanged(false);
    EXPECT_TRUE(open().Save_POEnabled);
}

TEST_F(OrderFlows, OpeningOffersToSaveTheOrderShown) {
    newOrder();
    newOrder();
    editJob("J");
    prompts.expect(saveFirst("000002"), Answer::Cancel);
    editor().POGrid_Click("000001");
    EXPECT_EQ(order().PONoEd, "000002");
    prompts.expect(saveFirst("000002"), Answer::Yes);
    editor().POGrid_Click("000001");
    EXPECT_EQ(order().PONoEd, "000001");
    EXPECT_EQ(job(2), "J");
}

TEST_F(OrderFlows, AMissingDocumentLoadsAsAClearedOrderWithoutANumber) {
    newOrder();
    editJob("J");
    editor().SaveChanges_Click();
    editor().POGrid_Click("000099");
    EXPECT_TRUE(saved("000099"));
    EXPECT_EQ(contentOf(data("000099.htm")), "");
    EXPECT_EQ(order().PONoEd, "(PEND)");
    EXPECT_EQ(order().JobNumberEd, "");
    EXPECT_EQ(prompts.lastLine, "The document of order 000099 holds no order.");
    EXPECT_EQ(documentJob("000001"), "J");
}

TEST_F(OrderFlows, AnOrderThatCannotBeOpenedLeavesTheShownOneAlone) {
    newOrder();
    editJob("J");
    editor().SaveChanges_Click();
    for (const char* number : {"../x", "a/b", "c:x", "CON"}) {
        prompts.expectSaying("cannot be opened: Bad file name or number (error 52)");
        editor().POGrid_Click(number);
        EXPECT_EQ(order().JobNumberEd, "J");
    }
}

TEST_F(OrderFlows, HandEditedDocumentsAreTotalledAnew) {
    writeFile(data("000005.htm"),
              "<!-- PON 000005 PON -->\r\n<!-- STA r STA -->\r\n<!-- DIS 1.00 DIS -->\r\n"
              "<!-- ITM 2\t\t\tea\tHammer\t10\t20.00\tspecial\r\n<!-- END -->\r\n");
    editor().POGrid_Click("000005");
    EXPECT_EQ(order().SubTotalEd + " " + order().NetTotalEd + " " + order().OrderTotalEd,
              "20.00 19.00 19.00");
    EXPECT_EQ(statusOf(order()), "r");
}

TEST_F(OrderFlows, DeletingMarksTheRecordAndKeepsTheDocument) {
    newOrder();
    const Message question{"Delete purchase order 000001 ?", "Confirm", Buttons::YesNo, Icon::None,
                           Answer::No};
    prompts.expect(question, Answer::No);
    editor().POPop_delete_Click("000001");
    EXPECT_EQ(program().savedOrders.rowCount(), 1);
    prompts.expect(question, Answer::Yes);
    editor().POPop_delete_Click("000001");
    EXPECT_EQ(program().savedOrders.rowCount(), 0);
    EXPECT_TRUE(saved("000001"));
    newOrder();
    EXPECT_EQ(order().PONoEd, "000002");
}

TEST_F(OrderFlows, AnUnreadableDateKeepsTheOrderChangedButWritesTheDocument) {
    newOrder();
    editJob("J");
    editor().edit(&Order::ShipDateEd, "soon");
    editor().SaveChanges_Click();
    EXPECT_EQ(documentJob("000001"), "J");
    EXPECT_EQ(job(1), "");
    expectChanged(true);
    EXPECT_TRUE(open().dateRefused);
    EXPECT_NE(prompts.lastLine.find("\"soon\" in the box On Site is not a date"),
              std::string::npos);
}

TEST_F(OrderFlows, AnUnreadableDateIsFoundBeforeANumberIsDrawn) {
    const std::vector<std::function<void()>> drawing{
        [&] {
            prompts.expect(saveNew(), Answer::Yes);
            editor().SaveChanges_Click();
        },
        [&] {
            prompts.expect(copy(), Answer::Yes);
            editor().Save_PO_Click();
        },
        [&] { editor().make10_Click(); },
    };
    addLine({"1", "ea", "x", "1"});
    for (const OrderField box : {&Order::OrderDateEd, &Order::ShipDateEd}) {
        for (const auto& draw : drawing) {
            editor().edit(box, "soon");
            EXPECT_FALSE(open().dateRefused);
            draw();
            EXPECT_NE(prompts.lastLine.find("The order was not saved: \"soon\" in the box"),
                      std::string::npos);
            EXPECT_TRUE(open().dateRefused);
            EXPECT_TRUE(open().SaveChangesEnabled);
            EXPECT_EQ(order().PONoEd, "(PEND)");
            EXPECT_EQ(records(), 0u);
            EXPECT_FALSE(saved("000001"));
            editor().edit(box, "3/20/2026");
            EXPECT_FALSE(open().dateRefused);
        }
    }
}

TEST_F(OrderFlows, ATypedNumberIsDoubtedWhileItIsTyped) {
    for (int i = 0; i < 3; ++i)
        newOrder();  // 000003 is shown
    prompts.expectSaying("Delete purchase order 000002 ?", Answer::Yes);
    editor().POPop_delete_Click("000002");
    program().savedOrders.ListCheck_Click(&SavedOrders::ListCheckPO, false);
    EXPECT_EQ(program().savedOrders.rowCount(), 0);
    const auto line = [&](const char* number) {
        prompts.lastLine.clear();
        editor().edit(&Order::PONoEd, number);
        return prompts.lastLine;
    };
    EXPECT_EQ(line("00000"), "");
    EXPECT_EQ(line("000001"),
              "Number 000001 is taken by another order, which saving would replace.");
    EXPECT_EQ(line("000002"),
              "Number 000002 is taken by a deleted order, which saving would replace.");
    EXPECT_EQ(line("000003"), "Number 000003 can be used") << "its own";
    EXPECT_EQ(line("0000030"),
              "The list of orders holds only six characters of the number 0000030.");
    EXPECT_EQ(line(""), "The order needs a number.");
    EXPECT_EQ(line("PO12"), "Number PO12 can be used");
    EXPECT_EQ(line("PO123"), "");
    editor().SaveChanges_Click();
    EXPECT_EQ(line("PO12"), "");
    EXPECT_EQ(line("PO123"), "") << "its own now";
    EXPECT_NE(line("000003"), "") << "not its own any more";
}

TEST_F(OrderFlows, AnOrderThatCannotBeTotalledIsNotSavedAndGetsNoNumber) {
    addLine({"1", "ea", "x", "1"});
    editor().edit(&Order::DiscountEd, "ten");
    prompts.expect(saveNew(), Answer::Yes);
    prompts.expectSaying("\"ten\" in the box Discount is not an amount");
    editor().SaveChanges_Click();
    EXPECT_EQ(order().PONoEd, "(PEND)");
    EXPECT_EQ(records(), 0u);
    editor().edit(&Order::DiscountEd, "0");
    editor().edit(&Order::TaxFactorEd, "6.5");
    editor().TotalUp_Click();
    EXPECT_EQ(prompts.lastLine, "The tax multiplier 6.5 stands for 650%; 50% is written 0.5.");
}

TEST_F(OrderFlows, AFailedSaveSaysWhatWasNotDone) {
    newOrder();
    editJob("J");
    std::filesystem::remove(data("000001.htm"));
    std::filesystem::create_directories(data("000001.htm/x"));  // no document can be put there
    editor().SaveChanges_Click();
    EXPECT_NE(prompts.lastLine.find("The document of order 000001 was not saved: "),
              std::string::npos);
    expectChanged(true);
}

TEST_F(OrderFlows, ANumberThatNamesNoFileIsNotSavedAtAll) {
    newOrder();
    const std::string tooLong(300, '7');
    for (const std::string& number : {std::string("12/34"), std::string(".."), std::string(),
                                      std::string("CON"), std::string("LPT2.04"), tooLong}) {
        editor().edit(&Order::PONoEd, number);
        editor().SaveChanges_Click();
        EXPECT_NE(prompts.lastLine.find("was not saved: Bad file name or number (error 52)"),
                  std::string::npos);
        EXPECT_TRUE(open().OrderDirty);
    }
    EXPECT_EQ(records(), 1u);
}

TEST_F(OrderFlows, AllThatFailedInOneCommandIsSaid) {
    newOrder();
    editJob("J");
    std::filesystem::remove_all(home() / "po_data");  // the share is gone
    editor().SaveChanges_Click();
    EXPECT_EQ(
        prompts.lastLine,
        "The document of order 000001 was not saved: Path not found (error 76). Order 000001 was "
        "not entered in the list of orders: Path not found (error 76). The lists of earlier "
        "entries were not brought up to date: by_field.dat: Path not found (error 76). The list of "
        "saved orders was not read: Path not found (error 76).");
}

TEST_F(OrderFlows, AFailedCopyLeavesItsSourceAsItWas) {
    newOrder();
    editor().MarkReceivedCheck_Click(true);
    editor().SaveChanges_Click();
    editor().edit(&Order::DiscountEd, "ten");
    prompts.expect(saveFirst("000001"), Answer::No);
    prompts.expect(copy(), Answer::Yes);
    prompts.expectSaying("\"ten\" in the box Discount is not an amount");
    editor().Save_PO_Click();
    EXPECT_EQ(order().PONoEd, "000001");
    EXPECT_TRUE(order().MarkReceivedCheck);
    EXPECT_EQ(program().settings.OrdersSavedCount, 2);
}

TEST_F(OrderFlows, ANameTypedInFullIsPickedBeforeTheOrderIsSaved) {
    program().addresses.Combo_Change(AddressSide::Vendor, "Acme");
    program().addresses.Field_Change(AddressSide::Vendor, "A Road");
    program().addresses.Changed_Click(AddressSide::Vendor);
    newOrder();
    program().addresses.Combo_Change(AddressSide::Vendor, "Acme");
    editor().SaveChanges_Click();
    EXPECT_EQ(order().ToField, "A Road");
    EXPECT_NE(contentOf(data("000001.htm")).find("A Road"), std::string::npos);
}

TEST_F(OrderFlows, NumbersBeyondSixDigitsAreShownInFullAndWarnedOf) {
    Order high;
    high.PONoEd = "999999";
    program().index.RecordData(high);
    newOrder();
    EXPECT_EQ(order().PONoEd, "1000000");
    EXPECT_NE(prompts.lastLine.find("only six characters"), std::string::npos);
}

TEST_F(OrderFlows, TheCalendarOpensAtTheBoxesDateOrToday) {
    editor().edit(&Order::ShipDateEd, "3/20/2026");
    EXPECT_EQ(editor().calendarStart(&Order::ShipDateEd), kToday + 16);
    editor().edit(&Order::ShipDateEd, "soon");
    EXPECT_EQ(editor().calendarStart(&Order::ShipDateEd), kToday);
    editor().MonthView1_DateClick(&Order::ShipDateEd, kToday + 1);
    EXPECT_EQ(order().ShipDateEd, "3/5/2026");
}

TEST(OrderFlowsAbroad, ZerosAreWrittenAsTheRegionReadsThem) {
    class French : public Office {
      public:
        void TestBody() override {
            RegionalFormats formats;
            formats.decimalSeparator = ",";
            formats.groupSeparator = "\xA0";
            start(formats);
            newOrder();
            EXPECT_EQ(order().OrderTotalEd, "0,00");
            addLine({"2", "ea", "x", "1,25"});
            EXPECT_EQ(order().OrderTotalEd, "2,50");
            program().editor.Clear_Click();
            program().editor.SaveChanges_Click();
            EXPECT_FALSE(program().open.OrderDirty);
        }
    };
    French().TestBody();
}

}  // namespace
}  // namespace bramblet
