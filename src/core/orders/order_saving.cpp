#include "core/orders/order_saving.h"

#include "core/document/document_writer.h"
#include "core/document/totals.h"
#include "core/platform/text.h"

#include <cstdio>

namespace bramblet {
namespace {

/// An order number as it is shown: six digits with leading zeros, longer numbers in full.
std::string orderNumberText(double number) {
    std::string digits(32, '\0');
    const int length = std::snprintf(digits.data(), digits.size(), "%06.0f", number);
    digits.resize(static_cast<std::size_t>(length));
    return digits;
}

}  // namespace

std::optional<std::string> OrderSaving::nextNumber() {
    std::optional<std::string> number;
    commands_.attempt("No order number could be drawn: ",
                      [&] { number = orderNumberText(index_.NextPONumber()); });
    return number;
}

bool OrderSaving::saveAs(const std::string& number, Histories histories) {
    const std::string previousNumber = open_.order().PONoEd;
    open_.fill(&Order::PONoEd, number);
    documents_.forgetOpen();
    if (open_.recompute()) return write(histories);
    open_.fill(&Order::PONoEd, previousNumber);
    return false;
}

bool OrderSaving::write(Histories histories) {
    const std::string number = open_.order().PONoEd;
    std::filesystem::path path;
    const bool named = commands_.attempt(
        "Order " + number + " was not saved: ",
        [&] { path = commands_.folder().documentPath(number); }, Loss::Order);
    const bool written = named && writeFiles(path, histories);
    open_.allowCopies();
    open_.refuseDates(!datesAreReadable());
    if (!written) {
        open_.MarkOrderChanged();  // what is shown is not what is stored
        return false;
    }
    open_.markSaved();
    settings_.OrdersSavedCount += 1;
    if (trimmed(number).size() > kIndexNumberWidth) {
        commands_.say("The list of orders holds only six characters of the number " + number);
    }
    commands_.sayDone("Order " + number + " is saved");
    return true;
}

/// Goes on after a failure, so that as much as possible is saved. The list of saved orders is made
/// from the records among which the order's own was entered, and last: the document may have to
/// wait, and the windows show the list as it is meanwhile.
bool OrderSaving::writeFiles(const std::filesystem::path& path, Histories histories) {
    const std::string& number = open_.order().PONoEd;
    open_.markStored();
    std::optional<OrderRecords> records;
    const bool entered =
        commands_.attempt("Order " + number + " was not entered in the list of orders: ",
                          [&] { records = index_.RecordData(open_.order()); });
    if (histories == Histories::Remember) histories_.trimTexts();
    const bool documented = commands_.attempt(
        "The document of order " + number + " was not saved: ", [&] { MakeSnap(path); },
        Loss::Order);
    // Done last: a mere convenience must not keep an order from being saved.
    if (histories == Histories::Remember) histories_.AddToUserFields();
    if (records) savedOrders_.take(std::move(*records));
    if (documented) lastPaid_.saved(open_.order());
    return entered && documented;
}

void OrderSaving::MakeSnap(const std::filesystem::path& path) {
    documents_.write(path, orderDocument(open_.order(), {settings_, taxFreight_, formats_}));
}

bool OrderSaving::datesAreReadable() const {
    return index_.isDate(open_.order().OrderDateEd) && index_.isDate(open_.order().ShipDateEd);
}

/// Checked before a number is drawn: otherwise the list could not take the order, and the number
/// would be drawn again for another one.
bool OrderSaving::checkDates() {
    const bool readable =
        commands_.attempt("The order was not saved: ", [&] { index_.checkDates(open_.order()); });
    if (!readable) open_.refuseDates(true);
    return readable;
}

void OrderSaving::keepUnsaved(const KeptOrders& kept) const {
    const std::string name = open_.isPending() ? "pending" : trimmed(open_.order().PONoEd);
    kept.keep(name, unsavedDocument(), commands_.folder().DataPath());
}

/// Where an amount cannot be read there is no form, but still all that was typed.
std::string OrderSaving::unsavedDocument() const {
    Order order = open_.order();
    try {
        TotalUp(order, taxFreight_, formats_);
        return orderDocument(order, {settings_, taxFreight_, formats_});
    } catch (const Fault&) {
        std::string text = orderMarkers(open_.order()) + "<p>This order could not be totalled up.";
        // The markers hold one line each, and no addresses.
        for (const OrderField box : {&Order::ToField, &Order::ShipToField, &Order::CommentsEd})
            MakeHTML_NoteBlock(open_.order().*box, text);
        return text;
    }
}

}  // namespace bramblet
