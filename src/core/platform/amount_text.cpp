#include "core/platform/amount_text.h"

#include "core/platform/decimal.h"
#include "core/platform/fault.h"
#include "core/platform/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace bramblet {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// `whole` with the region's group separators.
std::string grouped(const std::string& whole, const RegionalFormats& formats) {
    std::string out;
    std::size_t end = whole.size();
    std::size_t group = 0;
    for (;;) {
        const auto size = static_cast<std::size_t>(formats.grouping[group]);
        if (size == 0 || end <= size) return whole.substr(0, end) + out;
        out.insert(0, formats.groupSeparator + whole.substr(end - size, size));
        end -= size;
        group = std::min(group + 1, formats.grouping.size() - 1);
    }
}

std::string groupedText(const Decimal& number, int places, const RegionalFormats& formats) {
    const PlainDigits plain = plainDigits(number, places);
    std::string out = grouped(plain.whole, formats);
    if (places > 0) out += formats.decimalSeparator + plain.fraction;
    return out;
}

std::string standard(const Decimal& value, const RegionalFormats& formats) {
    const Decimal number = rounded(value, 2, Halves::AwayFromZero);
    return (number.negative ? "-" : "") + groupedText(number, 2, formats);
}

std::string currency(const Decimal& value, const RegionalFormats& formats) {
    const Decimal number = rounded(value, formats.currencyDecimals, Halves::AwayFromZero);
    const std::string amount = groupedText(number, formats.currencyDecimals, formats);
    if (number.negative) {
        return formats.currencyNegativePrefix + amount + formats.currencyNegativeSuffix;
    }
    return formats.currencyPrefix + amount + formats.currencySuffix;
}

bool dropPrefix(std::string_view& text, std::string_view prefix) {
    if (prefix.empty() || !text.starts_with(prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

bool isBlank(char c) {
    return c == ' ' || c == '\xA0';
}

void dropBlanks(std::string_view& text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
}

/// Takes the sign and the currency sign, in either order, off the front of `text` (and a currency
/// sign off its end). True when the number is negative.
bool takeSigns(std::string_view& text, const RegionalFormats& formats) {
    dropBlanks(text);
    bool negative = dropPrefix(text, "-");
    dropBlanks(text);
    dropPrefix(text, formats.currencySign);
    dropBlanks(text);
    negative = negative || dropPrefix(text, "-");
    if (!formats.currencySign.empty() && text.ends_with(formats.currencySign)) {
        text.remove_suffix(formats.currencySign.size());
    }
    dropBlanks(text);
    return negative;
}

/// Where groups are separated by a no-break blank, people type a plain one.
bool dropGroupSeparator(std::string_view& text, const RegionalFormats& formats) {
    const std::string& separator = formats.groupSeparator;
    const bool blankGroups = separator.size() == 1 && isBlank(separator.front());
    return dropPrefix(text, separator) || (blankGroups && dropPrefix(text, " "));
}

/// The digits with "." as decimal separator, as std::from_chars reads them.
std::string plainNumber(std::string_view text, const RegionalFormats& formats) {
    std::string plain;
    bool decimals = false;
    while (!text.empty()) {
        if (isDigit(text.front())) {
            plain.push_back(text.front());
            text.remove_prefix(1);
        } else if (!decimals && dropPrefix(text, formats.decimalSeparator)) {
            plain.push_back('.');
            decimals = true;
        } else if (decimals || plain.empty() || !dropGroupSeparator(text, formats)) {
            throw Fault(FaultNumber::TypeMismatch);
        }
    }
    if (std::none_of(plain.begin(), plain.end(), isDigit)) throw Fault(FaultNumber::TypeMismatch);
    return plain;
}

}  // namespace

std::string CleanNumber(std::string& text) {
    text = trimmed(text);
    return cleanedNumber(text);
}

std::string cleanedNumber(std::string_view text) {
    std::string kept;
    for (const char c : text) {
        if (isDigit(c) || c == '.' || c == ',') kept.push_back(c);
    }
    return kept.empty() ? "0" : kept;
}

double numberOf(std::string_view text, const RegionalFormats& formats) {
    const bool negative = takeSigns(text, formats);
    const std::string plain = plainNumber(text, formats);
    double value = 0;
    const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (result.ec != std::errc{}) throw Fault(FaultNumber::Overflow);
    return negative ? -value : value;
}

Currency amountOf(std::string_view text, const RegionalFormats& formats) {
    return toCurrency(numberOf(text, formats));
}

std::string standardText(Currency amount, const RegionalFormats& formats) {
    return standard(toDecimal(amount), formats);
}

std::string standardText(double value, const RegionalFormats& formats) {
    return standard(toDecimal(value), formats);
}

std::string currencyText(Currency amount, const RegionalFormats& formats) {
    return currency(toDecimal(amount), formats);
}

std::string currencyText(double value, const RegionalFormats& formats) {
    return currency(toDecimal(value), formats);
}

std::string currencyText(std::string_view text, const RegionalFormats& formats) {
    try {
        return currencyText(numberOf(text, formats), formats);
    } catch (const Fault&) {
        return std::string(text);
    }
}

std::string generalText(double value, const RegionalFormats& formats) {
    const Decimal number = toDecimal(value);
    const int behindPoint = static_cast<int>(number.digits.size()) - number.exponent;
    const PlainDigits plain = plainDigits(number, std::max(behindPoint, 0));
    std::string out = (number.negative ? "-" : "") + plain.whole;
    if (!plain.fraction.empty()) out += formats.decimalSeparator + plain.fraction;
    return out;
}

std::string tagText(double tag) {
    return std::isfinite(tag) ? generalText(tag, RegionalFormats{}) : "0";
}

std::string exactText(Currency amount, const RegionalFormats& formats) {
    const Decimal number = toDecimal(amount);
    const int behindPoint = static_cast<int>(number.digits.size()) - number.exponent;
    return (number.negative ? "-" : "") +
           groupedText(number, std::clamp(behindPoint, 2, 4), formats);
}

}  // namespace bramblet
