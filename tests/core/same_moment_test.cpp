// Two desks at the same file in the same moment.

#include "core/orders/order_index.h"
#include "support/odd_share.h"
#include "support/office.h"
#include "support/sample_orders.h"

namespace bramblet::test {
namespace {

class SameMomentTest : public ::testing::Test {
  protected:
    ~SameMomentTest() override { oddities = {}; }
    OrderIndex index() const {
        return {FileSystem(), folder_ / "po_data.dat", formats_, fixedClock()};
    }
    void enter(const std::string& number) const {
        index().RecordData(orderWith({{&Order::PONoEd, number}}));
    }
    std::string numbers() const {
        std::string numbers;
        for (const OrderRow record : index().readAll())
            numbers += std::string(record.field<&OrderIndexRecord::Number>()) + " ";
        return numbers;
    }

    RegionalFormats formats_;
    TemporaryFolder folder_;
};

TEST_F(SameMomentTest, NobodysRecordTakesThePlaceOfAnothers) {
    enter("000001");
    oddities.afterRead = [&] { enter("000002"); };
    enter("000003");
    EXPECT_EQ(numbers(), "000001 000002 000003 ");

    const auto deleted = index().markDeleted("000003");
    std::filesystem::resize_file(folder_ / "po_data.dat", 2 * recordSize(kOrderIndexLayout));
    oddities.afterRead = [&] { enter("000004"); };
    EXPECT_TRUE(index().bringBack(deleted.value()));
    EXPECT_EQ(numbers(), "000001 000002 000004 000003 ");
}

TEST_F(SameMomentTest, AnEditIsMadeToWhatIsThereAtItsEnd) {
    const FileSystem files;
    const auto path = folder_ / "By_field.dat";
    files.replace(path, "Ann\r\n");
    oddities.afterRead = [&] { files.replace(path, "Ann\r\nBob\r\n"); };
    files.edit(path, [](const std::string& content) { return content + "Cy\r\n"; });
    EXPECT_EQ(files.read(path), "Ann\r\nBob\r\nCy\r\n");
}

TEST_F(SameMomentTest, AClaimThatADeadDeskHasLeftHoldsOthersUpForTenSeconds) {
    oddities.exchanges = false;
    const auto path = folder_ / "000001.htm";
    os::createFolder(folder_ / "~bramblet-000001.htm.claim");
    std::vector<int> waitedAt;
    const FileSystem waiting([&](const FileError&) {
        waitedAt.push_back(oddities.secondsAhead);
        oddities.secondsAhead += 6;
    });
    const auto replaceAny = [](const std::string&) { return true; };
    waiting.put(path, "mine", replaceAny, [](const std::filesystem::path&) {});
    EXPECT_EQ(waitedAt, (std::vector<int>{0, 6, 12}));
    EXPECT_EQ(contentOf(path), "mine");
    EXPECT_EQ(waiting.fileNames(folder_.path()).size(), 1u);
}

}  // namespace
}  // namespace bramblet::test
