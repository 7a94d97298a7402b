#include "core/platform/decimal.h"

#include "core/platform/fault.h"

#include <array>
#include <charconv>
#include <cmath>

namespace bramblet {
namespace {

// Below this, 15 significant digits keep four decimals.
constexpr double kFourDecimalsInFifteenDigits = 1e11;

void dropOuterZeros(Decimal& decimal) {
    const auto first = decimal.digits.find_first_not_of('0');
    if (first == std::string::npos) {
        decimal = Decimal{};
        return;
    }
    decimal.digits.erase(0, first);
    decimal.exponent -= static_cast<int>(first);
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
}

bool roundsUp(const std::string& digits, std::size_t kept, Halves halves) {
    const char next = digits[kept];
    if (next != '5') return next > '5';
    const bool exactHalf = digits.size() == kept + 1;
    if (!exactHalf || halves == Halves::AwayFromZero) return true;
    return kept > 0 && (digits[kept - 1] - '0') % 2 == 1;
}

}  // namespace

Decimal toDecimal(double value) {
    if (!std::isfinite(value)) throw Fault(FaultNumber::Overflow);
    std::array<char, 40> buffer{};
    const bool fifteen = std::fabs(value) < kFourDecimalsInFifteenDigits;
    char* const end = buffer.data() + buffer.size();
    const auto result =
        fifteen ? std::to_chars(buffer.data(), end, value, std::chars_format::scientific, 14)
                : std::to_chars(buffer.data(), end, value, std::chars_format::scientific);
    const std::string text(buffer.data(), result.ptr);  // like -1.2345e+02
    const auto e = text.find('e');
    Decimal decimal;
    decimal.negative = text.front() == '-';
    for (const char c : text.substr(0, e)) {
        if (c >= '0' && c <= '9') decimal.digits.push_back(c);
    }
    decimal.exponent = std::stoi(text.substr(e + 1)) + 1;
    dropOuterZeros(decimal);
    return decimal;
}

Decimal toDecimal(Currency amount) {
    Decimal decimal;
    decimal.negative = amount.tenThousandths < 0;
    const auto unsignedCount = static_cast<std::uint64_t>(amount.tenThousandths);
    decimal.digits = std::to_string(decimal.negative ? 0 - unsignedCount : unsignedCount);
    decimal.exponent = static_cast<int>(decimal.digits.size()) - 4;
    dropOuterZeros(decimal);
    return decimal;
}

Decimal rounded(const Decimal& decimal, int places, Halves halves) {
    const int kept = decimal.exponent + places;
    if (kept < 0) return Decimal{};
    const auto keptDigits = static_cast<std::size_t>(kept);
    if (keptDigits >= decimal.digits.size()) return decimal;

    Decimal out{decimal.negative, "0" + decimal.digits.substr(0, keptDigits), decimal.exponent + 1};
    if (roundsUp(decimal.digits, keptDigits, halves)) {
        std::size_t place = out.digits.size() - 1;
        while (out.digits[place] == '9')
            out.digits[place--] = '0';
        ++out.digits[place];
    }
    dropOuterZeros(out);
    return out;
}

PlainDigits plainDigits(const Decimal& decimal, int places) {
    PlainDigits plain;
    const auto fractionDigits = static_cast<std::size_t>(places);
    if (decimal.exponent <= 0) {
        plain.whole = "0";
        const bool anyDigit = !decimal.digits.empty();
        plain.fraction.assign(anyDigit ? static_cast<std::size_t>(-decimal.exponent) : 0, '0');
        plain.fraction += decimal.digits;
    } else {
        const auto wholeDigits = static_cast<std::size_t>(decimal.exponent);
        plain.whole = decimal.digits.substr(0, wholeDigits);
        plain.whole.resize(wholeDigits, '0');
        if (decimal.digits.size() > wholeDigits)
            plain.fraction = decimal.digits.substr(wholeDigits);
    }
    plain.fraction.resize(fractionDigits, '0');
    return plain;
}

}  // namespace bramblet
