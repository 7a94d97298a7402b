#include "core/orders/spending.h"

#include "support/office.h"

#include <limits>

namespace bramblet::test {
namespace {

using enum SpendingPart;

class SpendingTest : public Office {
  protected:
    void SetUp() override { start(); }
    Spending& spending() { return program().spending; }
    SavedOrders& list() { return program().savedOrders; }
    void add(const std::string& vendor, std::int64_t cents, double date = kToday,
             const std::string& status = "A") {
        OrderIndexRecord record;
        record.Status = status;
        record.Number = std::to_string(++orders_);
        record.Vendor = vendor;
        record.OrderDate = date;
        record.OrderTotal = Currency{cents * 100};
        index_ += encodeRecord(kOrderIndexLayout, record);
    }
    /// Lists what has been added, and opens the window.
    void addUp() {
        writeFile(data("po_data.dat"), index_);
        list().PopPOGrid();
        spending().mu_Spending_Click();
    }
    std::string bars(SpendingPart part) {
        std::string all;
        for (const SpendingBar& bar : spending().bars(part))
            all += (all.empty() ? "" : "; ") + bar.name + " " + bar.amount;
        return all;
    }
    std::string table(SpendingPart part) {
        std::string all;
        const SpendingTable& table = spending().table(part);
        for (int row = 0; row < table.rowCount(); ++row) {
            all += (row == 0 ? "" : "; ") + table.cell(row, 0) + " " + table.cell(row, 1) + " " +
                   table.cell(row, 2);
        }
        return all;
    }
    std::string listed() {
        std::string numbers;
        for (int row = 0; row < list().rowCount(); ++row)
            numbers += (row == 0 ? "" : " ") + list().number(row);
        return numbers;
    }

  private:
    std::string index_;
    int orders_ = 0;
};

TEST_F(SpendingTest, ListedPurchaseOrdersAddUpExactly) {
    constexpr DayCount kMarch = kToday;
    for (int i = 0; i < 10; ++i)
        add("Acme", 10, kMarch);
    add("ACME ", 1, kMarch - 92, "a");  // 2 December 2025
    add("Bolt & Co", 9'007'199'254'740'993, 0);
    add("", 5, std::numeric_limits<double>::quiet_NaN());
    add("Quoted", 700, kMarch, "R");
    add("Gone", 800, kMarch, "D");
    addUp();
    EXPECT_EQ(screen.opened, std::vector<std::string>{"spending"});
    EXPECT_EQ(
        spending().summary(),
        "13 purchase orders, received or not: $90,071,992,547,410.99, with tax and shipping.");
    EXPECT_EQ(spending().explanation(),
              "Only what is listed counts: 14 orders listed. 1 requisition or request for quote "
              "($7.00) not counted.");
    EXPECT_EQ(table(ByVendor),
              "Bolt & Co 1 $90,071,992,547,409.93; ACME 11 $1.01; (no vendor) 1 $0.05");
    EXPECT_EQ(table(ByMonth),
              "March 2026 10 $1.00; December 2025 1 $0.01; "
              "(no date) 2 $90,071,992,547,409.98");
    EXPECT_EQ(bars(ByMonth),
              "March 2026 $1.00; February 2026 $0.00; January 2026 $0.00; "
              "December 2025 $0.01; (no date) $90,071,992,547,409.98");
    spending().table(ByMonth).sortBy(0);
    EXPECT_EQ(spending().table(ByMonth).cell(1, 0), "December 2025");

    list().find("acme");
    spending().mu_Spending_Click();
    EXPECT_EQ(table(ByVendor), "ACME 11 $1.01");
    list().find("");
    list().ListCheck_Click(&SavedOrders::ListCheckPO, false);
    spending().mu_Spending_Click();
    EXPECT_EQ(table(ByVendor), "ACME 1 $0.01");
    EXPECT_EQ(spending().bars(ByVendor).front().length, 1);
}

TEST_F(SpendingTest, ABarListsItsOrdersUntilThatIsGivenUp) {
    for (int vendor = 1; vendor <= 12; ++vendor)
        add("Vendor " + std::to_string(vendor), 100 * vendor, kToday - 40 * vendor);
    add("Vendor 1", 0, kToday, "R");
    addUp();
    EXPECT_EQ(spending().bars(ByVendor).size(), 11U);
    const SpendingBar others = spending().bars(ByVendor).back();
    EXPECT_EQ(others.words, "Others (2): $3.00, 2 orders");
    spending().listOrders(ByVendor, others);
    EXPECT_EQ(listed(), "2 1");
    EXPECT_EQ(list().shownOnly(), "Others (2)");
    EXPECT_EQ(list().countText(), "2 of 13 orders listed");
    add("Vendor 99", 1);  // a colleague's
    addUp();
    EXPECT_EQ(listed(), "14 2 1");
    list().find("99");
    EXPECT_EQ(listed(), "14");
    list().find("");
    EXPECT_EQ(listed(), "14 2 1");
    list().showAll();
    EXPECT_EQ(list().rowCount(), 14);
    addUp();
    spending().listOrders(ByVendor, 0);
    EXPECT_EQ(listed(), "12");
    list().showAll();
    addUp();
    spending().listOrders(ByMonth, spending().bars(ByMonth).front());
    EXPECT_EQ(listed(), "14");
}

TEST_F(SpendingTest, OnlySoManyMonthsHaveBars) {
    for (int month = 0; month < 60; ++month)
        add("Acme", 100, kToday - 365 - 31 * month);
    add("Acme", 100, 60000);  // in 2064: mistyped
    addUp();
    EXPECT_EQ(spending().bars(ByMonth).size(), 24U);
    EXPECT_EQ(spending().bars(ByMonth)[1].name, "March 2025");
    EXPECT_TRUE(spending().note().ends_with("earlier months are in the table only."));
}

TEST_F(SpendingTest, ThereMayBeNothingToShow) {
    add("Quoted", 1, kToday, "R");
    prompts.expect(
        notice("No purchase orders are listed, so there is nothing to add up.", "Spending"));
    addUp();
    for (int i = 0; i < 2; ++i)
        add("Acme", std::numeric_limits<std::int64_t>::max() / 100);
    prompts.expect(notice("The orders listed cannot be added up: Overflow (error 6).", "Spending",
                          Icon::Exclamation));
    addUp();
    EXPECT_TRUE(screen.opened.empty());
}

}  // namespace
}  // namespace bramblet::test
