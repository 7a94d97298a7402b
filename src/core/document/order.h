// The order being edited, as plain texts: what is in the boxes is the value.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace bramblet {

/// Columns of a line item, in the order of the grid and of the document.
enum OrderColumn : std::size_t {
    kQuantity,
    kSpareColumn1,  ///< kept as an empty cell
    kSpareColumn2,  ///< kept as an empty cell
    kUnit,
    kDescription,
    kUnitCost,
    kLineTotal,
    kFileNumber,  ///< the stock item's number, or kSpecial
    kOrderColumns
};

/// The content of the file number column in a line that is not a stock item.
inline constexpr const char* kSpecial = "special";

/// One row of the line grid: eight cells of text.
using OrderLine = std::array<std::string, kOrderColumns>;

/// The content of the number box in an order that has never been saved.
inline constexpr const char* kPendingNumber = "(PEND)";

enum class OrderKind { PurchaseOrder, Requisition };

/// One member per control of the main window, under the control's name. Texts are in the code page;
/// the two addresses have CR LF between their lines.
struct Order {
    std::string PONoEd = kPendingNumber;
    OrderKind kind = OrderKind::PurchaseOrder;  ///< OptionPO or OptionRe
    bool MarkReceivedCheck = false;
    std::string JobNumberEd;
    std::string OrderDateEd;
    std::string ShipDateEd;
    std::string ToCombo, ToField;
    std::string ShipToCombo, ShipToField;
    std::string ByEd, ShipViaEd, FOBEd, TermsEd, CommentsEd;
    std::string SubTotalEd = "0.00";
    std::string DiscountFactorEd;
    std::string DiscountEd = "0.00";
    std::string NetTotalEd = "0.00";
    std::string TaxFactorEd;
    std::string SalesTaxEd = "0.00";
    std::string ShippingEd = "0.00";
    std::string OrderTotalEd = "0.00";
    std::vector<OrderLine> lines;

    bool operator==(const Order&) const = default;
};

/// A box of the order.
using OrderField = std::string Order::*;

/// "A" purchase order, "R" requisition; in lower case when the order has been received.
inline std::string statusOf(const Order& order) {
    if (order.kind == OrderKind::Requisition) return order.MarkReceivedCheck ? "r" : "R";
    return order.MarkReceivedCheck ? "a" : "A";
}

}  // namespace bramblet
