// The regional formats of six users.
#pragma once

#include "core/platform/regional_formats.h"

namespace bramblet::test {

inline RegionalFormats enUS() {
    return {};
}

inline RegionalFormats enGB() {
    RegionalFormats formats;
    formats.currencySign = formats.currencyPrefix = "\xA3";
    formats.currencyNegativePrefix = "-\xA3";
    formats.currencyNegativeSuffix = "";
    formats.shortDate = "dd/MM/yyyy";
    formats.firstDayOfWeek = 1;
    return formats;
}

inline RegionalFormats deDE() {
    RegionalFormats formats;
    formats.decimalSeparator = ",";
    formats.groupSeparator = ".";
    formats.currencySign = "\x80";
    formats.currencyPrefix = "";
    formats.currencySuffix = "\xA0\x80";
    formats.currencyNegativePrefix = "-";
    formats.currencyNegativeSuffix = "\xA0\x80";
    formats.shortDate = "dd.MM.yyyy";
    formats.monthNames = {"Januar", "Februar", "M\xE4rz",   "April",   "Mai",      "Juni",
                          "Juli",   "August",  "September", "Oktober", "November", "Dezember"};
    formats.firstDayOfWeek = 1;
    return formats;
}

inline RegionalFormats frFR() {
    RegionalFormats formats = deDE();
    formats.groupSeparator = "\xA0";
    formats.shortDate = "dd/MM/yyyy";
    formats.monthNames = {"janvier",
                          "f\xE9vrier",
                          "mars",
                          "avril",
                          "mai",
                          "juin",
                          "juillet",
                          "ao\xFBt",
                          "septembre",
                          "octobre",
                          "novembre",
                          "d\xE9"
                          "cembre"};
    return formats;
}

inline RegionalFormats enIN() {
    RegionalFormats formats;
    formats.grouping = {3, 2};
    formats.currencySign = formats.currencyPrefix = "INR";
    formats.currencyNegativePrefix = "-INR";
    formats.currencyNegativeSuffix = "";
    formats.shortDate = "dd/MM/yyyy";
    return formats;
}

inline RegionalFormats jaJP() {
    RegionalFormats formats;
    formats.currencySign = formats.currencyPrefix = "\xA5";
    formats.currencyNegativePrefix = "-\xA5";
    formats.currencyNegativeSuffix = "";
    formats.currencyDecimals = 0;
    formats.shortDate = "yyyy/MM/dd";
    return formats;
}

}  // namespace bramblet::test
