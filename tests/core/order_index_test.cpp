#include "core/orders/order_index.h"

#include "core/platform/record_file.h"
#include "support/office.h"
#include "support/regions.h"
#include "support/sample_orders.h"

namespace bramblet::test {
namespace {

class OrderIndexTest : public ::testing::Test {
  protected:
    OrderIndex index() const {
        return {FileSystem(), folder_ / "po_data.dat", formats_, fixedClock()};
    }
    bool exists() const { return os::exists(folder_ / "po_data.dat"); }
    std::string bytes() const { return contentOf(folder_ / "po_data.dat"); }
    void write(const std::string& bytes) const { writeFile(folder_ / "po_data.dat", bytes); }
    static Order numbered(const std::string& number) {
        return orderWith({{&Order::PONoEd, number}});
    }

    RegionalFormats formats_ = enUS();
    TemporaryFolder folder_;
};

TEST_F(OrderIndexTest, ARecordToTheByte) {
    Order order = orderWith({{&Order::PONoEd, " 000123 "},
                             {&Order::JobNumberEd, " J-77"},
                             {&Order::OrderDateEd, "3/4/26"},
                             {&Order::ToCombo, "Caf\xE9 Supply"},
                             {&Order::OrderTotalEd, "$1,234.50"},
                             {&Order::ShipToCombo, std::string(70, 'w')},
                             {&Order::ShippingEd, ""},
                             {&Order::SalesTaxEd, "0.01"},
                             {&Order::NetTotalEd, "-2.00"},
                             {&Order::DiscountEd, "none"},
                             {&Order::SubTotalEd, "922,337,203,685.00"}});
    order.kind = OrderKind::Requisition;
    order.MarkReceivedCheck = true;
    index().RecordData(order);
    const std::string date("\0\0\0\0\xA0\x80\xE6\x40", 8);  // 46,085 days, as a double
    const std::string zero(8, '\0');
    const std::string expected =
        "r000123" + fitted("J-77", 12) + date + fitted("Caf\xE9 Supply", 60) +
        std::string(60, 'w') + zero + std::string("\xA8\x5E\xBC\0\0\0\0\0", 8) +  // 12,345,000
        zero + std::string("\x64\0\0\0\0\0\0\0", 8) +                             // 100
        std::string("\x20\x4E\0\0\0\0\0\0", 8) +                  // 20,000: a minus sign falls away
        zero + std::string("\x50\x41\xE3\xA5\x9B\xC4\x20\0", 8);  // 9,223,372,036,850,000
    EXPECT_EQ(bytes(), expected);
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
    const std::string twin = fitted("A000001", 203);
    write(fitted("A000002", 203) + twin + twin);
    index().RecordData(orderWith({{&Order::PONoEd, "000001"}, {&Order::JobNumberEd, "first"}}));
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
    write(record);
    EXPECT_TRUE(index().markDeleted(" 000009"));
    EXPECT_EQ(bytes(), record.replace(0, 1, "D"));
    EXPECT_FALSE(index().markDeleted("000010"));
}

TEST_F(OrderIndexTest, PendingOrdersAndWhatCannotBeReadWriteNothing) {
    index().RecordData(numbered(" (PEND)"));
    const auto expectBlamed = [&](OrderField box, const char* text, const char* words) {
        try {
            index().RecordData(orderWith({{&Order::PONoEd, "1"}, {box, text}}));
            ADD_FAILURE() << "no fault";
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.inWords(), words);
        }
    };
    expectBlamed(&Order::ShipDateEd, "33/3/26", "\"33/3/26\" in the box On Site is not a date");
    expectBlamed(&Order::NetTotalEd, "1.2.3", "\"1.2.3\" in the box Total (Net) is not an amount");
    EXPECT_FALSE(exists());
}

TEST_F(OrderIndexTest, CountsAreRoundedAndSixteenBit) {
    const auto recordsIn = [&](std::size_t length) {
        write(std::string(length, ' '));
        return index().readAll().size();
    };
    EXPECT_EQ(recordsIn(203 + 102), 2u) << "nearer to two records";
    EXPECT_EQ(recordsIn(203 + 101), 1u);
    EXPECT_EQ(recordsIn(32767 * 203), 32767u);
    EXPECT_THROW(index().RecordData(numbered("000001")), Fault);
    EXPECT_THROW(recordsIn(32768 * 203), Fault);
}

TEST_F(OrderIndexTest, AFileThatIsCutWhileItIsOpenIsReadToItsEnd) {
    constexpr std::size_t kSize = recordSize(kOrderIndexLayout);
    write(std::string(1000 * kSize, 'x'));
    const RecordFile<kOrderIndexLayout> file(FileSystem(), folder_ / "po_data.dat");
    EXPECT_EQ(file.readAll().size(), 1000u);
    for (const std::size_t whole : {900, 3, 0}) {
        std::filesystem::resize_file(folder_ / "po_data.dat", whole * kSize + 50);
        const OrderRecords records = file.readAll();
        ASSERT_EQ(records.size(), whole + 1);
        EXPECT_EQ(records.back().bytes(), std::string(50, 'x') + std::string(kSize - 50, '\0'));
    }
}

TEST_F(OrderIndexTest, AmountsOfOtherRegionsAreReadAsShown) {
    formats_ = deDE();
    index().RecordData(orderWith({{&Order::PONoEd, "000001"},
                                  {&Order::OrderTotalEd, "1.234,50"},
                                  {&Order::OrderDateEd, "04.03.2026"}}));
    const OrderIndexRecord record = index().readAll()[0].record();
    EXPECT_EQ(record.OrderTotal.tenThousandths, 12345000);
    EXPECT_EQ(record.OrderDate, kToday);
}

}  // namespace
}  // namespace bramblet::test
