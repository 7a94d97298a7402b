#include "core/orders/order_opening.h"

#include "core/document/document_reader.h"
#include "core/document/totals.h"
#include "core/platform/amount_text.h"
#include "core/platform/path_text.h"

namespace bramblet {

void OrderOpening::clearOrder() {
    open_.replace(clearedOrder());
    open_.refuseDates(false);
    addresses_.showNone();
}

Order OrderOpening::clearedOrder() const {
    Order cleared;
    cleared.PONoEd = open_.order().PONoEd;
    cleared.kind = open_.order().kind;
    cleared.OrderDateEd = shortDateText(clock_.today(), formats_);
    const std::string zero = standardText(Currency{}, formats_);
    for (const auto box : {&Order::SubTotalEd, &Order::DiscountEd, &Order::NetTotalEd,
                           &Order::SalesTaxEd, &Order::ShippingEd, &Order::OrderTotalEd}) {
        cleared.*box = zero;
    }
    TotalUp(cleared, taxFreight_, formats_);
    return cleared;
}

void OrderOpening::LoadOrder(const std::string& orderNumber) {
    std::string document;
    const bool read =
        commands_.attemptOrAsk("Order " + orderNumber + " cannot be opened: ", "Bramblet", [&] {
            const std::filesystem::path path = commands_.folder().documentPath(orderNumber);
            if (!files_.exists(path)) files_.touch(path);
            document = documents_.open(path);
        });
    if (read) show(document, "order " + orderNumber);
}

void OrderOpening::loadKept(const std::filesystem::path& path) {
    std::string document;
    const std::string name = shown(path.filename());
    const bool read =
        commands_.attemptOrAsk("The kept order " + name + " cannot be opened: ", "Bramblet",
                               [&] { document = files_.read(path); });
    if (!read) return;
    documents_.forgetOpen();
    show(document, name);
    open_.markKeptState();
    if (open_.isPending()) return;
    commands_.sayDone("This is a kept state of order " + open_.order().PONoEd +
                      ". \"Save as Copy\" gives it a number of its own");
}

/// Shows the order that a document holds.
void OrderOpening::show(const std::string& document, const std::string& name) {
    clearOrder();
    Order order = open_.order();
    order.kind = OrderKind::PurchaseOrder;
    const MarkersFound found = readMarkers(document, order);
    // Without a number of its own, what is shown must not be saved over the order shown before.
    if (!found.has(&Order::PONoEd)) {
        order.PONoEd = kPendingNumber;
        commands_.say("The document of " + name + " holds no order");
    }
    open_.replace(std::move(order));
    if (found.has(&Order::ToCombo)) {
        addresses_.Combo_Click(AddressSide::Vendor);  // which also lists its stock items
    } else {
        stock_.PopStockList();
    }
    if (found.has(&Order::ShipToCombo)) addresses_.Combo_Click(AddressSide::Destination);
    open_.recompute();
    open_.markSaved();
    open_.allowCopies();
}

}  // namespace bramblet
