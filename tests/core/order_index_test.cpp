#include "core/orders/order_index.h"

#include "support/office.h"
#include "support/regions.h"

#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;

class OrderIndexTest : public ::testing::Test {
  protected:
    OrderIndex index(const RegionalFormats& formats = kFormats) const {
        return OrderIndex(FileSystem(), path(), formats, fixedClock());
    }
    std::filesystem::path path() const { return folder_ / "po_data.dat"; }
    std::string bytes() const { return contentOf(path()); }
    static Order numbered(const std::string& number) {
        Order order;
        order.PONoEd = number;
        return order;
    }

    inline static const RegionalFormats kFormats = enUS();
    TemporaryFolder folder_;
};

std::string padded(const std::string& text, std::size_t width) {
    return text + std::string(width - text.size(), ' ');
}

TEST_F(OrderIndexTest, ARecordToTheByte) {
    Order order = numbered(" 000123 ");
    order.kind = OrderKind::Requisition;
    order.MarkReceivedCheck = true;
    order.JobNumberEd = " J-77";
    order.OrderDateEd = "3/4/26";
    order.ToCombo = "Caf\xE9 Supply";
    order.ShipToCombo = std::string(70, 'w');
    order.OrderTotalEd = "$1,234.50";
    order.ShippingEd = "";
    order.SalesTaxEd = "0.01";
    order.NetTotalEd = "-2.00";
    order.DiscountEd = "none";
    order.SubTotalEd = "922,337,203,685.00";
    index().RecordData(order);
    // 46,085 days, as a double
    const std::string date("\0\0\0\0\xA0\x80\xE6\x40", 8);
    const std::string expected =
        "r000123" + padded("J-77", 12) + date + padded("Caf\xE9 Supply", 60) +
        std::string(60, 'w') + std::string(8, '\0') +
        std::string("\xA8\x5E\xBC\0\0\0\0\0", 8) +         // 12,345,000
        std::string(8, '\0') +                             //
        std::string("\x64\0\0\0\0\0\0\0", 8) +             // 100
        std::string("\x20\x4E\0\0\0\0\0\0", 8) +           // 20,000: a minus sign falls away
        std::string(8, '\0') +                             //
        std::string("\x50\x41\xE3\xA5\x9B\xC4\x20\0", 8);  // 9,223,372,036,850,000
    EXPECT_EQ(bytes(), expected);
}

TEST_F(OrderIndexTest, StatusFollowsKindAndReceivedMark) {
    Order order;
    EXPECT_EQ(statusOf(order), "A");
    order.MarkReceivedCheck = true;
    EXPECT_EQ(statusOf(order), "a");
    order.kind = OrderKind::Requisition;
    EXPECT_EQ(statusOf(order), "r");
    order.MarkReceivedCheck = false;
    EXPECT_EQ(statusOf(order), "R");
}

TEST_F(OrderIndexTest, NumbersGoOnFromTheHighestDeletedOnesIncluded) {
    EXPECT_EQ(index().NextPONumber(), 1);
    for (const char* number : {"000007", "PO12", "3", "1.2.3"})
        index().RecordData(numbered(number));
    EXPECT_EQ(index().NextPONumber(), 13);
    EXPECT_TRUE(index().markDeleted("PO12"));
    EXPECT_EQ(index().NextPONumber(), 13);
}

TEST_F(OrderIndexTest, SavingAgainRewritesTheFirstRecordOfTheNumber) {
    const std::string other = std::string("A") + padded("000002", 202);
    const std::string twin = std::string("A") + padded("000001", 202);
    writeFile(path(), other + twin + twin);
    Order order = numbered("000001");
    order.JobNumberEd = "first";
    index().RecordData(order);
    EXPECT_EQ(bytes().size(), 3 * 203u);
    EXPECT_EQ(bytes().substr(203 + 7, 5), "first");
    EXPECT_EQ(bytes().substr(2 * 203), twin);
    EXPECT_TRUE(index().markDeleted("000001"));
    EXPECT_EQ(bytes()[203], 'D');
    EXPECT_EQ(bytes()[2 * 203], 'A');
    // Leading zeros count: this is another order.
    index().RecordData(numbered("1"));
    EXPECT_EQ(bytes().size(), 4 * 203u);
}

TEST_F(OrderIndexTest, DeletingKeepsTheRecordsOtherBytes) {
    std::string record(203, '\0');
    for (std::size_t i = 0; i < record.size(); ++i)
        record[i] = static_cast<char>(i);
    record.replace(0, 7, "A000009");
    writeFile(path(), record);
    EXPECT_TRUE(index().markDeleted(" 000009"));
    record[0] = 'D';
    EXPECT_EQ(bytes(), record);
    EXPECT_FALSE(index().markDeleted("000010"));
}

TEST_F(OrderIndexTest, PendingOrdersAndUnreadableDatesWriteNothing) {
    index().RecordData(numbered(" (PEND)"));
    EXPECT_FALSE(FileSystem().exists(path()));
    Order order = numbered("000001");
    order.ShipDateEd = "33/3/26";
    try {
        index().RecordData(order);
        FAIL();
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.inWords(), "\"33/3/26\" in the box On Site is not a date");
    }
    EXPECT_FALSE(FileSystem().exists(path()));
}

TEST_F(OrderIndexTest, CountsAreRoundedAndSixteenBit) {
    writeFile(path(),
              padded("A000001", 203) + std::string("A000002").substr(0, 7) + std::string(100, ' '));
    EXPECT_EQ(index().readAll().size(), 2u);  // 310 bytes are nearer to two records
    writeFile(path(), padded("A000001", 203) + std::string(101, ' '));
    EXPECT_EQ(index().readAll().size(), 1u);
    writeFile(path(), std::string(32767 * 203, ' '));
    EXPECT_EQ(index().readAll().size(), 32767u);
    EXPECT_THROW(index().RecordData(numbered("000001")), Fault);
    writeFile(path(), std::string(32768 * 203, ' '));
    EXPECT_THROW(index().readAll(), Fault);
}

TEST_F(OrderIndexTest, AmountsOfOtherRegionsAreReadAsShown) {
    static const RegionalFormats german = deDE();
    Order order = numbered("000001");
    order.OrderTotalEd = "1.234,50";
    order.OrderDateEd = "04.03.2026";
    index(german).RecordData(order);
    const OrderIndexRecord record = index(german).readAll().front();
    EXPECT_EQ(record.OrderTotal.tenThousandths, 12345000);
    EXPECT_EQ(record.OrderDate, kToday);
}

}  // namespace
}  // namespace bramblet
