// The markers at the top of an order document: one comment line per field, from which the order can
// be opened again. Written and read from this one table.
#pragma once

#include "core/document/order.h"

#include <string>
#include <string_view>

namespace bramblet {

/// A marker line reads "<!-- TAG value TAG -->".
struct OrderMarker {
    const char* tag;   ///< three characters
    OrderField field;  ///< null for the order's status, which is no box
    bool read;         ///< whether opening an order takes the value; it computes the totals
};

/// In the order of the document.
inline constexpr OrderMarker kOrderMarkers[]{
    {"PON", &Order::PONoEd, true},
    {"JOB", &Order::JobNumberEd, true},
    {"ORD", &Order::OrderDateEd, true},
    {"VND", &Order::ToCombo, true},
    {"STO", &Order::ShipToCombo, true},
    {"SDA", &Order::ShipDateEd, true},
    {"TOT", &Order::OrderTotalEd, false},
    {"SHP", &Order::ShippingEd, true},
    {"TAX", &Order::SalesTaxEd, true},
    {"NET", &Order::NetTotalEd, false},
    {"DIS", &Order::DiscountEd, true},
    {"SUB", &Order::SubTotalEd, false},
    {"STA", nullptr, true},
    {"BY?", &Order::ByEd, true},
    {"VIA", &Order::ShipViaEd, true},
    {"FOB", &Order::FOBEd, true},
    {"TRM", &Order::TermsEd, true},
    {"TAF", &Order::TaxFactorEd, true},
    {"DIF", &Order::DiscountFactorEd, true},
    {"COM", &Order::CommentsEd, true},
};

inline constexpr std::string_view kItemOpening = "<!-- ITM ";
inline constexpr std::string_view kEndOfMarkers = "<!-- END -->";

inline std::string markerOpening(const std::string& tag) {
    return "<!-- " + tag + " ";
}
inline std::string markerClosing(const std::string& tag) {
    return " " + tag + " -->";
}

}  // namespace bramblet
