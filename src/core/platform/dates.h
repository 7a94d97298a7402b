// Calendar dates as day counts, and the reading and writing of dates in the user's short form.
#pragma once

#include "core/platform/regional_formats.h"

#include <optional>
#include <string>
#include <string_view>

namespace bramblet {

/// Whole days since 30 December 1899, the day count that the data files hold as a double.
using DayCount = int;

struct CivilDate {
    int year;   ///< 100 to 9999
    int month;  ///< 1 to 12
    int day;    ///< 1 to 31
    bool operator==(const CivilDate&) const = default;
};

/// The day count of a date; none when there is no such day or its year is outside 100 to 9999.
std::optional<DayCount> toDayCount(const CivilDate& date);

CivilDate toCivilDate(DayCount days);

/// The date in the region's short form; empty when `days` lies outside the years 100 to 9999.
/// Takes the double of a record: its fraction (the time of day) is ignored.
std::string shortDateText(double days, const RegionalFormats& formats);

/// Reads a date as people type it: numbers apart by "/", "-", "." or blanks in the region's order
/// (or another order that makes a date when that one does not), year first when it has four digits
/// and stands first, month names in full or by three letters and more, in the region's language or
/// English. Two-digit years are 1950 to 2049; without a year it is that of `today`.
/// None for a text that names no date.
std::optional<DayCount> parseDate(std::string_view text, const RegionalFormats& formats,
                                  DayCount today);

}  // namespace bramblet
