#include "core/orders/csv_export.h"

#include "support/office.h"
#include "support/regions.h"
#include "support/sample_orders.h"

namespace bramblet::test {
namespace {

const std::string kHeadings =
    "\"Number\",\"Job\",\"Order Date\",\"Vendor\",\"Ship To\",\"Ship Date\",\"Total\","
    "\"Shipping\",\"Tax\",\"Net\",\"Discount\",\"List\"\r\n";

std::string replaced(std::string text, const std::string& part, const std::string& by) {
    EXPECT_TRUE(contains(text, part)) << part;
    return text.replace(text.find(part), part.size(), by);
}

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

TEST_F(CsvExportFlow, AnySpreadsheetReadsTheOtherFormsAsTheyAreMeant) {
    start(deDE());
    openOrder("000001");
    type(&Order::ToCombo, "Zo\xEB \"Oak\" & Co");
    type(&Order::OrderDateEd, "4.3.2026");
    addLine({"1.200", "ea", "Nails, 3\"", "0,125"});
    addLine({"2", "ea", "Glue", "1,5"});
    save();
    const auto saved = contentOf(data("000001.htm"));
    writeFile(data("000001.htm"), replaced(saved, "1,5\t3,00", "by weight\t-3,00"));
    prompts.filter = 1;
    exportTo(target, {}, Answer::No);
    EXPECT_EQ(contentOf(target).substr(0, 12), "\xEF\xBB\xBF\"Number\";");
    EXPECT_TRUE(contentOf(target).ends_with(
        "\"000001\";\"\";\"2026-03-04\";\"Zo\xC3\xAB \"\"Oak\"\" & Co\";\"\";\"\";153;0;0;153;0;"
        "153;\"Purchase Order\";\"no\"\r\n"))
        << contentOf(target);
    prompts.filter = 2;
    exportTo(target, Answer::Yes, Answer::No);
    const std::string order =
        "\"000001\";\"\";\"2026-03-04\";\"Zo\xC3\xAB \"\"Oak\"\" & Co\";\"\";\"Purchase "
        "Order\";\"no\";";
    EXPECT_TRUE(contentOf(target).ends_with(
        "\"File Number\"\r\n" + order + "1;1200;\"ea\";\"Nails, 3\"\"\";0,125;150;\"special\"\r\n" +
        order + "2;2;\"ea\";\"Glue\";\"by weight\";-3;\"special\"\r\n"))
        << contentOf(target);
}

TEST_F(CsvExportFlow, DocumentsThatCannotBeReadAreToldOf) {
    for (int more = 0; more < 3; ++more)
        newOrder();
    openOrder("000002");
    addLine({"1", "ea", "Saw", "9"});
    save();
    std::filesystem::remove(data("000001.htm"));
    writeFile(data("000003.htm"), stored("000002.htm"));
    program().index.markDeleted("000004");
    std::filesystem::remove(data("000004.htm"));
    prompts.filter = 2;
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        EXPECT_FALSE(os::exists(target));
        prompts.expectChoice("Orders.csv", target);
        prompts.expectSaying(
            "The lines of 2 orders are missing, their documents cannot be read: 000001, 000003"
            "\r\n\r\nExport the lines",
            answer);
        if (answer == Answer::Yes) prompts.expectSaying("Data has been exported", Answer::No);
        program().csvExport.mu_DataExport_Click();
    }
    expectSaid("missing");
    EXPECT_EQ(count(contentOf(target), "\"Saw\""), 1u);

    prompts.onStep = [](int done, int) { return done < 2; };
    exportTo(target, Answer::Yes);
    expectSaid("Nothing was exported");
    EXPECT_EQ(count(contentOf(target), "\"Saw\""), 1u) << "the older file is still there";
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
