#include "orders/line_items.h"

#include "document/amount_text.h"
#include "platform/fault.h"
#include "platform/text.h"

namespace bramblet {
namespace {

LineEntry entryOf(const OrderLine& line) {
    return {line[kQuantity], line[kUnit], line[kDescription], line[kUnitCost]};
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
    LineEntry stored{cleanedNumber(boxes.quantity), trimmed(boxes.unit), trimmed(boxes.description),
                     cleanedNumber(boxes.unitCost)};
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
    const LineEntry preset{"1", "ea", "", "0"};
    const LineEntry entry = showDialog(preset, "Add a one-time item...").value_or(preset);
    OrderLine line;
    store(line, entry);
    open_.order.lines.push_back(line);
    finish();
}

void LineItems::OrderPop_DescriptionOverride_Click(int row) {
    if (!hasLine(row)) return;
    OrderLine& line = open_.order.lines[static_cast<std::size_t>(row)];
    const LineEntry entry = showDialog(entryOf(line), "Edit Line Item").value_or(entryOf(line));
    store(line, entry);
    if (cleanedNumber(entry.quantity).find_first_of("123456789") == std::string::npos) {
        open_.order.lines.erase(open_.order.lines.begin() + row);
    }
    finish();
}

void LineItems::removeLine(int row) {
    if (!hasLine(row)) return;
    open_.order.lines.erase(open_.order.lines.begin() + row);
    finish();
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
        // Only a line of a document edited by hand gets here: the dialog takes numbers alone.
        prompts_.say("The line's total was not computed: " + fault.inWords());
    }
}

void LineItems::finish() {
    open_.markWorthSaving();
    totalUp();
    open_.onChange();
}

}  // namespace bramblet
