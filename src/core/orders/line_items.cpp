#include "core/orders/line_items.h"

#include "core/platform/amount_text.h"
#include "core/platform/fault.h"
#include "core/platform/text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace bramblet {
namespace {

LineEntry entryOf(const OrderLine& line) {
    return {line[kQuantity], line[kUnit], line[kDescription], line[kUnitCost], line[kFileNumber]};
}

}  // namespace

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
        const PastedLines& pasted = pasted_.emplace(clipboard, formats_);
        if (pasted.rowCount() == 0) {
            commands_.say("The clipboard holds no lines to paste");
        } else if (commands_.screen().lookAtPastedLines() && pasted.rowCount() > 0) {
            change([&](std::vector<OrderLine>& lines) {
                for (int row = 0; row < pasted.rowCount(); ++row)
                    lines.push_back(pasted.row(row));
            });
            showLast();
            commands_.sayDone(pasted.summary() + " added");
        }
    });
    pasted_.reset();
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
