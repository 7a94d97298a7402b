// Reads an order document back from the marker lines at its top; the visible form is skipped.
#pragma once

#include "core/document/order.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace bramblet {

/// The boxes that a document told; null stands for the order's status.
struct MarkersFound {
    std::vector<OrderField> boxes;

    bool has(OrderField box) const {
        return std::find(boxes.begin(), boxes.end(), box) != boxes.end();
    }
};

/// Opening an order computes its totals anew; as they were when it was saved, only its document
/// tells them.
enum class StoredTotals { Skip, Take };

/// Sets the fields of `order` from the markers of `document` (code page text). A marker that is not
/// complete on its line matches nothing, so a value typed over several lines comes back empty; when
/// a field has several markers, the last wins; every item line adds a line.
MarkersFound readMarkers(std::string_view document, Order& order,
                         StoredTotals totals = StoredTotals::Skip);

}  // namespace bramblet
