// The formats of the user's region are those with which Windows itself writes, with the user's own
// changes to them: Windows' own functions say what is right.

#include "core/platform/amount_text.h"
#include "core/platform/dates.h"
#include "gui/platform/qt_text.h"
#include "gui/platform/system_formats.h"

#include <array>
#include <gtest/gtest.h>
#include <windows.h>

namespace bramblet {
namespace {

using Buffer = std::array<wchar_t, 128>;

/// By the code page, as the program has its texts; every kind of blank is the no-break blank.
std::string coded(const Buffer& text) {
    QString line = QString::fromWCharArray(text.data());
    for (QChar& c : line) {
        if (c.isSpace()) c = QChar(0xA0);
    }
    return fromQt(line);
}

TEST(SystemFormats, AmountsAreWrittenAsWindowsWritesThem) {
    const RegionalFormats formats = systemRegionalFormats();
    // Below a million: Wine, under which these tests run, groups the thousands and no more.
    for (const double value : {0.5, 12.0, 1234.56, 654321.09, -9876.54}) {
        const std::wstring digits = QString::number(value, 'f', 2).toStdWString();
        Buffer number{};
        ::GetNumberFormatW(LOCALE_USER_DEFAULT, 0, digits.c_str(), nullptr, number.data(),
                           static_cast<int>(number.size()));
        EXPECT_EQ(standardText(value, formats), coded(number));
        Buffer currency{};
        ::GetCurrencyFormatW(LOCALE_USER_DEFAULT, 0, digits.c_str(), nullptr, currency.data(),
                             static_cast<int>(currency.size()));
        QString plain = toQt(currencyText(value, formats));
        plain.replace(' ', QChar(0xA0));
        EXPECT_EQ(fromQt(plain), coded(currency));
    }
}

TEST(SystemFormats, DatesAreWrittenAsWindowsWritesThemWithTheWholeYear) {
    const RegionalFormats formats = systemRegionalFormats();
    Buffer pattern{};
    ASSERT_GT(::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, pattern.data(),
                               static_cast<int>(pattern.size())),
              0);
    QString whole = QString::fromWCharArray(pattern.data());
    if (!whole.contains("yyyy")) whole.replace("yy", "yyyy");
    const SYSTEMTIME day{2026, 3, 3, 4, 0, 0, 0, 0};
    Buffer date{};
    ::GetDateFormatW(LOCALE_USER_DEFAULT, 0, &day, whole.toStdWString().c_str(), date.data(),
                     static_cast<int>(date.size()));
    EXPECT_EQ(shortDateText(*toDayCount({2026, 3, 4}), formats), coded(date));
}

TEST(SystemFormats, TheWeekBeginsAsTheUserHasIt) {
    DWORD first = 0;  // 0 is Monday
    ASSERT_GT(::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IFIRSTDAYOFWEEK | LOCALE_RETURN_NUMBER,
                               reinterpret_cast<wchar_t*>(&first), 2),
              0);
    EXPECT_EQ(systemRegionalFormats().firstDayOfWeek, static_cast<int>(first) + 1);
}

}  // namespace
}  // namespace bramblet
