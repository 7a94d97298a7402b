// Reads an order document back from the marker lines at its top; the visible form is skipped.
#pragma once

#include "core/document/order.h"

#include <string_view>

namespace bramblet {

/// Which markers were found, of those that call for more than storing a text.
struct MarkersFound {
    bool number = false;
    bool vendor = false;
    bool shipTo = false;
};

/// Sets the fields of `order` from the markers of `document` (code page text). A marker that is not
/// complete on its line matches nothing, so a value typed over several lines comes back empty; when
/// a field has several markers, the last wins; every item line adds a line.
MarkersFound readMarkers(std::string_view document, Order& order);

}  // namespace bramblet
