#include "core/platform/amount_text.h"
#include "core/platform/fault.h"
#include "support/regions.h"

#include <gtest/gtest.h>
#include <limits>

namespace bramblet {
namespace {

using namespace test;

TEST(Currency, FloatingValuesRoundToTenThousandthsHalvesToEven) {
    const std::vector<std::pair<double, std::int64_t>> cases{
        {0.00005, 0},          {0.00015, 2},     {0.00025, 2},
        {-0.00015, -2},        {1.00005, 10000}, {1.23456, 12346},
        {19.99 * .075, 14992}, {50.005, 500050}, {922337203685477.5, 9223372036854775000},
        {0.1 + 0.2, 3000},
    };
    for (const auto& [value, count] : cases) {
        EXPECT_EQ(toCurrency(value).tenThousandths, count) << value;
    }
}

TEST(Currency, LeavingTheRangeIsAnOverflow) {
    const Currency most{std::numeric_limits<std::int64_t>::max()};
    const Currency least{std::numeric_limits<std::int64_t>::min()};
    EXPECT_THROW(most + Currency{1}, Fault);
    EXPECT_THROW(least - Currency{1}, Fault);
    EXPECT_THROW(toCurrency(922337203685477.6), Fault);
    EXPECT_THROW(toCurrency(std::numeric_limits<double>::infinity()), Fault);
    EXPECT_EQ(standardText(least, enUS()), "-922,337,203,685,477.58");
}

TEST(Amounts, CleaningKeepsDigitsAndSeparators) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"$1,250.00", "1,250.00"}, {"-12.5", "12.5"}, {"abc", "0"}, {"", "0"}, {" 2 pcs ", "2"}};
    for (const auto& [typed, cleaned] : cases)
        EXPECT_EQ(cleanedNumber(typed), cleaned) << typed;
    std::string text = "  $5 ";
    EXPECT_EQ(CleanNumber(text), "5");
    EXPECT_EQ(text, "$5");
}

struct Reading {
    RegionalFormats formats;
    const char* text;
    double value;
};

TEST(Amounts, AreReadInTheUsersRegion) {
    const std::vector<Reading> cases{
        {enUS(), "1,234.50", 1234.5},
        {enUS(), "$ 1,234.5", 1234.5},
        {enUS(), "-5", -5},
        {enUS(), "-$5.00", -5},
        {enUS(), ".5", .5},
        {enUS(), "5.", 5},
        {deDE(), "1.234,50", 1234.5},
        {deDE(), "1.234,50 \x80", 1234.5},
        {frFR(),
         "1\xA0"
         "234,50",
         1234.5},
        {frFR(), "1 234,50", 1234.5},
        {enIN(), "12,34,567.5", 1234567.5},
        {jaJP(),
         "\xA5"
         "1,234",
         1234},
    };
    for (const auto& reading : cases) {
        EXPECT_EQ(numberOf(reading.text, reading.formats), reading.value) << reading.text;
    }
    for (const char* text : {"", "1.2.3", "abc", "5 pcs", ",5", "1.5,0", ".", "1e5", "--5"}) {
        EXPECT_THROW(numberOf(text, enUS()), Fault) << text;
    }
}

struct Written {
    RegionalFormats formats;
    const char* standard;
    const char* currency;
    const char* negative;
};

TEST(Amounts, AreWrittenInTheUsersRegion) {
    const std::vector<Written> cases{
        {enUS(), "1,234,567.50", "$1,234,567.50", "($2.00)"},
        {enGB(), "1,234,567.50",
         "\xA3"
         "1,234,567.50",
         "-\xA3"
         "2.00"},
        {deDE(), "1.234.567,50", "1.234.567,50\xA0\x80", "-2,00\xA0\x80"},
        {frFR(),
         "1\xA0"
         "234\xA0"
         "567,50",
         "1\xA0"
         "234\xA0"
         "567,50\xA0\x80",
         "-2,00\xA0\x80"},
        {enIN(), "12,34,567.50", "INR12,34,567.50", "-INR2.00"},
        {jaJP(), "1,234,567.50",
         "\xA5"
         "1,234,568",
         "-\xA5"
         "2"},
    };
    for (const auto& written : cases) {
        EXPECT_EQ(standardText(1234567.5, written.formats), written.standard);
        EXPECT_EQ(currencyText(1234567.5, written.formats), written.currency);
        EXPECT_EQ(currencyText(Currency{-20000}, written.formats), written.negative);
        EXPECT_EQ(amountOf(written.standard, written.formats).tenThousandths, 12345675000);
    }
}

TEST(Amounts, RoundOnDecimalDigitsHalvesAwayFromZero) {
    EXPECT_EQ(standardText(50.005, enUS()), "50.01");
    EXPECT_EQ(standardText(1.005, enUS()), "1.01");
    EXPECT_EQ(standardText(2.675, enUS()), "2.68");
    EXPECT_EQ(standardText(-0.005, enUS()), "-0.01");
    EXPECT_EQ(standardText(0.004, enUS()), "0.00");
    EXPECT_EQ(standardText(999.995, enUS()), "1,000.00");
    EXPECT_EQ(standardText(Currency{5}, enUS()), "0.00");
    EXPECT_EQ(standardText(Currency{50}, enUS()), "0.01");
}

TEST(Amounts, TextsThatAreNoAmountStayAsTheyAre) {
    EXPECT_EQ(currencyText(std::string("by quote"), enUS()), "by quote");
    EXPECT_EQ(currencyText(std::string(), enUS()), "");
    EXPECT_EQ(currencyText(std::string("1,200"), enUS()), "$1,200.00");
}

TEST(Amounts, GeneralAndExactTexts) {
    EXPECT_EQ(generalText(.065 * 100, enUS()), "6.5");
    EXPECT_EQ(generalText(.07 * 100, enUS()), "7");
    EXPECT_EQ(generalText(.1925 * 100, deDE()), "19,25");
    EXPECT_EQ(generalText(7855, enUS()), "7855");
    EXPECT_EQ(exactText(Currency{12500}, enUS()), "1.25");
    EXPECT_EQ(exactText(Currency{1234}, enUS()), "0.1234");
    EXPECT_EQ(exactText(Currency{12345678900}, enUS()), "1,234,567.89");
}

}  // namespace
}  // namespace bramblet
