#include "core/platform/amount_text.h"

#include "core/platform/fault.h"
#include "core/platform/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace bramblet {
namespace {

constexpr std::string_view kBlanks = " \xA0";

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

bool dropPrefix(std::string_view& text, std::string_view prefix) {
    if (prefix.empty() || !text.starts_with(prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

/// Takes the sign and the currency sign, in either order, off the front of `text` (and a currency
/// sign off its end). True when the number is negative.
bool takeSigns(std::string_view& text, const RegionalFormats& formats) {
    text = withoutEnds(text, kBlanks);
    bool negative = dropPrefix(text, "-");
    text = withoutEnds(text, kBlanks);
    dropPrefix(text, formats.currencySign);
    text = withoutEnds(text, kBlanks);
    negative = negative || dropPrefix(text, "-");
    if (text.ends_with(formats.currencySign)) text.remove_suffix(formats.currencySign.size());
    text = withoutEnds(text, kBlanks);
    return negative;
}

/// Where groups are separated by a no-break blank, people type a plain one.
bool dropGroupSeparator(std::string_view& text, const RegionalFormats& formats) {
    return dropPrefix(text, formats.groupSeparator) ||
           (formats.groupSeparator == "\xA0" && dropPrefix(text, " "));
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

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Whether a text is nothing, a currency sign or a currency's three letters.
bool isCurrency(std::string_view text, const RegionalFormats& formats) {
    constexpr std::string_view kSigns = "$\xA3\xA5\x80\xA2";
    text = withoutEnds(text, kBlanks);
    const bool sign = text.size() == 1 && kSigns.find(text.front()) != std::string_view::npos;
    const bool letters = text.size() == 3 && std::all_of(text.begin(), text.end(), isLetter);
    return text.empty() || sign || letters || text == formats.currencySign;
}

/// Whether it is a word, as in "12 ea", or what isCurrency takes.
bool isWord(std::string_view text, const RegionalFormats& formats) {
    const std::string_view word = withoutEnds(text, kBlanks);
    return isCurrency(text, formats) || std::all_of(word.begin(), word.end(), isLetter);
}

/// Whether a group of the right size ends the whole part, if it has groups: "12,50" is no 1250.
bool isWellGrouped(std::string_view number, const RegionalFormats& formats) {
    const std::string_view whole = number.substr(0, number.find(formats.decimalSeparator));
    const auto size = static_cast<std::size_t>(formats.grouping.front());
    const bool groups =
        std::find_if_not(whole.begin(), whole.end(), isDigit) != whole.end() && size > 0;
    if (!groups) return true;
    const auto last = std::find_if_not(whole.rbegin(), whole.rend(), isDigit);
    return static_cast<std::size_t>(last - whole.rbegin()) == size;
}

}  // namespace

std::string CleanNumber(std::string& text) {
    text = trimmed(text);
    return cleanedNumber(text);
}

std::string cleanedNumber(std::string_view text) {
    std::string kept(text);
    std::erase_if(kept, [](char c) { return !isDigit(c) && c != '.' && c != ','; });
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

std::optional<double> amountIn(const std::string& cell, const RegionalFormats& formats) {
    const auto first = std::find_if(cell.begin(), cell.end(), isDigit);
    if (first == cell.end()) return std::nullopt;
    const auto end = std::find_if(cell.rbegin(), cell.rend(), isDigit).base();
    const auto& point = formats.decimalSeparator;
    std::string_view before(cell.begin(), first);
    const bool bare = before.ends_with(point);  // ".5"
    if (bare) before.remove_suffix(point.size());
    if (!isCurrency(before, formats) || !isWord({end, cell.end()}, formats)) return std::nullopt;
    const std::string number = (bare ? point : "") + std::string(first, end);
    try {
        if (!isWellGrouped(number, formats)) return std::nullopt;
        return numberOf(number, formats);
    } catch (const Fault&) {
        return std::nullopt;
    }
}

Currency amountOf(std::string_view text, const RegionalFormats& formats) {
    return toCurrency(numberOf(text, formats));
}

std::string standardText(const Decimal& amount, const RegionalFormats& formats) {
    const Decimal number = rounded(amount, 2, Halves::AwayFromZero);
    return (number.negative ? "-" : "") + groupedText(number, 2, formats);
}

std::string currencyText(const Decimal& amount, const RegionalFormats& formats) {
    const Decimal number = rounded(amount, formats.currencyDecimals, Halves::AwayFromZero);
    const std::string digits = groupedText(number, formats.currencyDecimals, formats);
    if (number.negative) {
        return formats.currencyNegativePrefix + digits + formats.currencyNegativeSuffix;
    }
    return formats.currencyPrefix + digits + formats.currencySuffix;
}

std::string currencyText(std::string_view text, const RegionalFormats& formats) {
    try {
        return currencyText(numberOf(text, formats), formats);
    } catch (const Fault&) {
        return std::string(text);
    }
}

std::string generalText(const Decimal& number, const RegionalFormats& formats) {
    const PlainDigits plain = plainDigits(number, number.decimals());
    std::string out = (number.negative ? "-" : "") + plain.whole;
    if (!plain.fraction.empty()) out += formats.decimalSeparator + plain.fraction;
    return out;
}

std::string tagText(double tag) {
    return std::isfinite(tag) ? generalText(tag, RegionalFormats{}) : "0";
}

std::string exactText(const Decimal& amount, const RegionalFormats& formats) {
    return (amount.negative ? "-" : "") +
           groupedText(amount, std::clamp(amount.decimals(), 2, 4), formats);
}

}  // namespace bramblet
