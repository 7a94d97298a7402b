#include "core/orders/line_items.h"

#include "core/platform/amount_text.h"
#include "core/platform/fault.h"
#include "core/platform/text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace bramblet {
namespace {

LineEntry entryOf(const OrderLine& line) {
    return {line[kQuantity], line[kUnit], line[kDescription], line[kUnitCost]};
}

/// A text made fit for a cell of a line: a tab or a line break would end the cell or the line when
/// the order's document is read back.
std::string textCell(const std::string& text) {
    return trimmed(withoutControls(text));
}

double checkedNumber(const std::string& text, const std::string& box,
                     const RegionalFormats& formats) {
    try {
        return numberOf(text, formats);
    } catch (const Fault& fault) {
        throw BoxFault(fault.number(), box, text, "is not an amount");
    }
}

}  // namespace

LineEntry storedEntry(const LineEntry& boxes) {
    LineEntry stored{cleanedNumber(boxes.quantity), textCell(boxes.unit),
                     trimmed(boxes.description), cleanedNumber(boxes.unitCost)};
    for (char& c : stored.description) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 32 || code > 126) c = ' ';
    }
    return stored;
}

LineEntry checkedEntry(const LineEntry& boxes, const RegionalFormats& formats) {
    LineEntry stored = storedEntry(boxes);
    checkedNumber(stored.quantity, "Quantity", formats);
    checkedNumber(stored.unitCost, "Unit Cost", formats);
    return stored;
}

std::string lineTotal(const std::string& quantity, const std::string& unitCost,
                      const RegionalFormats& formats) {
    const double count = numberOf(cleanedNumber(quantity), formats);
    const double cost = numberOf(cleanedNumber(unitCost), formats);
    return standardText(count * cost, formats);
}

LineItems::LineItems(OpenOrder& open, const RegionalFormats& formats, Prompts& prompts)
    : open_(open), formats_(formats), prompts_(prompts) {}

void LineItems::OrderPop_OneTime_Click() {
    const Prompts::Command command(prompts_);
    const LineEntry preset{"1", "ea", "", "0"};
    const LineEntry entry = showDialog(preset, "Add a one-time item...").value_or(preset);
    OrderLine line;
    store(line, entry);
    open_.order.lines.push_back(line);
    finishAdding();
}

void LineItems::OrderPop_DescriptionOverride_Click(int row) {
    const Prompts::Command command(prompts_);
    if (!hasLine(row)) return;
    const auto place = static_cast<std::size_t>(row);
    const LineEntry before = entryOf(open_.order.lines[place]);
    const LineEntry entry = showDialog(before, "Edit Line Item").value_or(before);
    const bool none = cleanedNumber(entry.quantity).find_first_of("123456789") == std::string::npos;
    if (none) {
        open_.order.lines.erase(open_.order.lines.begin() + row);
    } else {
        store(open_.order.lines[place], entry);
    }
    finish();
}

void LineItems::removeLine(int row) {
    const Prompts::Command command(prompts_);
    if (!hasLine(row)) return;
    open_.order.lines.erase(open_.order.lines.begin() + row);
    finish();
}

LineItems::Quantity LineItems::GetQuantity(const std::string& fileNumber) const {
    const std::string wanted = trimmed(fileNumber);
    const auto& lines = open_.order.lines;
    const auto line = std::find_if(lines.begin(), lines.end(), [&](const OrderLine& cells) {
        return trimmed(cells[kFileNumber]) == wanted;
    });
    if (line == lines.end()) return {};
    const double quantity =
        std::nearbyint(numberOf(cleanedNumber((*line)[kQuantity]), formats_) + 1);
    if (quantity > std::numeric_limits<std::int16_t>::max()) throw Fault(FaultNumber::Overflow);
    return {static_cast<int>(quantity), static_cast<std::size_t>(line - lines.begin())};
}

void LineItems::StockGrid_DblClick(const StockList& list, int row) {
    const Prompts::Command command(prompts_);
    if (row < 0 || row >= list.rowCount()) return;
    const std::string fileNumber = list.cell(row, StockColumn::FileNumber);
    try {
        const Quantity found = GetQuantity(fileNumber);
        const int quantity = found.value == 0 ? 1 : found.value;
        const double total = toDouble(list.item(row).UnitCost) * quantity;
        OrderLine line;
        line[kQuantity] = std::to_string(quantity);
        line[kUnit] = textCell(list.cell(row, StockColumn::Unit));
        line[kDescription] = textCell(list.cell(row, StockColumn::Description));
        line[kUnitCost] = list.cell(row, StockColumn::UnitCost);
        line[kLineTotal] = standardText(toCurrency(total), formats_);
        line[kFileNumber] = fileNumber;
        auto& lines = open_.order.lines;
        lines.push_back(line);
        if (found.value != 0) lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(found.line));
    } catch (const Fault& fault) {
        prompts_.say("The item was not added: " + fault.inWords());
        return;
    }
    finishAdding();
}

bool LineItems::hasLine(int row) const {
    return row >= 0 && static_cast<std::size_t>(row) < open_.order.lines.size();
}

void LineItems::store(OrderLine& line, const LineEntry& entry) const {
    line[kQuantity] = entry.quantity;
    line[kUnit] = entry.unit;
    line[kDescription] = entry.description;
    line[kUnitCost] = entry.unitCost;
    line[kFileNumber] = kSpecial;
    try {
        line[kLineTotal] = lineTotal(entry.quantity, entry.unitCost, formats_);
    } catch (const Fault& fault) {
        // A product out of range, or a cell of a document edited by hand.
        prompts_.say("The line's total was not computed: " + fault.inWords());
    }
}

void LineItems::finish() {
    open_.markWorthSaving();
    totalUp();
    open_.onChange();
}

void LineItems::finishAdding() {
    finish();
    showLine(static_cast<int>(open_.order.lines.size()) - 1);
}

}  // namespace bramblet
