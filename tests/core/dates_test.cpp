#include "core/platform/dates.h"

#include "support/office.h"
#include "support/regions.h"

#include <chrono>
#include <cstdlib>
#include <limits>

namespace bramblet::test {
namespace {

TEST(Dates, DayCountsStartOn30December1899) {
    EXPECT_EQ(toDayCount({1899, 12, 30}), 0);
    EXPECT_EQ(toDayCount({1900, 1, 1}), 2);
    EXPECT_EQ(toDayCount({2000, 2, 29}), 36585);
    EXPECT_EQ(toDayCount({2026, 3, 4}), kToday);
    EXPECT_EQ(toDayCount({1900, 2, 29}), std::nullopt);
    EXPECT_EQ(toDayCount({99, 1, 1}), std::nullopt);
    for (DayCount day = -1000; day < 73000; ++day)
        ASSERT_EQ(toDayCount(toCivilDate(day)), day);
}

TEST(Dates, ShortFormOfTheRegion) {
    EXPECT_EQ(shortDateText(kToday + 0.75, enUS()), "3/4/2026") << "without the time of day";
    EXPECT_EQ(shortDateText(kToday, enGB()), "04/03/2026");
    EXPECT_EQ(shortDateText(kToday, deDE()), "04.03.2026");
    EXPECT_EQ(shortDateText(kToday, jaJP()), "2026/03/04");
    for (const double nonsense : {1e300, -1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(shortDateText(nonsense, enUS()), "");
}

TEST(Dates, ReadInTheFormsThatPeopleType) {
    const std::vector<std::pair<RegionalFormats, std::vector<const char*>>> today{
        // Where there is no year, it is this one.
        {enUS(),
         {"3/4/26", "03/04/2026", "3-4-2026", "3.4.2026", " 4 Mar 2026", "March 4, 2026",
          "2026-03-04", "3/4", "4 march"}},
        {enGB(), {"4/3/26", "4/3"}},
        {deDE(), {"4.3.2026", "4. M\xE4rz 2026", "4 mar 26"}},
        {frFR(), {"4 mars 2026"}},
        {jaJP(), {"2026/3/4", "26/3/4"}},
    };
    for (const auto& [formats, texts] : today) {
        for (const char* text : texts)
            EXPECT_EQ(parseDate(text, formats, kToday), kToday) << text;
    }
    // Where there is no such month, the order of day and month is the other one.
    EXPECT_EQ(parseDate("25/3/2026", enUS(), kToday), kToday + 21);
    EXPECT_EQ(parseDate("25/3", enUS(), kToday), kToday + 21);
    EXPECT_EQ(parseDate("3/25/2026", enGB(), kToday), kToday + 21);
    EXPECT_EQ(parseDate("3/4/49", enUS(), kToday), toDayCount({2049, 3, 4}));
    EXPECT_EQ(parseDate("3/4/50", enUS(), kToday), toDayCount({1950, 3, 4}));
    for (const char* text : {"tomorrow", "2/30/2026", "33/3/26", "3/4/20260", "3/4/26/1", "46085",
                             "4 Ma 2026", "3/4/2026!", ""})
        EXPECT_EQ(parseDate(text, enUS(), kToday), std::nullopt) << text;
}

TEST(Dates, TheClockShowsTodayAndWaitsASecond) {
    using namespace std::chrono;
    const Clock clock = systemClock();
    const auto utc = floor<days>(system_clock::now()) - sys_days(year(1899) / 12 / 30);
    EXPECT_LE(std::abs(clock.today() - utc.count()), 1) << "wherever on earth this is";
    const auto start = steady_clock::now();
    clock.waitOneSecond();
    EXPECT_GE(steady_clock::now() - start, seconds(1));
}

}  // namespace
}  // namespace bramblet::test
