// Reads an order document back: the marker lines at its top, the visible form is passed over.
#pragma once

#include "core/document/order.h"

#include <string_view>

namespace bramblet {

/// Which of the markers that call for more than a text were met.
struct MarkersFound {
    bool number = false;
    bool vendor = false;
    bool shipTo = false;
};

/// Sets the fields of `order` from the markers of `document` (code page text). A marker that is
/// not whole on its line matches nothing, so a value typed over several lines comes back empty; of
/// several markers for one field the last wins; every item line adds a line.
MarkersFound readMarkers(std::string_view document, Order& order);

}  // namespace bramblet
