#include "core/document/document_reader.h"

#include "core/document/order_markers.h"

#include <optional>

namespace bramblet {
namespace {

/// Calls `use` with each line, without its line end (CR LF, or LF in a document edited by hand).
template <class Use>
void forEachLine(std::string_view text, Use use) {
    while (!text.empty()) {
        const auto end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        use(line);
        if (end == std::string_view::npos) return;
        text.remove_prefix(end + 1);
    }
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
    for (auto& cell : cells) {
        const auto tab = text.find('\t');
        cell = std::string(text.substr(0, tab));
        if (tab == std::string_view::npos) break;
        text.remove_prefix(tab + 1);
    }
    return cells;
}

template <class Markers>
void readFields(const Markers& markers, std::string_view line, Order& order, MarkersFound& found) {
    for (const OrderMarker& marker : markers) {
        if (!marker.read) continue;
        const auto value = valueOf(marker.tag, line);
        if (!value) continue;
        order.*marker.field = *value;
        found.number = found.number || marker.field == &Order::PONoEd;
        found.vendor = found.vendor || marker.field == &Order::ToCombo;
        found.shipTo = found.shipTo || marker.field == &Order::ShipToCombo;
    }
}

}  // namespace

MarkersFound readMarkers(std::string_view document, Order& order) {
    MarkersFound found;
    forEachLine(document, [&](std::string_view line) {
        if (!line.starts_with("<!-- ")) return;
        if (line.starts_with(kItemOpening)) {
            order.lines.push_back(cellsOf(line.substr(kItemOpening.size())));
            return;
        }
        readFields(kMarkersBeforeStatus, line, order, found);
        readFields(kMarkersBehindStatus, line, order, found);
        if (const auto status = valueOf(kStatusTag, line)) readStatus(*status, order);
    });
    return found;
}

}  // namespace bramblet
