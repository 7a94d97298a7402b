#include "core/orders/csv_export.h"

#include "support/office.h"
#include "support/regions.h"

#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;

constexpr const char* kHeadings =
    "\"Number\",\"Job\",\"Order Date\",\"Vendor\",\"Ship To\",\"Ship Date\",\"Total\","
    "\"Shipping\",\"Tax\",\"Net\",\"Discount\",\"List\"\r\n";

OrderIndexRecord sampleRecord() {
    OrderIndexRecord record;
    record.Status = "A";
    record.Number = "000123";
    record.Job = "J-7         ";
    record.OrderDate = 46085;
    record.ShipDate = 46101.5;
    record.Vendor = fitted("Acme, \"Supply\"", 60);
    record.ShipTo = fitted("Depot", 60);
    record.OrderTotal = toCurrency(1298.125);
    record.Shipping = toCurrency(10);
    record.SalesTax = toCurrency(7.31);
    record.NetTotal = toCurrency(112.5);
    record.Discount = toCurrency(-12.5);
    record.SubTotal = toCurrency(125);
    return record;
}

TEST(OrdersAsCsv, EachOrderIsOneLineInTheFormatsOfTheRegion) {
    EXPECT_EQ(
        ordersAsCsv({sampleRecord()}, enUS()),
        kHeadings + std::string("\"000123\",\"J-7\",\"3/4/2026\",\"Acme, \"Supply\"\",\"Depot\","
                                "\"3/20/2026\",\"$1,298.13\",\"$10.00\",\"$7.31\",\"$112.50\","
                                "\"($12.50)\",\"$125.00\"\r\n"));
    EXPECT_NE(ordersAsCsv({sampleRecord()}, deDE()).find("\"1.298,13\xA0\x80\""),
              std::string::npos);
}

TEST(OrdersAsCsv, BlankDatesAndFieldsNeverSetAreEmptyAndDeletedOrdersAreLeftOut) {
    OrderIndexRecord blank;
    blank.Status = "a";
    blank.Job = std::string(12, '\0');
    OrderIndexRecord deleted = sampleRecord();
    deleted.Status = "D";
    EXPECT_EQ(ordersAsCsv({deleted, blank, deleted}, enUS()),
              kHeadings + std::string("\"\",\"\",\"\",\"\",\"\",\"\",\"$0.00\",\"$0.00\",\"$0.00\","
                                      "\"$0.00\",\"$0.00\",\"$0.00\"\r\n"));
    EXPECT_EQ(ordersAsCsv({deleted}, enUS()), kHeadings);
}

class CsvExportFlow : public Office {
  protected:
    void SetUp() override {
        start();
        newOrder();
    }
    void exportTo(const std::optional<std::filesystem::path>& path) {
        prompts.expectChoice("Orders.csv", path);
    }
    Message finished() const {
        return {"Data has been exported to " + shown(target) +
                    "\r\n\r\nWe can try to open it in your default spreadsheet program now - "
                    "proceed?",
                "Export Complete", Buttons::YesNo, Icon::Information, Answer::No};
    }
    void run() { program().csvExport.mu_DataExport_Click(); }

    const std::filesystem::path target = documents / "Orders.csv";
    const Message replace{"File already exists - do you want to replace it?", "Confirm",
                          Buttons::YesNo, Icon::Exclamation};
};

TEST_F(CsvExportFlow, TheFileIsWrittenAndOpenedOnlyWhenWanted) {
    exportTo(std::nullopt);
    run();
    EXPECT_EQ(prompts.lastChoice.filters.at(0).name, "Comma Separated Values");
    EXPECT_EQ(prompts.lastChoice.filters.at(0).pattern, "*.CSV");
    EXPECT_FALSE(FileSystem().exists(target));

    exportTo(target);
    prompts.expect(finished(), Answer::No);
    run();
    EXPECT_EQ(contentOf(target).find(kHeadings), 0u);
    EXPECT_NE(contentOf(target).find("\"000001\""), std::string::npos);
    EXPECT_TRUE(desktop.asked.empty());

    writeFile(target, "old");
    exportTo(target);
    prompts.expect(replace, Answer::No);
    run();
    EXPECT_EQ(contentOf(target), "old");

    exportTo(target);
    prompts.expect(replace, Answer::Yes);
    prompts.expect(finished(), Answer::Yes);
    run();
    EXPECT_EQ(contentOf(target).find(kHeadings), 0u);
    EXPECT_EQ(desktop.asked, std::vector{"open " + shown(target)});

    writeFile(target, "");  // nothing to lose: no question
    exportTo(target);
    prompts.expect(finished(), Answer::Yes);
    desktop.opens = false;
    run();
    EXPECT_NE(prompts.lastLine.find("No program"), std::string::npos);
}

TEST_F(CsvExportFlow, AnUnwritableTargetSaysSo) {
    exportTo(documents / "nowhere/Orders.csv");
    run();
    EXPECT_NE(prompts.lastLine.find("not exported"), std::string::npos);
    prompts.lastLine.clear();
    std::filesystem::create_directory(target);
    exportTo(target);
    run();
    EXPECT_NE(prompts.lastLine.find("not exported"), std::string::npos);
    EXPECT_EQ(waits, 0);
}

}  // namespace
}  // namespace bramblet
