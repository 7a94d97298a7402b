// The regional formats of six users.
#pragma once

#include "core/platform/regional_formats.h"

namespace bramblet::test {

inline RegionalFormats enUS() {
    return {};
}

/// A region that writes a minus sign before everything else.
inline RegionalFormats regionOf(const std::string& currencySign, const std::string& prefix,
                                const std::string& suffix, const std::string& shortDate) {
    RegionalFormats formats;
    formats.currencySign = currencySign;
    formats.currencyPrefix = prefix;
    formats.currencyNegativePrefix = "-" + prefix;
    formats.currencySuffix = formats.currencyNegativeSuffix = suffix;
    formats.shortDate = shortDate;
    return formats;
}

inline RegionalFormats enGB() {
    return regionOf("\xA3", "\xA3", "", "dd/MM/yyyy");
}

inline RegionalFormats deDE() {
    RegionalFormats formats = regionOf("\x80", "", "\xA0\x80", "dd.MM.yyyy");
    formats.decimalSeparator = ",";
    formats.groupSeparator = ".";
    formats.monthNames = {"Januar", "Februar", "M\xE4rz",   "April",   "Mai",      "Juni",
                          "Juli",   "August",  "September", "Oktober", "November", "Dezember"};
    formats.firstDayOfWeek = 1;
    return formats;
}

inline RegionalFormats frFR() {
    RegionalFormats formats = deDE();
    formats.groupSeparator = "\xA0";
    formats.shortDate = "dd/MM/yyyy";
    formats.monthNames = {"janvier",   "f\xE9vrier", "mars",     "avril",
                          "mai",       "juin",       "juillet",  "ao\xFBt",
                          "septembre", "octobre",    "novembre", "d\351cembre"};
    return formats;
}

inline RegionalFormats enIN() {
    RegionalFormats formats = regionOf("INR", "INR", "", "dd/MM/yyyy");
    formats.grouping = {3, 2};
    return formats;
}

inline RegionalFormats jaJP() {
    RegionalFormats formats = regionOf("\xA5", "\xA5", "", "yyyy/MM/dd");
    formats.currencyDecimals = 0;
    return formats;
}

}  // namespace bramblet::test
