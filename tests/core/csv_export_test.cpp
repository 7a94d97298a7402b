#include "core/orders/csv_export.h"

#include "support/office.h"
#include "support/regions.h"

namespace bramblet::test {
namespace {

const std::string kHeadings =
    "\"Number\",\"Job\",\"Order Date\",\"Vendor\",\"Ship To\",\"Ship Date\",\"Total\","
    "\"Shipping\",\"Tax\",\"Net\",\"Discount\",\"List\"\r\n";

std::string csvOf(const std::vector<OrderIndexRecord>& records, const RegionalFormats& formats) {
    OrderRecords rows(records.size());
    for (const auto& record : records)
        rows.put(rows.size(), encodeRecord(kOrderIndexLayout, record));
    return ordersAsCsv(rows, formats);
}

TEST(OrdersAsCsv, EachOrderIsOneLineInTheFormatsOfTheRegion) {
    const std::string vendor = fitted("Acme, \"Supply\"", 60);
    OrderIndexRecord record{"A",          "000123",  "J-7         ", kToday,   vendor,
                            "Depot     ", 46101.5,   {12981250},     {100000}, {73100},
                            {1125000},    {-125000}, {1250000}};
    EXPECT_EQ(csvOf({record}, enUS()),
              kHeadings +
                  "\"000123\",\"J-7\",\"3/4/2026\",\"Acme, \"Supply\"\",\"Depot\","
                  "\"3/20/2026\",\"$1,298.13\",\"$10.00\",\"$7.31\",\"$112.50\","
                  "\"($12.50)\",\"$125.00\"\r\n");
    EXPECT_TRUE(contains(csvOf({record}, deDE()), "\"1.298,13\xA0\x80\""));
    record.Status = "D";
    EXPECT_EQ(csvOf({record}, enUS()), kHeadings) << "a deleted order is left out";
    OrderIndexRecord blank;
    blank.Status = "a";
    blank.Job = std::string(12, '\0');
    EXPECT_EQ(csvOf({record, blank, record}, enUS()),
              kHeadings +
                  "\"\",\"\",\"\",\"\",\"\",\"\",\"$0.00\",\"$0.00\",\"$0.00\","
                  "\"$0.00\",\"$0.00\",\"$0.00\"\r\n");
}

class CsvExportFlow : public Office {
  protected:
    void SetUp() override {
        start();
        newOrder();
    }
    void exportTo(const std::optional<std::filesystem::path>& path,
                  std::optional<Answer> replace = {}, std::optional<Answer> open = {}) {
        prompts.expectChoice("Orders.csv", path);
        if (replace) prompts.expect(replaceQuestion(), *replace);
        if (open) {
            prompts.expect({"Data has been exported to " + shown(target) +
                                "\r\n\r\nWe can try to open it in your default spreadsheet program "
                                "now - proceed?",
                            "Export Complete", Buttons::YesNo, Icon::Information, Answer::No},
                           *open);
        }
        program().csvExport.mu_DataExport_Click();
    }

    const std::filesystem::path target = documents / "Orders.csv";
};

TEST_F(CsvExportFlow, TheFileIsWrittenAndOpenedOnlyWhenWanted) {
    exportTo(std::nullopt);
    EXPECT_EQ(prompts.lastChoice.filters.at(0).name, "Comma Separated Values");
    EXPECT_EQ(prompts.lastChoice.filters.at(0).pattern, "*.CSV");
    EXPECT_FALSE(os::exists(target));

    exportTo(target, {}, Answer::No);
    EXPECT_TRUE(contentOf(target).starts_with(kHeadings));
    EXPECT_TRUE(contains(contentOf(target), "\"000001\""));
    EXPECT_TRUE(desktop.asked.empty());

    writeFile(target, "old");
    exportTo(target, Answer::No);
    EXPECT_EQ(contentOf(target), "old");
    exportTo(target, Answer::Yes, Answer::Yes);
    EXPECT_TRUE(contentOf(target).starts_with(kHeadings));
    EXPECT_EQ(desktop.asked, std::vector{"open " + shown(target)});

    writeFile(target, "");  // nothing to lose: no question
    desktop.opens = false;
    exportTo(target, {}, Answer::Yes);
    expectSaid("No program");
}

TEST_F(CsvExportFlow, AnUnwritableTargetSaysSo) {
    obstruct(target);
    for (const auto& path : {documents / "nowhere/Orders.csv", target}) {
        screen.lastLine.clear();
        exportTo(path);
        expectSaid("not exported");
    }
    EXPECT_EQ(waits, 0);
}

}  // namespace
}  // namespace bramblet::test
