// Calendar dates as day counts, and reading and writing dates in the user's short form.
#pragma once

#include "core/platform/regional_formats.h"

#include <optional>
#include <string>
#include <string_view>

namespace bramblet {

/// Whole days since 30 December 1899: the day count that the data files hold as a double.
using DayCount = int;

struct CivilDate {
    int year;   ///< 100 to 9999
    int month;  ///< 1 to 12
    int day;    ///< 1 to 31
    bool operator==(const CivilDate&) const = default;
};

/// The day count of a date; nothing when there is no such day or its year is outside 100 to 9999.
std::optional<DayCount> toDayCount(const CivilDate& date);

CivilDate toCivilDate(DayCount days);

/// The date in the region's short form; empty when `days` lies outside the years 100 to 9999. Takes
/// the double of a record, ignoring its fraction (the time of day).
std::string shortDateText(double days, const RegionalFormats& formats);

/// The same as 2026-03-04, in every region.
std::string isoDateText(double days);

/// Reads a date as people type it. Numbers are separated by "/", "-", "." or blanks and come in the
/// region's order (or, if that does not make a date, in another order that does); the year comes
/// first if the first number has more than two digits. Month names are given in full or by three
/// letters or more, in the region's language or English. Two-digit years are 1950 to 2049; without
/// a year, that of `today` is taken. Returns nothing for a text that names no date.
std::optional<DayCount> parseDate(std::string_view text, const RegionalFormats& formats,
                                  DayCount today);

}  // namespace bramblet
