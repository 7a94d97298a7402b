#include "support/office.h"
#include "support/regions.h"

namespace bramblet::test {
namespace {

constexpr OrderField kJob = &Order::JobNumberEd;

class OrderFlows : public Office {
  protected:
    void SetUp() override { start(); }
    OrderEditor& editor() { return program().editor; }
    bool isSaved(const std::string& number) const { return os::exists(data(number + ".htm")); }
    /// The number and the job shown, then those of each order as the list and its document have
    /// them, for example "000002 J-2 | 000001 - - | 000002 J-2 J-2".
    std::string orders() const {
        const auto named = [](const std::string& job) { return " " + (job.empty() ? "-" : job); };
        std::string text = order().PONoEd + named(order().JobNumberEd);
        for (const OrderRow row : program().index.readAll()) {
            const OrderIndexRecord record = row.record();
            const std::string document = stored(record.Number + ".htm");
            const auto start = document.find("<!-- JOB ") + 9;
            text += " | " + record.Number + named(trimmedField(record.Job)) +
                    named(document.substr(start, document.find(" JOB -->") - start));
        }
        return text;
    }
    void expectChanged(bool changed) {
        EXPECT_EQ(dirty(), changed);
        EXPECT_EQ(saveEnabled(), changed);
    }
    void saveNew(Answer answer = Answer::Yes) {
        prompts.expect(yesNo("Save new Bramblet Number?", "Save PO?"), answer);
        save();
    }
    void copy() {
        prompts.expect(yesNo("Create new purchase order based on details currently displayed?"),
                       Answer::Yes);
        editor().Save_PO_Click();
    }
    void expectOffer(const std::string& number, Answer answer) {
        prompts.expect(yesNoCancel("Save changes to Bramblet Number " + number + " ?", "Save PO?"),
                       answer);
    }
};

TEST_F(OrderFlows, APendingOrderIsNumberedBySavingIt) {
    addLine({"2", "ea", "Hammer", "10"});
    saveNew(Answer::No);
    EXPECT_EQ(orders(), "(PEND) -");
    typeName(Vendor, "Acme");
    typeAddress(Vendor, "A Road");
    typeName(Destination, "Depot");
    saveNew();
    EXPECT_EQ(orders(), "000001 - | 000001 - -");
    expectChanged(false);
    EXPECT_TRUE(copyEnabled());
    EXPECT_EQ(program().savedOrders.number(0), "000001");
    EXPECT_EQ(stored("po_addy.dat").size(), 2 * 570u) << "both addresses were stored first";
    EXPECT_EQ(order().ToField, "A Road");
}

TEST_F(OrderFlows, EveryEditOfANumberedOrderMarksItAndOfAPendingOneNone) {
    FieldHistories& histories = program().histories;
    const std::vector<std::function<void()>> edits{
        [&] { type(kJob, "J"); },
        [&] { editor().chooseKind(OrderKind::Requisition); },
        [&] { editor().chooseKind(OrderKind::PurchaseOrder); },
        [&] { editor().MarkReceivedCheck_Click(true); },
        [&] { editor().MonthView1_DateClick(&Order::ShipDateEd, kToday); },
        [&] { typeAddress(Vendor, "x"); },
        [&] { histories.Change(&Order::TermsEd, "Net 30"); },
        [&] { histories.DropDown(); },
        [&] { editor().Clear_Click(); },
    };
    for (const auto& edit : edits)
        edit();
    editor().TotalUp_Click();
    expectChanged(false);
    newOrder();
    for (std::size_t i = 0; i < edits.size(); ++i) {
        edits[i]();
        EXPECT_TRUE(dirty() && saveEnabled()) << i;
        save();
        expectChanged(false);
    }
    editor().TotalUp_Click();  // nothing changes
    type(kJob, "");            // as it was
    expectChanged(false);
    EXPECT_EQ(orders(), "000001 - | 000001 - -");
    addLine({"1", "ea", "x", "1"});
    expectChanged(true);
}

TEST_F(OrderFlows, ANewOrderIsSavedEmptyWithTodaysDate) {
    editor().chooseKind(OrderKind::Requisition);
    newOrder();
    EXPECT_EQ(orders(), "000001 - | 000001 - -");
    EXPECT_EQ(order().OrderDateEd, "3/4/2026");
    EXPECT_EQ(order().DiscountFactorEd + order().TaxFactorEd, "00");
    EXPECT_EQ(order().kind, OrderKind::Requisition);
    EXPECT_TRUE(copyEnabled());
    expectChanged(false);
    type(kJob, "J-1");
    const Message offer = yesNoCancel("Save changes to Order Number 000001 ?", "Save?");
    prompts.expect(offer, Answer::Cancel);
    editor().NewPO_Click();
    expectChanged(true);
    prompts.expect(offer, Answer::Yes);
    prompts.expect(yesNo("Create blank new order ?"), Answer::No);
    editor().NewPO_Click();
    EXPECT_EQ(orders(), "000001 J-1 | 000001 J-1 J-1");
}

TEST_F(OrderFlows, ACopyCarriesTheEditsAndTheSourceKeepsItsLastSave) {
    newOrder();
    editor().MarkReceivedCheck_Click(true);
    type(kJob, "J-2");
    expectOffer("000001", Answer::No);
    copy();
    EXPECT_EQ(orders(), "000002 J-2 | 000001 - - | 000002 J-2 J-2");
    EXPECT_FALSE(order().MarkReceivedCheck);
    expectChanged(false);
    // One that cannot be made leaves its source as it was.
    editor().MarkReceivedCheck_Click(true);
    type(&Order::DiscountEd, "ten");
    expectOffer("000002", Answer::No);
    prompts.expectSaying("Create new purchase order", Answer::Yes);
    prompts.expectSaying("\"ten\" in the box Discount is not an amount");
    editor().Save_PO_Click();
    EXPECT_EQ(order().PONoEd, "000002");
    EXPECT_TRUE(order().MarkReceivedCheck);
    EXPECT_EQ(program().settings.OrdersSavedCount, 2);
}

TEST_F(OrderFlows, ClearKeepsNumberAndKind) {
    editor().chooseKind(OrderKind::Requisition);
    newOrder();
    addLine({"1", "ea", "x", "1"});
    type(kJob, "J");
    editor().Clear_Click();
    EXPECT_EQ(order().PONoEd, "000001");
    EXPECT_EQ(order().kind, OrderKind::Requisition);
    EXPECT_TRUE(order().lines.empty());
    EXPECT_EQ(order().JobNumberEd + order().OrderTotalEd, "0.00");
}

TEST_F(OrderFlows, TenCopiesHaveConsecutiveNumbers) {
    type(kJob, "J");
    editor().make10_Click();
    EXPECT_EQ(orders().substr(0, 26), "000010 J | 000001 J J | 00");
    EXPECT_TRUE(orders().ends_with("000009 J J | 000010 J J"));
    ASSERT_EQ(screen.captions.size(), 11u);
    EXPECT_EQ(screen.captions[0], "making number 1");
    EXPECT_EQ(screen.captions[9], "making number 10");
    EXPECT_EQ(screen.captions[10], "done");
    EXPECT_TRUE(copyEnabled());
    expectChanged(false);
}

TEST_F(OrderFlows, TheCaptionDoneGoesWithTheNextCommandOrEdit) {
    const std::vector<std::function<void()>> next{
        [&] { type(kJob, "J"); },
        [&] { editor().TotalUp_Click(); },
        [&] { openOrder("000001"); },
        [&] { program().viewer.MakeOrder_Click(); },
        [&] { typeName(Vendor, "A"); },
        [&] { program().savedOrders.ListCheck_Click(&SavedOrders::ListCheckRE, false); },
        [&] { editor().Clear_Click(); },
    };
    for (std::size_t i = 0; i < next.size(); ++i) {
        editor().make10_Click();
        EXPECT_EQ(caption(), "done");
        next[i]();
        EXPECT_EQ(caption(), "Bramblet") << i;
    }
}

TEST_F(OrderFlows, UnlockingTheNumberLetsTheNumberingStartElsewhere) {
    const Message question{
        "Are you SURE you want to unlock the PO number field?\r\n\r\nThis should only be done ONE "
        "TIME in order to make Bramblet conform to your existing numbered records. DO NOT do this "
        "as a matter of course - data corruption is very likely if you do!",
        "Confirm Setting Initial Document Number", Buttons::YesNo, Icon::Stop, Answer::No};
    newOrder();
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        prompts.expect(question, answer);
        editor().unlockNumber();
        EXPECT_EQ(numberUnlocked(), answer == Answer::Yes);
    }
    const auto nextAfter = [&](const std::string& typed) {
        type(&Order::PONoEd, typed);
        save();
        newOrder();
        return order().PONoEd;
    };
    EXPECT_EQ(nextAfter("004711"), "004712");
    EXPECT_EQ(nextAfter("999999"), "1000000") << "in full";
    expectSaid("only six characters");
}

TEST_F(OrderFlows, OpeningAnOrderBringsItBackUnchanged) {
    saveAddress(Vendor, "Acme", "A Road");
    newOrder();
    typeName(Vendor, "Acme");  // typed in full, it is picked before the order is saved
    addLine({"3", "ea", "Hammer", "10"});
    type(&Order::DiscountFactorEd, ".1");
    type(&Order::TaxFactorEd, ".065");
    type(&Order::CommentsEd, "Mind the dog");
    editor().chooseKind(OrderKind::Requisition);
    editor().MarkReceivedCheck_Click(true);
    save();
    const Order first = order();
    EXPECT_EQ(first.ToField, "A Road");
    EXPECT_TRUE(contains(stored("000001.htm"), "A Road"));
    newOrder();
    openOrder("000001");
    EXPECT_EQ(order(), first);
    EXPECT_EQ(order().OrderTotalEd, "28.76");
    expectChanged(false);
    EXPECT_TRUE(copyEnabled());
}

TEST_F(OrderFlows, OpeningOffersToSaveTheOrderShown) {
    newOrder();
    newOrder();
    type(kJob, "J");
    expectOffer("000002", Answer::Cancel);
    openOrder("000001");
    EXPECT_EQ(orders(), "000002 J | 000001 - - | 000002 - -");
    expectOffer("000002", Answer::Yes);
    openOrder("000001");
    EXPECT_EQ(orders(), "000001 - | 000001 - - | 000002 J J");
}

TEST_F(OrderFlows, AMissingDocumentLoadsAsAClearedOrderWithoutANumber) {
    newOrder();
    type(kJob, "J");
    save();
    for (const char* number : {"../x", "a/b", "c:x", "CON"}) {
        prompts.expectSaying("cannot be opened: Bad file name or number (error 52)");
        openOrder(number);
        EXPECT_EQ(orders(), "000001 J | 000001 J J") << "the order shown is left alone";
    }
    openOrder("000099");
    EXPECT_TRUE(isSaved("000099"));
    EXPECT_EQ(stored("000099.htm"), "");
    EXPECT_EQ(orders(), "(PEND) - | 000001 J J");
    EXPECT_EQ(screen.lastLine, "The document of order 000099 holds no order.");
}

TEST_F(OrderFlows, HandEditedDocumentsAreTotalledAnew) {
    writeFile(data("000005.htm"),
              "<!-- PON 000005 PON -->\r\n<!-- STA r STA -->\r\n<!-- DIS 1.00 DIS -->\r\n"
              "<!-- ITM 2\t\t\tea\tHammer\t10\t20.00\tspecial\r\n<!-- END -->\r\n");
    openOrder("000005");
    EXPECT_EQ(order().SubTotalEd + " " + order().NetTotalEd + " " + order().OrderTotalEd,
              "20.00 19.00 19.00");
    EXPECT_EQ(statusOf(order()), "r");
}

TEST_F(OrderFlows, DeletingMarksTheRecordAndKeepsTheDocument) {
    newOrder();
    const Message question{"Delete purchase order 000001 ?", "Confirm", Buttons::YesNo, Icon::None,
                           Answer::No};
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        prompts.expect(question, answer);
        editor().POPop_delete_Click("000001");
        EXPECT_EQ(program().savedOrders.rowCount(), answer == Answer::No ? 1 : 0);
    }
    EXPECT_TRUE(isSaved("000001"));
    newOrder();
    EXPECT_EQ(order().PONoEd, "000002");
}

