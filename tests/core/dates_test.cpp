#include "core/platform/dates.h"

#include "support/office.h"
#include "support/regions.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace bramblet {
namespace {

using namespace test;

TEST(Dates, DayCountsStartOn30December1899) {
    EXPECT_EQ(toDayCount({1899, 12, 30}), 0);
    EXPECT_EQ(toDayCount({1900, 1, 1}), 2);
    EXPECT_EQ(toDayCount({2000, 2, 29}), 36585);
    EXPECT_EQ(toDayCount({2026, 3, 4}), kToday);
    EXPECT_EQ(toDayCount({1900, 2, 29}), std::nullopt);
    EXPECT_EQ(toDayCount({99, 1, 1}), std::nullopt);
}

TEST(Dates, EveryDayOfTwoCenturiesComesBack) {
    for (DayCount day = -1000; day < 73000; ++day)
        ASSERT_EQ(toDayCount(toCivilDate(day)), day);
}

TEST(Dates, ShortFormOfSixRegions) {
    const auto text = [](const RegionalFormats& formats) { return shortDateText(kToday, formats); };
    EXPECT_EQ(text(enUS()), "3/4/2026");
    EXPECT_EQ(text(enGB()), "04/03/2026");
    EXPECT_EQ(text(deDE()), "04.03.2026");
    EXPECT_EQ(text(frFR()), "04/03/2026");
    EXPECT_EQ(text(enIN()), "04/03/2026");
    EXPECT_EQ(text(jaJP()), "2026/03/04");
}

TEST(Dates, AFractionIsTheTimeOfDayAndNonsenseIsEmpty) {
    EXPECT_EQ(shortDateText(kToday + 0.75, enUS()), "3/4/2026");
    EXPECT_EQ(shortDateText(1e300, enUS()), "");
    EXPECT_EQ(shortDateText(-1e300, enUS()), "");
    EXPECT_EQ(shortDateText(std::numeric_limits<double>::quiet_NaN(), enUS()), "");
}

struct Typed {
    RegionalFormats formats;
    const char* text;
    std::optional<DayCount> day;
};

TEST(Dates, ReadInTheFormsThatPeopleType) {
    const std::vector<Typed> cases{
        {enUS(), "3/4/26", kToday},
        {enUS(), "03/04/2026", kToday},
        {enUS(), "3-4-2026", kToday},
        {enUS(), "3.4.2026", kToday},
        {enUS(), " 4 Mar 2026", kToday},
        {enUS(), "March 4, 2026", kToday},
        {enUS(), "2026-03-04", kToday},
        {enUS(), "3/4", kToday},             // this year
        {enUS(), "4 march", kToday},         // this year
        {enUS(), "25/3/2026", kToday + 21},  // no such month: the other order
        {enGB(), "4/3/26", kToday},
        {enGB(), "3/25/2026", kToday + 21},
        {deDE(), "4.3.2026", kToday},
        {deDE(), "4. M\xE4rz 2026", kToday},
        {deDE(), "4 mar 26", kToday},
        {frFR(), "4 mars 2026", kToday},
        {jaJP(), "2026/3/4", kToday},
        {jaJP(), "26/3/4", kToday},
        {enUS(), "3/4/49", toDayCount({2049, 3, 4})},
        {enUS(), "3/4/50", toDayCount({1950, 3, 4})},
        {enUS(), "tomorrow", std::nullopt},
        {enUS(), "2/30/2026", std::nullopt},
        {enUS(), "33/3/26", std::nullopt},
        {enUS(), "3/4/20260", std::nullopt},
        {enUS(), "3/4/26/1", std::nullopt},
        {enUS(), "46085", std::nullopt},
        {enUS(), "4 Ma 2026", std::nullopt},
        {enUS(), "3/4/2026!", std::nullopt},
        {enUS(), "", std::nullopt},
    };
    for (const auto& typed : cases) {
        EXPECT_EQ(parseDate(typed.text, typed.formats, kToday), typed.day) << typed.text;
    }
}

}  // namespace
}  // namespace bramblet
