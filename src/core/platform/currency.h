// The amount type of all money fields.
#pragma once

#include <compare>
#include <cstdint>

namespace bramblet {

/// A signed count of ten-thousandths, as the data files hold it in 8 bytes, little-endian; range
/// ±922,337,203,685,477.5807. Sums and differences are exact; one outside the range throws
/// Fault(Overflow).
struct Currency {
    std::int64_t tenThousandths = 0;

    auto operator<=>(const Currency&) const = default;
};

Currency operator+(Currency a, Currency b);
Currency operator-(Currency a, Currency b);

/// The nearest ten-thousandth of a floating value, halves to the even neighbour. What is a half is
/// decided on the value's decimal digits. Throws Fault(Overflow) outside the range.
Currency toCurrency(double value);

double toDouble(Currency amount);

}  // namespace bramblet