TEST_F(OrderFlows, AnUnreadableDateKeepsTheOrderChangedButWritesTheDocument) {
    newOrder();
    type(kJob, "J");
    type(&Order::ShipDateEd, "soon");
    save();
    EXPECT_EQ(orders(), "000001 J | 000001 - J");
    expectChanged(true);
    EXPECT_TRUE(dateRefused());
    expectSaid("\"soon\" in the box On Site is not a date");
}

TEST_F(OrderFlows, AnUnreadableDateIsFoundBeforeANumberIsDrawn) {
    const std::vector<std::function<void()>> drawing{[&] { saveNew(); }, [&] { copy(); },
                                                     [&] { editor().make10_Click(); }};
    addLine({"1", "ea", "x", "1"});
    for (const OrderField box : {&Order::OrderDateEd, &Order::ShipDateEd}) {
        for (const auto& draw : drawing) {
            type(box, "soon");
            EXPECT_FALSE(dateRefused());
            draw();
            expectSaid("The order was not saved: \"soon\" in the box");
            EXPECT_TRUE(dateRefused() && saveEnabled());
            EXPECT_EQ(orders(), "(PEND) -");
            EXPECT_FALSE(isSaved("000001"));
            type(box, "3/20/2026");
            EXPECT_FALSE(dateRefused());
        }
    }
}

