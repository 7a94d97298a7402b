#include "core/platform/dates.h"

#include "core/platform/text.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <vector>

namespace bramblet {
namespace {

constexpr DayCount kUnixEpoch = 25569;   // 1 January 1970
constexpr DayCount kFirstDay = -657434;  // 1 January 100
constexpr DayCount kLastDay = 2958465;   // 31 December 9999

constexpr std::array<std::string_view, 12> kEnglishMonths{
    "JANUARY", "FEBRUARY", "MARCH",     "APRIL",   "MAY",      "JUNE",
    "JULY",    "AUGUST",   "SEPTEMBER", "OCTOBER", "NOVEMBER", "DECEMBER"};

bool isLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int daysInMonth(int year, int month) {
    constexpr std::array<int, 12> kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

// The two conversions count years from March, in eras of 400 years, so that the leap day is the
// last day of a year and needs no case of its own.
DayCount daysFromCivil(int year, int month, int day) {
    const int shifted = month <= 2 ? year - 1 : year;
    const int era = shifted / 400;
    const int yearOfEra = shifted - era * 400;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468 + kUnixEpoch;
}

std::string digits(int number, std::size_t width) {
    std::string text = std::to_string(number);
    return std::string(width > text.size() ? width - text.size() : 0, '0') + text;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// One number or word of a date text.
struct Piece {
    std::string text;
    bool number;
};

std::optional<std::vector<Piece>> piecesOf(std::string_view text) {
    constexpr std::string_view kSeparators = "/-., ";
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < text.size();) {
        if (kSeparators.find(text[i]) != std::string_view::npos) {
            ++i;
            continue;
        }
        if (!isDigit(text[i]) && !isLetter(text[i])) return std::nullopt;
        const bool number = isDigit(text[i]);
        const std::size_t start = i;
        while (i < text.size() && (number ? isDigit(text[i]) : isLetter(text[i])))
            ++i;
        pieces.push_back({std::string(text.substr(start, i - start)), number});
    }
    return pieces;
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

std::optional<int> yearOf(const std::string& text) {
    if (text.size() > 4) return std::nullopt;
    const int number = std::stoi(text);
    if (text.size() > 2) return number;
    return number < 50 ? 2000 + number : 1900 + number;
}

std::optional<int> smallNumber(const std::string& text) {
    if (text.size() > 2) return std::nullopt;
    return std::stoi(text);
}

std::optional<DayCount> dayOf(const std::string& year, const std::string& month,
                              const std::string& day) {
    const auto y = yearOf(year);
    const auto m = smallNumber(month);
    const auto d = smallNumber(day);
    if (!y || !m || !d) return std::nullopt;
    return toDayCount({*y, *m, *d});
}

/// The order of year, month and day in the region's short date, such as "ymd".
std::string fieldOrder(const RegionalFormats& formats) {
    std::string order;
    for (const char c : formats.shortDate) {
        const char field = c == 'M' ? 'm' : c;
        if ((field == 'd' || field == 'm' || field == 'y') &&
            order.find(field) == std::string::npos) {
            order.push_back(field);
        }
    }
    return order.size() == 3 ? order : "mdy";
}

std::optional<DayCount> inOrder(const std::vector<std::string>& numbers, const std::string& order) {
    const auto at = [&](char field) { return numbers[order.find(field)]; };
    return dayOf(at('y'), at('m'), at('d'));
}

std::optional<DayCount> fromNumbers(const std::vector<std::string>& numbers,
                                    const RegionalFormats& formats) {
    if (numbers[0].size() > 2) return inOrder(numbers, "ymd");
    for (const auto& order : {fieldOrder(formats), std::string("mdy"), std::string("dmy")}) {
        if (const auto day = inOrder(numbers, order)) return day;
    }
    return std::nullopt;
}

std::optional<DayCount> withMonthName(const std::vector<std::string>& numbers, int month,
                                      int thisYear) {
    const std::string m = std::to_string(month);
    if (numbers.size() == 1) return dayOf(std::to_string(thisYear), m, numbers[0]);
    if (numbers[0].size() > 2) return dayOf(numbers[0], m, numbers[1]);
    return dayOf(numbers[1], m, numbers[0]);
}

std::optional<DayCount> withoutYear(std::vector<std::string> numbers,
                                    const RegionalFormats& formats, int thisYear) {
    const bool monthFirst = fieldOrder(formats).find('m') < fieldOrder(formats).find('d');
    if (!monthFirst) std::swap(numbers[0], numbers[1]);
    const std::string year = std::to_string(thisYear);
    if (const auto day = dayOf(year, numbers[0], numbers[1])) return day;
    return dayOf(year, numbers[1], numbers[0]);
}

}  // namespace

std::optional<DayCount> toDayCount(const CivilDate& date) {
    if (date.year < 100 || date.year > 9999 || date.month < 1 || date.month > 12)
        return std::nullopt;
    if (date.day < 1 || date.day > daysInMonth(date.year, date.month)) return std::nullopt;
    return daysFromCivil(date.year, date.month, date.day);
}

CivilDate toCivilDate(DayCount days) {
    const int shifted = days - kUnixEpoch + 719468;
    const int era = shifted / 146097;
    const int dayOfEra = shifted - era * 146097;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int monthFromMarch = (5 * dayOfYear + 2) / 153;
    const int month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    const int year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
    return {year, month, dayOfYear - (153 * monthFromMarch + 2) / 5 + 1};
}

std::string shortDateText(double days, const RegionalFormats& formats) {
    const bool inRange = days >= kFirstDay && days < kLastDay + 1.0;  // false for a NaN
    if (!inRange) return {};
    const CivilDate date = toCivilDate(static_cast<DayCount>(std::trunc(days)));
    std::string out;
    const std::string& pattern = formats.shortDate;
    for (std::size_t i = 0; i < pattern.size();) {
        const char letter = pattern[i];
        std::size_t run = 1;
        while (i + run < pattern.size() && pattern[i + run] == letter)
            ++run;
        switch (letter) {
            case 'd':
                out += digits(date.day, run);
                break;
            case 'M':
                out += digits(date.month, run);
                break;
            case 'y':
                out += digits(date.year, 4);
                break;
            default:
                out.append(run, letter);
        }
        i += run;
    }
    return out;
}

std::optional<DayCount> parseDate(std::string_view text, const RegionalFormats& formats,
                                  DayCount today) {
    const auto pieces = piecesOf(text);
    if (!pieces) return std::nullopt;
    std::vector<std::string> numbers;
    std::vector<std::string> words;
    for (const auto& piece : *pieces)
        (piece.number ? numbers : words).push_back(piece.text);

    const int thisYear = toCivilDate(today).year;
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
