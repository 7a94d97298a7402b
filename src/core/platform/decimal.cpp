#include "core/platform/decimal.h"

#include "core/platform/fault.h"
#include "core/platform/text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <iterator>

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

Decimal::Decimal(double value) {
    if (!std::isfinite(value)) throw Fault(FaultNumber::Overflow);
    std::array<char, 40> buffer{};
    const bool fifteen = std::fabs(value) < kFourDecimalsInFifteenDigits;
    char* const end = buffer.data() + buffer.size();
    const auto result =
        fifteen ? std::to_chars(buffer.data(), end, value, std::chars_format::scientific, 14)
                : std::to_chars(buffer.data(), end, value, std::chars_format::scientific);
    const std::string text(buffer.data(), result.ptr);  // like -1.2345e+02
    const auto e = text.find('e');
    negative = text.front() == '-';
    std::copy_if(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(e),
                 std::back_inserter(digits), isDigit);
    exponent = std::stoi(text.substr(e + 1)) + 1;
    dropOuterZeros(*this);
}

Decimal::Decimal(Currency amount) : negative(amount.tenThousandths < 0) {
    const auto count = static_cast<std::uint64_t>(amount.tenThousandths);
    digits = std::to_string(negative ? 0 - count : count);
    exponent = static_cast<int>(digits.size()) - 4;
    dropOuterZeros(*this);
}

Decimal rounded(const Decimal& decimal, int places, Halves halves) {
    const int kept = decimal.exponent + places;
    if (kept < 0) return {};
    const auto keptDigits = static_cast<std::size_t>(kept);
    if (keptDigits >= decimal.digits.size()) return decimal;

    Decimal out = decimal;
    out.digits = "0" + decimal.digits.substr(0, keptDigits);
    ++out.exponent;
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
    const auto whole = static_cast<std::size_t>(std::max(decimal.exponent, 1));
    const int zerosInFront = std::max(1 - decimal.exponent, 0);
    std::string all = std::string(static_cast<std::size_t>(zerosInFront), '0') + decimal.digits;
    all.resize(whole + static_cast<std::size_t>(places), '0');
    return {all.substr(0, whole), all.substr(whole)};
}

}  // namespace bramblet
