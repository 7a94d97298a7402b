#include "core/document/document_reader.h"

#include "core/document/order_markers.h"

#include <optional>

namespace bramblet {
namespace {

/// Takes the text before the next `end`, or all of it, off the front of `text`, with the `end`.
std::string_view takenUpTo(char end, std::string_view& text) {
    const std::string_view taken = text.substr(0, text.find(end));
    text.remove_prefix(std::min(taken.size() + 1, text.size()));
    return taken;
}

/// The value between a marker's opening and closing; nothing when the line is not such a marker.
std::optional<std::string> valueOf(const std::string& tag, std::string_view line) {
    const std::string opening = markerOpening(tag);
    const std::string closing = markerClosing(tag);
    if (line.size() < opening.size() + closing.size()) return std::nullopt;
    if (!line.starts_with(opening) || !line.ends_with(closing)) return std::nullopt;
    return std::string(line.substr(opening.size(), line.size() - opening.size() - closing.size()));
}

/// False for a status that no order has; it changes nothing.
bool readStatus(const std::string& value, Order& order) {
    const bool requisition = value == "R" || value == "r";
    const bool received = value == "r" || value == "a";
    if (!requisition && !received && value != "A") return false;
    order.kind = requisition ? OrderKind::Requisition : OrderKind::PurchaseOrder;
    order.MarkReceivedCheck = received;
    return true;
}

OrderLine cellsOf(std::string_view text) {
    OrderLine cells;
    for (auto& cell : cells)
        cell = takenUpTo('\t', text);
    return cells;
}

void readMarker(std::string_view line, Order& order, StoredTotals totals, MarkersFound& found) {
    for (const auto& [tag, field, read] : kOrderMarkers) {
        const auto value = read || totals == StoredTotals::Take ? valueOf(tag, line) : std::nullopt;
        if (!value) continue;
        if (field != nullptr) {
            order.*field = *value;
        } else if (!readStatus(*value, order)) {
            return;
        }
        found.boxes.push_back(field);
        return;
    }
}

}  // namespace

MarkersFound readMarkers(std::string_view document, Order& order, StoredTotals totals) {
    MarkersFound found;
    while (!document.empty()) {
        std::string_view line = takenUpTo('\n', document);
        if (line.ends_with('\r')) line.remove_suffix(1);  // no CR in a document edited by hand
        if (line.starts_with(kItemOpening)) {
            order.lines.push_back(cellsOf(line.substr(kItemOpening.size())));
        } else if (line.starts_with("<!-- ")) {
            readMarker(line, order, totals, found);
        }
    }
    return found;
}

}  // namespace bramblet
