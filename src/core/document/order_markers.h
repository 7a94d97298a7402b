// The markers at the top of an order document: one comment line per field, from which the order can
// be opened again. Written and read from this one table.
#pragma once

#include "core/document/order.h"

#include <array>
#include <string>
#include <string_view>

namespace bramblet {

/// A marker line reads "<!-- TAG value TAG -->".
struct OrderMarker {
    const char* tag;  ///< three characters
    OrderField field;
    bool read;  ///< whether opening an order takes the value; computed totals are not read
};

/// The markers before and after the status line, in the order of the document.
inline constexpr std::array kMarkersBeforeStatus{
    OrderMarker{"PON", &Order::PONoEd, true},        OrderMarker{"JOB", &Order::JobNumberEd, true},
    OrderMarker{"ORD", &Order::OrderDateEd, true},   OrderMarker{"VND", &Order::ToCombo, true},
    OrderMarker{"STO", &Order::ShipToCombo, true},   OrderMarker{"SDA", &Order::ShipDateEd, true},
    OrderMarker{"TOT", &Order::OrderTotalEd, false}, OrderMarker{"SHP", &Order::ShippingEd, true},
    OrderMarker{"TAX", &Order::SalesTaxEd, true},    OrderMarker{"NET", &Order::NetTotalEd, false},
    OrderMarker{"DIS", &Order::DiscountEd, true},    OrderMarker{"SUB", &Order::SubTotalEd, false},
};
inline constexpr std::array kMarkersBehindStatus{
    OrderMarker{"BY?", &Order::ByEd, true},
    OrderMarker{"VIA", &Order::ShipViaEd, true},
    OrderMarker{"FOB", &Order::FOBEd, true},
    OrderMarker{"TRM", &Order::TermsEd, true},
    OrderMarker{"TAF", &Order::TaxFactorEd, true},
    OrderMarker{"DIF", &Order::DiscountFactorEd, true},
    OrderMarker{"COM", &Order::CommentsEd, true},
};

inline constexpr const char* kStatusTag = "STA";
inline constexpr std::string_view kItemOpening = "<!-- ITM ";
inline constexpr std::string_view kEndOfMarkers = "<!-- END -->";

inline std::string markerOpening(const std::string& tag) {
    return "<!-- " + tag + " ";
}
inline std::string markerClosing(const std::string& tag) {
    return " " + tag + " -->";
}

}  // namespace bramblet