TEST_F(OrderFlows, ATypedNumberIsDoubtedWhileItIsTyped) {
    for (int i = 0; i < 3; ++i)
        newOrder();  // 000003 is shown
    prompts.expectSaying("Delete purchase order 000002 ?", Answer::Yes);
    editor().POPop_delete_Click("000002");
    program().savedOrders.ListCheck_Click(&SavedOrders::ListCheckPO, false);
    const auto expectDoubt = [&](const std::string& number, const std::string& said) {
        screen.lastLine.clear();
        type(&Order::PONoEd, number);
        EXPECT_EQ(screen.lastLine, said) << number;
    };
    const std::string taken = " is taken by another order, which saving would replace.";
    expectDoubt("00000", "");
    expectDoubt("000001", "Number 000001" + taken);  // though it is not listed
    expectDoubt("000002", "Number 000002 is taken by a deleted order, which saving would replace.");
    expectDoubt("000003", "Number 000003 can be used");  // its own
    expectDoubt("0000030", "The list of orders holds only six characters of the number 0000030.");
    expectDoubt("", "The order needs a number.");
    expectDoubt("PO12", "Number PO12 can be used");
    expectDoubt("PO123", "");
    save();
    expectDoubt("PO12", "");
    expectDoubt("PO123", "");  // its own now
    expectDoubt("000003", "Number 000003" + taken);
}

