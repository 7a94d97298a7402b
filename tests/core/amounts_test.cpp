#include "core/platform/amount_text.h"
#include "core/platform/fault.h"
#include "support/regions.h"

#include <gtest/gtest.h>
#include <limits>

namespace bramblet::test {
namespace {

TEST(Currency, FloatingValuesRoundToTenThousandthsHalvesToEven) {
    const std::vector<std::pair<double, std::int64_t>> cases{
        {0.00005, 0},          {0.00015, 2},     {0.00025, 2},
        {-0.00015, -2},        {1.00005, 10000}, {1.23456, 12346},
        {19.99 * .075, 14992}, {50.005, 500050}, {922337203685477.5, 9223372036854775000},
        {0.1 + 0.2, 3000},
    };
    for (const auto& [value, count] : cases)
        EXPECT_EQ(toCurrency(value).tenThousandths, count) << value;
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

TEST(Amounts, AreReadInTheUsersRegion) {
    const struct {
        RegionalFormats formats;
        const char* text;
        double value;
    } cases[] = {
        {enUS(), "1,234.50", 1234.5},
        {enUS(), "$ 1,234.5", 1234.5},
        {enUS(), "-5", -5},
        {enUS(), "-$5.00", -5},
        {enUS(), ".5", .5},
        {enUS(), "5.", 5},
        {deDE(), "1.234,50", 1234.5},
        {deDE(), "1.234,50 \x80", 1234.5},
        {frFR(), "1\240234,50", 1234.5},
        {frFR(), "1 234,50", 1234.5},
        {enIN(), "12,34,567.5", 1234567.5},
        {jaJP(), "\2451,234", 1234},
    };
    for (const auto& [formats, text, value] : cases)
        EXPECT_EQ(numberOf(text, formats), value) << text;
    for (const char* text : {"", "1.2.3", "abc", "5 pcs", ",5", "1.5,0", ".", "1e5", "--5"})
        EXPECT_THROW(numberOf(text, enUS()), Fault) << text;
}

TEST(Amounts, AreWrittenInTheUsersRegion) {
    const struct {
        RegionalFormats formats;
        const char *standard, *currency, *negative;
    } cases[] = {
        {enUS(), "1,234,567.50", "$1,234,567.50", "($2.00)"},
        {enGB(), "1,234,567.50", "\2431,234,567.50", "-\2432.00"},
        {deDE(), "1.234.567,50", "1.234.567,50\xA0\x80", "-2,00\xA0\x80"},
        {frFR(), "1\240234\240567,50", "1\240234\240567,50\xA0\x80", "-2,00\xA0\x80"},
        {enIN(), "12,34,567.50", "INR12,34,567.50", "-INR2.00"},
        {jaJP(), "1,234,567.50", "\2451,234,568", "-\2452"},
    };
    for (const auto& [formats, standard, currency, negative] : cases) {
        EXPECT_EQ(standardText(1234567.5, formats), standard);
        EXPECT_EQ(currencyText(1234567.5, formats), currency);
        EXPECT_EQ(currencyText(Currency{-20000}, formats), negative);
        EXPECT_EQ(amountOf(standard, formats).tenThousandths, 12345675000);
    }
}

TEST(Amounts, RoundOnDecimalDigitsHalvesAwayFromZero) {
    const std::vector<std::pair<double, std::string>> cases{
        {50.005, "50.01"}, {1.005, "1.01"}, {2.675, "2.68"},
        {-0.005, "-0.01"}, {0.004, "0.00"}, {999.995, "1,000.00"}};
    for (const auto& [value, text] : cases)
        EXPECT_EQ(standardText(value, enUS()), text);
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

TEST(AmountsInTables, AreReadWithoutJoiningOrDroppingDigits) {
    for (const char* cell :
         {"1204.5", "1,204.50", "$1,204.50", "EUR 1204.5", "1,204.5 ea", "1204.50\x80"})
        EXPECT_EQ(amountIn(cell, enUS()), 1204.5) << cell;
    EXPECT_EQ(amountIn(".5", enUS()), .5);
    EXPECT_EQ(amountIn("1.204,50 \x80", deDE()), 1204.5);
    for (const char* cell : {"4 boxes of 12", "1/2", "(12.50)", "12/31/2026", "Bolt M8", "M10",
                             "12,50", "-3", "3-", "12 m2", "one", "", "1.2.3"})
        EXPECT_FALSE(amountIn(cell, enUS())) << cell;
}

}  // namespace
}  // namespace bramblet::test
