#include "core/platform/currency.h"

#include "core/platform/decimal.h"
#include "core/platform/fault.h"

#include <charconv>

namespace bramblet {
namespace {

Currency checked(bool overflow, std::int64_t result) {
    if (overflow) throw Fault(FaultNumber::Overflow);
    return Currency{result};
}

}  // namespace

Currency operator+(Currency a, Currency b) {
    std::int64_t sum = 0;
    const bool overflow = __builtin_add_overflow(a.tenThousandths, b.tenThousandths, &sum);
    return checked(overflow, sum);
}

Currency operator-(Currency a, Currency b) {
    std::int64_t difference = 0;
    const bool overflow = __builtin_sub_overflow(a.tenThousandths, b.tenThousandths, &difference);
    return checked(overflow, difference);
}

Currency toCurrency(double value) {
    const Decimal decimal = rounded(value, 4, Halves::ToEven);
    const PlainDigits plain = plainDigits(decimal, 4);
    const std::string count = (decimal.negative ? "-" : "") + plain.whole + plain.fraction;
    std::int64_t tenThousandths = 0;
    const auto result = std::from_chars(count.data(), count.data() + count.size(), tenThousandths);
    return checked(result.ec != std::errc{}, tenThousandths);
}

double toDouble(Currency amount) {
    return static_cast<double>(amount.tenThousandths) / 10000.0;
}

}  // namespace bramblet
