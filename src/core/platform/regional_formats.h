// How the user's region writes numbers, amounts and dates. A plain value: the windows fill it from
// the system, the core formats and parses with it, tests spell it out.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace bramblet {

/// All texts are in the code page. The defaults are those of en_US.
struct RegionalFormats {
    std::string decimalSeparator = ".";
    std::string groupSeparator = ",";
    /// Digits in each group, leftwards from the decimal separator; the last size repeats ({3, 2}
    /// for 1,23,45,678). Never empty.
    std::vector<int> grouping{3};

    /// What comes before and after a currency amount, and before and after a negative one.
    std::string currencyPrefix = "$";
    std::string currencySuffix;
    std::string currencyNegativePrefix = "($";
    std::string currencyNegativeSuffix = ")";
    /// The currency sign alone, as people type it before or after an amount.
    std::string currencySign = "$";
    int currencyDecimals = 2;

    /// Short date with d, dd, M, MM and yyyy; everything else stands for itself.
    std::string shortDate = "M/d/yyyy";
    std::array<std::string, 12> monthNames{"January",   "February", "March",    "April",
                                           "May",       "June",     "July",     "August",
                                           "September", "October",  "November", "December"};
    int firstDayOfWeek = 7;  ///< 1 Monday to 7 Sunday
};

}  // namespace bramblet