TEST_F(OrderFlows, AnOrderThatCannotBeTotalledIsNotSavedAndGetsNoNumber) {
    addLine({"1", "ea", "x", "1"});
    type(&Order::DiscountEd, "ten");
    prompts.expectSaying("Save new Bramblet Number?", Answer::Yes);
    prompts.expectSaying("\"ten\" in the box Discount is not an amount");
    save();
    EXPECT_EQ(orders(), "(PEND) -");
    prompts.expectSaying("\"ten\" in the box Discount is not an amount");
    editor().make10_Click();
    EXPECT_EQ(orders() + caption(), "(PEND) -Bramblet");
    type(&Order::DiscountEd, "0");
    type(&Order::TaxFactorEd, "6.5");
    editor().TotalUp_Click();
    EXPECT_EQ(screen.lastLine, "The tax multiplier 6.5 stands for 650%; 50% is written 0.5.");
}

TEST_F(OrderFlows, AFailedSaveSaysWhatWasNotDone) {
    newOrder();
    type(kJob, "J");
    std::filesystem::remove(data("000001.htm"));
    std::filesystem::create_directories(data("000001.htm/x"));  // no document can be put there
    save();
    expectSaid("The document of order 000001 was not saved: ");
    expectChanged(true);
    const std::string tooLong(300, '7');
    for (const std::string number : {"12/34", "..", "", "CON", "LPT2.04", tooLong.c_str()}) {
        type(&Order::PONoEd, number);
        save();
        expectSaid("was not saved: Bad file name or number (error 52)");
        EXPECT_TRUE(dirty());
    }
    EXPECT_EQ(program().index.readAll().size(), 1u)
        << "an order whose number names no file is not saved at all";
    type(&Order::PONoEd, "000001");
    std::filesystem::remove_all(home() / "po_data");  // the share is gone
    save();
    EXPECT_EQ(screen.lastLine,
              "The document of order 000001 was not saved: Path not found (error 76). Order 000001 "
              "was not entered in the list of orders: Path not found (error 76). The lists of "
              "earlier entries were not brought up to date: by_field.dat: Path not found (error "
              "76). The list of saved orders was not read: Path not found (error 76).");
}

TEST_F(OrderFlows, TheCalendarOpensAtTheBoxesDateOrToday) {
    type(&Order::ShipDateEd, "3/20/2026");
    EXPECT_EQ(editor().calendarStart(&Order::ShipDateEd), kToday + 16);
    type(&Order::ShipDateEd, "soon");
    EXPECT_EQ(editor().calendarStart(&Order::ShipDateEd), kToday);
    editor().MonthView1_DateClick(&Order::ShipDateEd, kToday + 1);
    EXPECT_EQ(order().ShipDateEd, "3/5/2026");
}

TEST_F(OrderFlows, ZerosAreWrittenAsTheRegionReadsThem) {
    const RegionalFormats french = frFR();
    start(french);
    newOrder();
    EXPECT_EQ(order().OrderTotalEd, "0,00");
    addLine({"2", "ea", "x", "1,25"});
    EXPECT_EQ(order().OrderTotalEd, "2,50");
    editor().Clear_Click();
    save();
    EXPECT_FALSE(dirty());
}

}  // namespace
}  // namespace bramblet::test
