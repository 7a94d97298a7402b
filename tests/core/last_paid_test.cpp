#include "core/orders/last_paid.h"

#include "support/office.h"
#ifndef _WIN32
#include "support/odd_share.h"

#include <cerrno>
#endif

namespace bramblet::test {
namespace {

class LastPaidTest : public Office {
  protected:
    void SetUp() override { start(); }
    /// Saves a purchase order of one line.
    void saveOrder(const std::string& vendor, const std::string& date, const OrderLine& line) {
        newOrder();
        program().editor.chooseKind(OrderKind::PurchaseOrder);
        type(&Order::ToCombo, vendor);
        type(&Order::OrderDateEd, date);
        given(line);
        save();
    }
    static OrderLine line(const std::string& description, const std::string& cost,
                          const std::string& unit = "ea", const std::string& number = kSpecial) {
        return {"1", "", "", unit, description, cost, "", number};
    }
    LastPaid& lastPaid() { return program().lastPaid; }
    /// How many documents have told something.
    int readAll() {
        int told = 0;
        while (lastPaid().hasMore())
            told += lastPaid().readNext() ? 1 : 0;
        return told;
    }
    std::string prices(const Goods& goods) {
        std::string all;
        for (const PaidPrice& price : lastPaid().of(goods))
            all += (all.empty() ? "" : "; ") + price.words + " #" + price.order.substr(5);
        return all;
    }
    std::string prices(const std::string& description) { return prices({"", description, "ea"}); }
    /// What a colleague's desk does, a second later.
    void colleagueWrites(const std::string& number, const std::string& from,
                         const std::string& to) {
        std::string document = stored(number + ".htm");
        for (auto at = document.find(from); at != std::string::npos; at = document.find(from, at))
            document.replace(at, from.size(), to);
        writeFile(data(number + ".htm"), document);
        touch(number + ".htm");
        touch("po_data.dat");
        program().lookForNews();
    }
    void touch(const std::string& file) {
        seconds += std::chrono::seconds(1);
        std::filesystem::last_write_time(data(file),
                                         std::filesystem::last_write_time(data(file)) + seconds);
    }
    std::chrono::seconds seconds{0};
};

TEST_F(LastPaidTest, NewestFirstOfPurchaseOrdersOnly) {
    saveOrder("Acme", "3/4/2026", line("Hammer", "12.5"));
    saveOrder("Bolt", "1/9/2026", line(" hammer ", "1,250.00"));
    saveOrder("Cole", "2/1/2026", line("Hammer", "9"));
    saveOrder("Quoted", "3/3/2026", line("Hammer", "8"));
    program().editor.chooseKind(OrderKind::Requisition);
    save();
    saveOrder("Gone", "3/3/2026", line("Hammer", "7"));
    saveOrder("Free", "3/3/2026", line("Hammer", "0"));
    saveOrder("", "", line("HAMMER", "24.67173913", "box"));
    program().editor.MarkReceivedCheck_Click(true);
    save();
    start();
    EXPECT_EQ(prices("Hammer"), "");
    EXPECT_EQ(readAll(), 6);  // the free one too; the requisition is not opened
    EXPECT_EQ(readAll(), 0);
    prompts.expect(
        {"Delete purchase order 000005 ?", "Confirm", Buttons::YesNo, Icon::None, Answer::No},
        Answer::Yes);
    program().editor.POPop_delete_Click("000005");
    const std::string all =
        "12.50, Acme, 3/4/2026 #1; 9.00, Cole, 2/1/2026 #3; 1,250.00, Bolt, 1/9/2026 #2; "
        "24.67173913 per box #7";
    EXPECT_EQ(prices("Hammer"), all);
    EXPECT_EQ(prices({"", "Hammer", "ea", "000001", "cole"}),
              "9.00, 2/1/2026 #3; 1,250.00, Bolt, 1/9/2026 #2; 24.67173913 per box #7");
    EXPECT_EQ(lastPaid().of({"", "hammer", "Box"}).back().unit, "");
    EXPECT_EQ(prices("Hammers"), "");
}

TEST_F(LastPaidTest, GoodsAreKnownByTheirNumberAsWell) {
    saveOrder("Acme", "3/1/2026", line("T\xFCrgriff", "5", "ea", "3"));
    saveOrder("Acme", "3/2/2026", line("T rgriff", "6"));  // as the line dialog stores it
    saveOrder("Acme", "3/3/2026", line("Door handle", "7", "ea", "3"));
    readAll();
    EXPECT_EQ(prices({"3", "T\xFCrgriff", "ea"}),
              "7.00, Acme, 3/3/2026, under another description #3; 6.00, Acme, 3/2/2026 #2; "
              "5.00, Acme, 3/1/2026 #1");
    EXPECT_EQ(prices({kSpecial, "Door handle", "ea"}), "7.00, Acme, 3/3/2026 #3");
    const LineEntry before{"1", "ea", "Door handle", "7", "3"};
    EXPECT_EQ(goodsOf(before, before, "").fileNumber, "3");
    EXPECT_EQ(goodsOf({"1", "ea", "Knob", "7", ""}, before, "").fileNumber, "");
    saveItem("Knob");
    EXPECT_EQ(goodsOf(program().stock).fileNumber, "1");
    program().stock.boxes.StockDescriptionEd = "Another knob";
    EXPECT_EQ(goodsOf(program().stock).fileNumber, "");
}

TEST_F(LastPaidTest, WhatIsSavedMeanwhileIsTakenOrReadAgain) {
    saveOrder("Acme", "3/1/2026", line("Hammer", "5.00"));
    saveOrder("Bolt", "3/2/2026", line("Hammer", "6.00"));
    readAll();
    given(line("Hammer", "6.25"));
    type(&Order::ByEd, "Ann");
    save();
    EXPECT_EQ(prices("Hammer"), "6.25, Bolt, 3/2/2026 #2; 5.00, Acme, 3/1/2026 #1");
    colleagueWrites("000001", "5.00", "4.50");
    colleagueWrites("000002", "Hammer", "Mallet");
    EXPECT_EQ(readAll(), 2);
    EXPECT_EQ(prices("Hammer"), "4.50, Acme, 3/1/2026 #1");
    EXPECT_EQ(prices("Mallet"), "6.25, Bolt, 3/2/2026 #2");
    colleagueWrites("000002", "000002", "000009");  // no longer a document of that order
    std::filesystem::remove(data("000001.htm"));
    readAll();
    EXPECT_EQ(prices("Hammer") + prices("Mallet"), "");
}

TEST_F(LastPaidTest, OnlyAFewPricesAreKeptAndAnOrderIsThereOnce) {
    for (int i = 1; i <= 12; ++i)
        saveOrder("Acme", "3/" + std::to_string(i) + "/2026", line("Nail", std::to_string(i)));
    Order order = this->order();
    order.lines.assign(50, line("Nail", "0.99"));
    given(order);
    type(&Order::ByEd, "Ann");
    save();
    readAll();
    EXPECT_EQ(prices({"", "Nail", "ea", "", "Acme"}).substr(0, 44),
              "0.99, 3/12/2026 #2; 11.00, 3/11/2026 #1; 10.");
    EXPECT_EQ(lastPaid().of({"", "Nail", "ea"}).size(), 5U);
}

#ifndef _WIN32
TEST_F(LastPaidTest, ItStopsQuietlyWhenTheServerFails) {
    for (const char* cost : {"1", "2", "3", "4", "5"})
        saveOrder("Acme", "3/1/2026", line("Nail", cost));
    for (const int error : {EIO, EACCES}) {
        SCOPED_TRACE(error);
        start();
        screen.failures.clear();
        {
            const Watch watch(
                {error, [](const Statement& call) { return call.path.extension() == ".htm"; },
                 true},
                1);
            EXPECT_EQ(readAll(), 0);
        }
        EXPECT_FALSE(lastPaid().hasMore());
        EXPECT_EQ(waits, 0);
        EXPECT_TRUE(screen.failures.empty());
        touch("po_data.dat");
        program().lookForNews();  // the server is there again
        EXPECT_EQ(readAll(), 5);
    }
}
#endif

}  // namespace
}  // namespace bramblet::test
