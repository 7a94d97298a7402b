// Amounts as text: cleaning what was typed, reading it in the user's region, and the named formats
// "standard" and "currency".
#pragma once

#include "core/platform/currency.h"
#include "core/platform/decimal.h"
#include "core/platform/regional_formats.h"

#include <optional>
#include <string>
#include <string_view>

namespace bramblet {

/// Keeps only the digits, "." and "," of the trimmed text, or gives "0" when nothing is left; a
/// minus sign is dropped, so the result is never negative. The argument is replaced by its trimmed
/// form.
std::string CleanNumber(std::string& text);

/// As above, for a text that need not be trimmed in place.
std::string cleanedNumber(std::string_view text);

/// The number that a text names in the user's region: digits with group separators, a decimal
/// separator, a currency sign and a leading minus sign. Anything else throws Fault(TypeMismatch).
double numberOf(std::string_view text, const RegionalFormats& formats);

/// The text's `numberOf` as an amount. Throws Fault(TypeMismatch) or Fault(Overflow).
Currency amountOf(std::string_view text, const RegionalFormats& formats);

/// The amount in a cell of another program's table: a number of the region with a currency before
/// it and a word or a currency after it, or without. Nothing for everything else, negative amounts
/// among it.
std::optional<double> amountIn(const std::string& cell, const RegionalFormats& formats);

/// "standard": group separators and two decimals, halves rounded away from zero.
std::string standardText(const Decimal& amount, const RegionalFormats& formats);

/// "currency": the region's currency form.
std::string currencyText(const Decimal& amount, const RegionalFormats& formats);

/// "currency" of a text: of the number it names, or the text unchanged when it names none.
std::string currencyText(std::string_view text, const RegionalFormats& formats);

/// A number as people write it: up to 15 digits, no group separators, no trailing zeros.
std::string generalText(const Decimal& number, const RegionalFormats& formats);

/// The number of an address or a stock item: plain digits, the same in every region.
std::string tagText(double tag);

/// An amount with at least two and at most four decimals, so that nothing of it is lost.
std::string exactText(const Decimal& amount, const RegionalFormats& formats);

}  // namespace bramblet
