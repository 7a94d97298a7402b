#include "core/orders/line_items.h"

#include "core/orders/pasted_lines.h"
#include "core/platform/amount_text.h"
#include "core/platform/fault.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace bramblet {
namespace {

LineEntry entryOf(const OrderLine& line) {
    return {line[kQuantity], line[kUnit], line[kDescription], line[kUnitCost], line[kFileNumber]};
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

LineTable::LineTable(const RegionalFormats& formats) : ListTable(formats) {
    for (const auto& column : kColumns)
        shown_.push_back(&column);
}

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

LineItems::LineItems(Commands& commands, Undo& undo, OpenOrder& open,
                     const RegionalFormats& formats)
    : commands_(commands), undo_(undo), open_(open), formats_(formats) {}

void LineItems::OrderPop_OneTime_Click() {
    commands_.run([&] {
        const LineEntry preset{"1", "ea", "", "0"};
        OrderLine line;
        store(line, commands_.screen().editLine(preset, "Add a one-time item...").value_or(preset));
        change([&](std::vector<OrderLine>& lines) { lines.push_back(line); });
        showLast();
    });
}

void LineItems::OrderPop_DescriptionOverride_Click(int row) {
    if (!hasLine(row)) return;
    commands_.run([&] {
        const auto place = static_cast<std::size_t>(row);
        const LineEntry before = entryOf(open_.order().lines[place]);
        const LineEntry entry =
            commands_.screen().editLine(before, "Edit Line Item").value_or(before);
        if (cleanedNumber(entry.quantity).find_first_of("123456789") == std::string::npos) {
            return removeLine(row);
        }
        change([&](std::vector<OrderLine>& lines) { store(lines[place], entry); });
    });
}

void LineItems::OrderGrid_DblClick(int row) {
    commands_.onData([&] { OrderPop_DescriptionOverride_Click(row); });
}

void LineItems::removeLine(int row) {
    if (!hasLine(row)) return;
    commands_.run([&] {
        const OpenOrder::State before = open_.state();
        change([&](std::vector<OrderLine>& lines) { lines.erase(lines.begin() + row); });
        offerBack(before, row);
    });
}

/// If nothing has been done to the order since its line `row` was deleted, it is then as it was
/// before; otherwise the line comes back to its place.
void LineItems::offerBack(const OpenOrder::State& before, int row) {
    const OrderLine& line = before.order.lines[static_cast<std::size_t>(row)];
    const auto back = [this, before, line, row, after = open_.state()] {
        const int place = std::min(row, static_cast<int>(open_.order().lines.size()));
        if (open_.state() == after) {
            open_.bringBack(before);
        } else {
            change(
                [&](std::vector<OrderLine>& lines) { lines.insert(lines.begin() + place, line); });
        }
        show(place);
        return true;
    };
    Undo::Step step = deletionOf(called("line", line[kDescription]), back);
    step.applies = [this, before] { return open_.isStill(before); };
    undo_.offer(std::move(step));
}

void LineItems::moveLine(int row, int by) {
    const int to = row + by;
    if (!hasLine(row) || !hasLine(to)) return;
    commands_.run([&] {
        change([&](std::vector<OrderLine>& lines) {
            const auto from = lines.begin() + row;
            if (by < 0) std::rotate(lines.begin() + to, from, from + 1);
            if (by > 0) std::rotate(from, from + 1, from + 1 + by);
        });
        show(to);
    });
}

void LineItems::paste(const std::string& clipboard) {
    commands_.run([&] {
        PastedLines pasted(clipboard, formats_);
        if (pasted.rowCount() == 0) return commands_.say("The clipboard holds no lines to paste");
        if (!commands_.screen().lookAtPastedLines(pasted) || pasted.rowCount() == 0) return;
        change([&](std::vector<OrderLine>& lines) {
            for (int row = 0; row < pasted.rowCount(); ++row)
                lines.push_back(pasted.row(row));
        });
        showLast();
        commands_.sayDone(pasted.summary() + " added");
    });
}

LineItems::Quantity LineItems::GetQuantity(const std::string& fileNumber) const {
    const std::string wanted = trimmed(fileNumber);
    const auto& lines = open_.order().lines;
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
    commands_.onData([&] {
        if (row < 0 || row >= list.rowCount()) {
            commands_.say("No item is picked in the list of stock items");
            return;
        }
        Quantity found;
        OrderLine line;
        const bool made = commands_.attempt("The item was not added: ", [&] {
            found = GetQuantity(list.text(row, StockColumn::FileNumber));
            line = itemLine(list, row, std::max(found.value, 1));
        });
        if (!made) return;
        change([&](std::vector<OrderLine>& lines) {
            if (found.value != 0) {
                lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(found.line));
            }
            lines.push_back(line);
        });
        showLast();
    });
}

/// Throws Fault when its total is beyond the range of Currency.
OrderLine LineItems::itemLine(const StockList& list, int row, int quantity) const {
    OrderLine line;
    line[kQuantity] = std::to_string(quantity);
    line[kUnit] = textCell(list.text(row, StockColumn::Unit));
    line[kDescription] = textCell(list.text(row, StockColumn::Description));
    line[kUnitCost] = list.text(row, StockColumn::UnitCost);
    line[kLineTotal] = standardText(
        toCurrency(toDouble(list.row(row).get<&StockItemRecord::UnitCost>()) * quantity), formats_);
    line[kFileNumber] = list.text(row, StockColumn::FileNumber);
    return line;
}

bool LineItems::hasLine(int row) const {
    return row >= 0 && static_cast<std::size_t>(row) < open_.order().lines.size();
}

void LineItems::store(OrderLine& line, const LineEntry& entry) const {
    std::string total = std::move(line[kLineTotal]);
    line = specialLine(entry);
    line[kLineTotal] = std::move(total);
    // Fails for a product out of range, or a cell of a document edited by hand.
    commands_.attempt("The line's total was not computed: ", [&] {
        line[kLineTotal] = lineTotal(entry.quantity, entry.unitCost, formats_);
    });
}

void LineItems::change(const std::function<void(std::vector<OrderLine>& lines)>& change) {
    std::vector<OrderLine> lines = open_.order().lines;
    change(lines);
    open_.setLines(std::move(lines));
    open_.recompute();
}

void LineItems::show(int row) {
    commands_.showChanges();
    commands_.screen().showLine(row);
}

void LineItems::showLast() {
    show(static_cast<int>(open_.order().lines.size()) - 1);
}

}  // namespace bramblet
