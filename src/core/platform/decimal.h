// Numbers as strings of decimal digits: the step between the binary value of a number and its text,
// so that all rounding is done on the digits that people see.
#pragma once

#include "core/platform/currency.h"

#include <algorithm>
#include <string>

namespace bramblet {

/// ±0.d1d2d3… × 10^exponent. Zero has no digits. Numbers and amounts turn into it by themselves, so
/// that one function can write both.
struct Decimal {
    Decimal() = default;
    /// The 15 digits that a double holds for certain, or, for amounts too large to keep four
    /// decimals in 15 digits, the shortest string that identifies it. Throws Fault(Overflow) when
    /// not finite.
    Decimal(double value);
    Decimal(Currency amount);

    /// How many digits there are after the decimal point.
    int decimals() const { return std::max(0, static_cast<int>(digits.size()) - exponent); }

    bool negative = false;
    std::string digits;  ///< without leading or trailing zeros
    int exponent = 0;    ///< position of the decimal point, counted from before the first digit
};

enum class Halves { AwayFromZero, ToEven };

/// The decimal rounded to `places` digits after the decimal point.
Decimal rounded(const Decimal& decimal, int places, Halves halves);

/// The digits before and after the decimal point, the latter filled to `places`, without a sign:
/// {"1234", "50"}. The whole part is at least "0".
struct PlainDigits {
    std::string whole;
    std::string fraction;
};
PlainDigits plainDigits(const Decimal& decimal, int places);

}  // namespace bramblet
