#include "core/orders/order_editor.h"

#include "core/document/document_reader.h"
#include "core/document/document_writer.h"
#include "core/document/totals.h"
#include "core/platform/amount_text.h"
#include "core/platform/path_text.h"
#include "core/platform/text.h"

#include <cstdio>

namespace bramblet {
namespace {

constexpr int kCopies = 10;

/// An order number as it is shown: six digits with leading zeros, longer numbers in full.
std::string orderNumberText(double number) {
    std::string digits(32, '\0');
    const int length = std::snprintf(digits.data(), digits.size(), "%06.0f", number);
    digits.resize(static_cast<std::size_t>(length));
    return digits;
}

}  // namespace

void OrderEditor::SaveChanges_Click() {
    commands_.onData([&] {
        pickTypedNames();
        if (!open_.isPending())
            return relistUnless(open_.recompute() && write(Histories::Remember));
        const Message question{"Save new Bramblet Number?", "Save PO?", Buttons::YesNo,
                               Icon::Question};
        if (commands_.prompts().ask(question) != Answer::Yes || !checkDates()) return;
        for (const AddressSide side : kAddressSides) {
            if (addresses_.shown(side).changedEnabled) addresses_.Changed_Click(side);
        }
        const auto number = nextNumber();
        relistUnless(number && saveAs(*number, Histories::Remember));
    });
}

void OrderEditor::NewPO_Click() {
    commands_.onData([&] {
        if (offerToSave("Order", "Save?") != Offer::GoOn) return;
        if (!confirm("Create blank new order ?")) return;
        // Drawn before the window is cleared, so that without a number the order shown stays as it
        // is.
        const auto number = nextNumber();
        if (!number) return;
        histories_.AddToUserFields();
        addresses_.PopAddyLists();
        clearOrder();
        stock_.PopStockList();
        relistUnless(saveAs(*number, Histories::LeaveAlone));
    });
}

void OrderEditor::Save_PO_Click() {
    commands_.onData([&] {
        if (offerToSave("Bramblet", "Save PO?") != Offer::GoOn) return;
        if (!confirm("Create new purchase order based on details currently displayed?")) return;
        pickTypedNames();
        if (!checkDates()) return;
        const auto number = nextNumber();
        if (!number) return;
        const bool received = open_.order().MarkReceivedCheck;
        markReceived(false);
        const bool saved = saveAs(*number, Histories::LeaveAlone);
        if (!saved && open_.order().PONoEd != *number) {
            markReceived(received);  // no copy was made: the source is as it was
        }
        relistUnless(saved);
    });
}

void OrderEditor::Clear_Click() {
    commands_.onData([&] {
        const OpenOrder::State before = open_.state();
        const AddressBook::Standing addresses = addresses_.standing();
        clearOrder();
        stock_.PopStockList();
        open_.MarkOrderChanged();
        const OpenOrder::State after = open_.state();
        undo_.offer({"Order cleared.", "Clear",
                     [=, this] { return unclear(before, addresses, after); },
                     [=, this] { return open_.isStill(after); }});
    });
}

/// Brings back what Clear has emptied; false if the user would rather keep what they have typed
/// since. The order may have been saved under a number in between, which it keeps.
bool OrderEditor::unclear(const OpenOrder::State& before, const AddressBook::Standing& addresses,
                          const OpenOrder::State& after) {
    const bool untouched = open_.state() == after;
    OpenOrder::State back = before;
    back.order.PONoEd = open_.order().PONoEd;
    Order typed = open_.order();
    typed.PONoEd = after.order.PONoEd;
    const Message question{
        "Bring back what stood here before Clear? What has been entered since will be gone.",
        "Undo Clear", Buttons::YesNo, Icon::Question, Answer::No};
    if (typed != after.order && commands_.prompts().ask(question) != Answer::Yes) return false;
    open_.bringBack(back);
    if (!untouched) open_.MarkOrderChanged();
    addresses_.bringBack(addresses);
    stock_.PopStockList();
    return true;
}

void OrderEditor::make10_Click() {
    commands_.onData([&] {
        pickTypedNames();
        if (!checkDates()) return;
        for (int copy = 1; copy <= kCopies; ++copy) {
            const auto number = nextNumber();
            if (!number || !saveAs(*number, Histories::Remember)) {
                commands_.showCaption(kUsualCaption);
                return relistUnless(false);
            }
            commands_.showChanges();
            clock_.waitOneSecond();
            commands_.showCaption("making number " + std::to_string(copy));
        }
        commands_.showCaption("done");
    });
}

void OrderEditor::unlockNumber() {
    commands_.run([&] {
        const Message question{
            "Are you SURE you want to unlock the PO number field?\r\n\r\nThis should only be done "
            "ONE TIME in order to make Bramblet conform to your existing numbered records. DO NOT "
            "do this as a matter of course - data corruption is very likely if you do!",
            "Confirm Setting Initial Document Number", Buttons::YesNo, Icon::Stop, Answer::No};
        if (commands_.prompts().ask(question) == Answer::Yes) open_.unlockNumber();
    });
}

void OrderEditor::TotalUp_Click() {
    commands_.run([&] { open_.recompute(); });
}

void OrderEditor::POGrid_Click(const std::string& orderNumber) {
    commands_.onData([&] {
        if (offerToSave("Bramblet", "Save PO?") == Offer::GoOn) LoadOrder(orderNumber);
    });
}

void OrderEditor::openKeptOrder() {
    commands_.onData([&] {
        bool kept = false;
        const bool seen = commands_.attempt("The kept orders were not found: ",
                                            [&] { kept = files_.exists(documents_.keptFolder()); });
        if (!seen) return;
        if (!kept) return commands_.say("No order has been kept");
        const auto path = commands_.prompts().chooseFileToOpen(
            {"Open Kept Order", documents_.keptFolder(), "", {{"Orders", "*.htm"}}});
        if (path && offerToSave("Bramblet", "Save PO?") == Offer::GoOn) loadKept(*path);
    });
}

void OrderEditor::POPop_delete_Click(const std::string& orderNumber) {
    commands_.onData([&] {
        const Message question{"Delete purchase order " + orderNumber + " ?", "Confirm",
                               Buttons::YesNo, Icon::None, Answer::No};
        if (commands_.prompts().ask(question) != Answer::Yes) return;
        std::optional<OrderIndexRecord> deleted;
        commands_.attempt("Order " + orderNumber + " was not deleted: ",
                          [&] { deleted = index_.markDeleted(orderNumber); });
        savedOrders_.PopPOGrid();
        if (!deleted || deleted->Status == kDeletedOrder) return;
        undo_.offer(deletionOf("order " + orderNumber,
                               [this, deletion = *deleted] { return bringBackOrder(deletion); }));
    });
}

/// Its document has never been away.
bool OrderEditor::bringBackOrder(const OrderIndexRecord& deleted) {
    const bool back = index_.bringBack(deleted);
    savedOrders_.PopPOGrid();
    commands_.sayDone("Order " + trimmedField(deleted.Number) +
                      (back ? " is back in the list" : " was in the list again already"));
    return true;
}

void OrderEditor::edit(OrderField field, const std::string& text) {
    if (open_.order().*field == text) return;
    commands_.edit([&] {
        open_.set(field, text);
        if (open_.dateRefused()) open_.refuseDates(!datesAreReadable());
        if (field == &Order::PONoEd) tellOfNumber();
    });
}

void OrderEditor::chooseKind(OrderKind kind) {
    commands_.edit([&] { open_.set(kind); });
}

void OrderEditor::MarkReceivedCheck_Click(bool received) {
    commands_.edit([&] { open_.setReceived(received); });
}

void OrderEditor::MonthView1_DateClick(OrderField box, DayCount day) {
    edit(box, shortDateText(day, formats_));
}

DayCount OrderEditor::calendarStart(OrderField box) const {
    const DayCount today = clock_.today();
    return parseDate(open_.order().*box, formats_, today).value_or(today);
}

void OrderEditor::clearOrder() {
    open_.replace(clearedOrder());
    open_.refuseDates(false);
    addresses_.showNone();
}

/// An empty order of the number and kind shown.
Order OrderEditor::clearedOrder() const {
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

OrderEditor::Offer OrderEditor::offerToSave(const std::string& named, const std::string& title) {
    if (!open_.OrderDirty()) return Offer::GoOn;
    const Message question{"Save changes to " + named + " Number " + open_.order().PONoEd + " ?",
                           title, Buttons::YesNoCancel, Icon::Question};
    switch (commands_.prompts().ask(question)) {
        case Answer::Yes:
            SaveChanges_Click();
            return open_.OrderDirty() ? Offer::NotSaved : Offer::GoOn;
        case Answer::No:
            return Offer::GoOn;
        default:
            return Offer::Cancelled;
    }
}

/// Warns while the number is being typed: once it is saved, the other order is gone.
void OrderEditor::tellOfNumber() {
    const std::string doubt = doubtAboutNumber();
    if (!doubt.empty()) {
        commands_.say(doubt);
    } else if (numberDoubted_) {
        commands_.sayDone("Number " + trimmed(open_.order().PONoEd) + " can be used");
    }
    numberDoubted_ = !doubt.empty();
}

std::string OrderEditor::doubtAboutNumber() const {
    const std::string number = trimmed(open_.order().PONoEd);
    if (number == open_.storedNumber() || open_.isPending()) return {};
    if (number.empty()) return "The order needs a number";
    if (number.size() > kIndexNumberWidth) {
        return "The list of orders holds only six characters of the number " + number;
    }
    switch (savedOrders_.useOf(number)) {
        case NumberUse::Taken:
            return "Number " + number + " is taken by another order, which saving would replace";
        case NumberUse::TakenByDeleted:
            return "Number " + number + " is taken by a deleted order, which saving would replace";
        case NumberUse::Free:
            break;
    }
    return {};
}

bool OrderEditor::datesAreReadable() const {
    return isDate(&Order::OrderDateEd) && isDate(&Order::ShipDateEd);
}

/// Checked before a number is drawn: otherwise the list could not take the order, and the number
/// would be drawn again for another one.
bool OrderEditor::checkDates() {
    const bool readable =
        commands_.attempt("The order was not saved: ", [&] { index_.checkDates(open_.order()); });
    if (!readable) open_.refuseDates(true);
    return readable;
}

/// A save has made the list anew; without one, it is reread.
void OrderEditor::relistUnless(bool saved) {
    if (!saved) savedOrders_.PopPOGrid();
}

bool OrderEditor::confirm(const std::string& question) {
    const Message message{question, "Confirm", Buttons::YesNo, Icon::Question};
    return commands_.prompts().ask(message) == Answer::Yes;
}

void OrderEditor::markReceived(bool received) {
    Order order = open_.order();
    order.MarkReceivedCheck = received;
    open_.replace(std::move(order));
}

std::optional<std::string> OrderEditor::nextNumber() {
    std::optional<std::string> number;
    commands_.attempt("No order number could be drawn: ",
                      [&] { number = orderNumberText(index_.NextPONumber()); });
    return number;
}

bool OrderEditor::saveAs(const std::string& number, Histories histories) {
    const std::string previousNumber = open_.order().PONoEd;
    open_.fill(&Order::PONoEd, number);
    documents_.forgetOpen();
    if (open_.recompute()) return write(histories);
    open_.fill(&Order::PONoEd, previousNumber);
    return false;
}

bool OrderEditor::write(Histories histories) {
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
bool OrderEditor::writeFiles(const std::filesystem::path& path, Histories histories) {
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

void OrderEditor::MakeSnap(const std::filesystem::path& path) {
    documents_.write(path, orderDocument(open_.order(), {settings_, taxFreight_, formats_}));
}

void OrderEditor::keepUnsaved(const KeptOrders& kept) const {
    const bool blank = open_.isPending() && open_.order() == clearedOrder();
    if (!open_.isUnsaved() || blank) return;
    const std::string name = open_.isPending() ? "pending" : trimmed(open_.order().PONoEd);
    kept.keep(name, unsavedDocument(), commands_.folder().DataPath());
}

/// Where an amount cannot be read there is no form, but still all that was typed.
std::string OrderEditor::unsavedDocument() const {
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

void OrderEditor::LoadOrder(const std::string& orderNumber) {
    std::string document;
    const bool read =
        commands_.attemptOrAsk("Order " + orderNumber + " cannot be opened: ", "Bramblet", [&] {
            const std::filesystem::path path = commands_.folder().documentPath(orderNumber);
            if (!files_.exists(path)) files_.touch(path);
            document = documents_.open(path);
        });
    if (read) show(document, "order " + orderNumber);
}

void OrderEditor::loadKept(const std::filesystem::path& path) {
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
void OrderEditor::show(const std::string& document, const std::string& name) {
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
