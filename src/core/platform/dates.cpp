#include "core/platform/dates.h"

#include "core/platform/text.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cmath>
#include <vector>

namespace bramblet {
namespace {

constexpr std::chrono::sys_days kDayZero = std::chrono::year(1899) / 12 / 30;
constexpr DayCount kFirstDay = -657434;  // 1 January 100
constexpr DayCount kLastDay = 2958465;   // 31 December 9999

constexpr std::array<std::string_view, 12> kEnglishMonths{
    "JANUARY", "FEBRUARY", "MARCH",     "APRIL",   "MAY",      "JUNE",
    "JULY",    "AUGUST",   "SEPTEMBER", "OCTOBER", "NOVEMBER", "DECEMBER"};

std::string digits(int number, std::size_t width) {
    std::string text = std::to_string(number);
    return std::string(width > text.size() ? width - text.size() : 0, '0') + text;
}

bool isLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// The numbers and the words of a date text.
struct Pieces {
    std::vector<std::string> numbers;
    std::vector<std::string> words;
};

/// Nothing for a text with characters that no date has.
std::optional<Pieces> piecesOf(std::string_view text) {
    constexpr std::string_view kSeparators = "/-., ";
    Pieces pieces;
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(kSeparators), text.size()));
        if (text.empty()) return pieces;
        const bool number = isDigit(text.front());
        const auto end = std::find_if_not(text.begin(), text.end(), number ? isDigit : isLetter);
        if (end == text.begin()) return std::nullopt;
        (number ? pieces.numbers : pieces.words).emplace_back(text.begin(), end);
        text.remove_prefix(static_cast<std::size_t>(end - text.begin()));
    }
}

/// 1 to 12 for a month name, or at least its first three letters; 0 for any other word.
int monthNamed(const std::string& word, const RegionalFormats& formats) {
    const std::string wanted = upper(word);
    for (std::size_t month = 0; month < 12; ++month) {
        const std::string local = upper(formats.monthNames[month]);
        const std::string_view english = kEnglishMonths[month];
        const bool named = wanted == local || wanted == english;
        const bool shortened =
            wanted.size() >= 3 && (local.starts_with(wanted) || english.starts_with(wanted));
        if (named || shortened) return static_cast<int>(month) + 1;
    }
    return 0;
}

std::optional<DayCount> dayOf(const std::string& year, const std::string& month,
                              const std::string& day) {
    if (year.size() > 4 || month.size() > 2 || day.size() > 2) return std::nullopt;
    const int number = std::stoi(year);
    const int century = year.size() > 2 ? 0 : number < 50 ? 2000 : 1900;
    return toDayCount({century + number, std::stoi(month), std::stoi(day)});
}

/// The order of year, month and day in the region's short date, such as "yMd".
std::string fieldOrder(const RegionalFormats& formats) {
    std::string order;
    for (const char c : formats.shortDate) {
        const bool field = c == 'd' || c == 'M' || c == 'y';
        if (field && order.find(c) == std::string::npos) order.push_back(c);
    }
    return order.size() == 3 ? order : "Mdy";
}

std::optional<DayCount> inOrder(const std::vector<std::string>& numbers, const std::string& order) {
    const auto number = [&](char field) { return numbers[order.find(field)]; };
    return dayOf(number('y'), number('M'), number('d'));
}

std::optional<DayCount> fromNumbers(const std::vector<std::string>& numbers,
                                    const RegionalFormats& formats) {
    if (numbers[0].size() > 2) return inOrder(numbers, "yMd");
    for (const auto& order : {fieldOrder(formats), std::string("Mdy"), std::string("dMy")}) {
        if (const auto day = inOrder(numbers, order)) return day;
    }
    return std::nullopt;
}

std::optional<DayCount> withMonthName(const std::vector<std::string>& numbers, int month,
                                      const std::string& thisYear) {
    const std::string m = std::to_string(month);
    if (numbers.size() == 1) return dayOf(thisYear, m, numbers[0]);
    if (numbers[0].size() > 2) return dayOf(numbers[0], m, numbers[1]);
    return dayOf(numbers[1], m, numbers[0]);
}

std::optional<DayCount> withoutYear(std::vector<std::string> numbers,
                                    const RegionalFormats& formats, const std::string& year) {
    const std::string order = fieldOrder(formats);
    const bool monthFirst = order.find('M') < order.find('d');
    if (!monthFirst) std::swap(numbers[0], numbers[1]);
    if (const auto day = dayOf(year, numbers[0], numbers[1])) return day;
    return dayOf(year, numbers[1], numbers[0]);
}

}  // namespace

std::optional<DayCount> toDayCount(const CivilDate& date) {
    const auto day = std::chrono::year(date.year) / date.month / date.day;
    if (date.year < 100 || date.year > 9999 || !day.ok()) return std::nullopt;
    return (std::chrono::sys_days(day) - kDayZero).count();
}

CivilDate toCivilDate(DayCount days) {
    const std::chrono::year_month_day date = kDayZero + std::chrono::days(days);
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

std::string shortDateText(double days, const RegionalFormats& formats) {
    const bool inRange = days >= kFirstDay && days < kLastDay + 1.0;  // false for a NaN
    if (!inRange) return {};
    const CivilDate date = toCivilDate(static_cast<DayCount>(std::trunc(days)));
    std::string out;
    const std::string& pattern = formats.shortDate;
    for (std::size_t i = 0; i < pattern.size();) {
        const char letter = pattern[i];
        const std::size_t run = std::min(pattern.find_first_not_of(letter, i), pattern.size()) - i;
        out += letter == 'd'   ? digits(date.day, run)
               : letter == 'M' ? digits(date.month, run)
               : letter == 'y' ? digits(date.year, 4)
                               : std::string(run, letter);
        i += run;
    }
    return out;
}

std::string isoDateText(double days) {
    RegionalFormats iso;
    iso.shortDate = "yyyy-MM-dd";
    return shortDateText(days, iso);
}

std::optional<DayCount> parseDate(std::string_view text, const RegionalFormats& formats,
                                  DayCount today) {
    const auto pieces = piecesOf(text);
    if (!pieces) return std::nullopt;
    const auto& [numbers, words] = *pieces;
    const std::string thisYear = std::to_string(toCivilDate(today).year);
    if (words.empty()) {
        if (numbers.size() == 3) return fromNumbers(numbers, formats);
        if (numbers.size() == 2) return withoutYear(numbers, formats, thisYear);
        return std::nullopt;
    }
    const int month = words.size() == 1 ? monthNamed(words[0], formats) : 0;
    if (month == 0 || numbers.empty() || numbers.size() > 2) return std::nullopt;
    return withMonthName(numbers, month, thisYear);
}

}  // namespace bramblet
