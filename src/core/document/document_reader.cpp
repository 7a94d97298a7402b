#include "core/document/document_reader.h"

#include "core/document/order_markers.h"

#include <algorithm>
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

void readStatus(const std::string& value, Order& order) {
    if (value == "R" || value == "r") order.kind = OrderKind::Requisition;
    if (value == "A" || value == "a") order.kind = OrderKind::PurchaseOrder;
    if (value == "R" || value == "A") order.MarkReceivedCheck = false;
    if (value == "r" || value == "a") order.MarkReceivedCheck = true;
}

OrderLine cellsOf(std::string_view text) {
    OrderLine cells;
    for (auto& cell : cells)
        cell = takenUpTo('\t', text);
    return cells;
}

void readMarker(std::string_view line, Order& order, MarkersFound& found) {
    for (const auto& [tag, field, read] : kOrderMarkers) {
        const auto value = read ? valueOf(tag, line) : std::nullopt;
        if (!value) continue;
        if (field == nullptr) return readStatus(*value, order);
        order.*field = *value;
        found.number = found.number || field == &Order::PONoEd;
        found.vendor = found.vendor || field == &Order::ToCombo;
        found.shipTo = found.shipTo || field == &Order::ShipToCombo;
    }
}

}  // namespace

MarkersFound readMarkers(std::string_view document, Order& order) {
    MarkersFound found;
    while (!document.empty()) {
        std::string_view line = takenUpTo('\n', document);
        if (line.ends_with('\r')) line.remove_suffix(1);  // no CR in a document edited by hand
        if (line.starts_with(kItemOpening)) {
            order.lines.push_back(cellsOf(line.substr(kItemOpening.size())));
        } else if (line.starts_with("<!-- ")) {
            readMarker(line, order, found);
        }
    }
    return found;
}

}  // namespace bramblet
