#include "core/orders/order_lines.h"

#include "core/platform/amount_text.h"
#include "core/platform/fault.h"
#include "core/platform/text.h"

#include <array>

namespace bramblet {
namespace {

double checkedNumber(const std::string& text, const std::string& box,
                     const RegionalFormats& formats) {
    try {
        return numberOf(text, formats);
    } catch (const Fault& fault) {
        throw BoxFault(fault.number(), box, text, "is not an amount");
    }
}

template <OrderColumn Cell>
constexpr Column<OrderLine> column(ColumnLook look) {
    Column<OrderLine> column{look};
    column.text = [](const OrderLine& line, const RegionalFormats&) { return line[Cell]; };
    return column;
}

/// The file number travels with its line out of sight, as do the two cells behind the quantity.
constexpr std::array kColumns{
    column<kQuantity>({"Quant", 8, false, Align::Right}),
    column<kSpareColumn1>({"", 0}),
    column<kSpareColumn2>({"", 0}),
    column<kUnit>({"Unit", 11}),
    column<kDescription>({"Description", 36, true}),
    column<kUnitCost>({"Unit Cost", 12, false, Align::Right}),
    column<kLineTotal>({"Total", 13, false, Align::Right}),
    column<kFileNumber>({"File Number", 0}),
};

}  // namespace

std::string textCell(const std::string& text) {
    return trimmed(withoutControls(text));
}

LineEntry storedEntry(const LineEntry& boxes) {
    return {cleanedNumber(boxes.quantity), textCell(boxes.unit),
            storedDescription(boxes.description), cleanedNumber(boxes.unitCost)};
}

std::string storedDescription(const std::string& description) {
    std::string stored = trimmed(description);
    for (char& c : stored) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 32 || code > 126) c = ' ';
    }
    return stored;
}

LineEntry checkedEntry(const LineEntry& boxes, const RegionalFormats& formats) {
    LineEntry stored = storedEntry(boxes);
    if (boxes.unitCost.find('/') != std::string::npos)
        throw BoxFault(FaultNumber::TypeMismatch, "Unit Cost", boxes.unitCost,
                       "is no division that gives an amount");
    checkedNumber(stored.quantity, "Quantity", formats);
    checkedNumber(stored.unitCost, "Unit Cost", formats);
    return stored;
}

OrderLine specialLine(const LineEntry& entry) {
    OrderLine line;
    line[kQuantity] = entry.quantity;
    line[kUnit] = entry.unit;
    line[kDescription] = entry.description;
    line[kUnitCost] = entry.unitCost;
    line[kFileNumber] = kSpecial;
    return line;
}

std::string lineTotal(const std::string& quantity, const std::string& unitCost,
                      const RegionalFormats& formats) {
    const double count = numberOf(cleanedNumber(quantity), formats);
    const double cost = numberOf(cleanedNumber(unitCost), formats);
    return standardText(count * cost, formats);
}

std::string unitCostFor(const std::string& total, const std::string& quantity,
                        const RegionalFormats& formats) {
    constexpr int kMostDecimals = 8;
    try {
        const double wanted = numberOf(cleanedNumber(total), formats);
        const double count = numberOf(cleanedNumber(quantity), formats);
        if (count == 0) return {};
        for (int decimals = 2;; ++decimals) {
            const auto digits = plainDigits(
                rounded(Decimal(wanted / count), decimals, Halves::AwayFromZero), decimals);
            std::string cost = digits.whole + formats.decimalSeparator + digits.fraction;
            const bool exact = lineTotal(quantity, cost, formats) == standardText(wanted, formats);
            if (exact || decimals == kMostDecimals) return cost;
        }
    } catch (const Fault&) {
        return {};
    }
}

std::string quotientIn(const std::string& unitCost, const RegionalFormats& formats) {
    const auto slash = unitCost.find('/');
    if (slash == std::string::npos) return {};
    const std::string total = unitCost.substr(0, slash), quantity = unitCost.substr(slash + 1);
    const bool readable = amountIn(total, formats) && amountIn(quantity, formats);
    return readable ? unitCostFor(total, quantity, formats) : std::string();
}

LineTable::LineTable(const RegionalFormats& formats) : ListTable(formats, kColumns) {}

bool LineTable::take(const std::vector<OrderLine>& lines) {
    if (rows_ == lines) return false;
    rows_ = lines;
    return true;
}

std::string LineTable::widest(int column) const {
    if (look(column).align != Align::Right) return {};
    const auto cell = static_cast<std::size_t>(column);
    std::string widest;
    for (const OrderLine& line : rows_) {
        if (line[cell].size() > widest.size()) widest = line[cell];
    }
    return widest;
}

}  // namespace bramblet
