#include "core/orders/order_editor.h"

#include "core/document/document_reader.h"
#include "core/document/document_writer.h"
#include "core/document/totals.h"
#include "core/platform/amount_text.h"
#include "core/platform/text.h"

#include <cstdio>

namespace bramblet {
namespace {

constexpr int kCopies = 10;
constexpr std::size_t kIndexNumberWidth = kOrderIndexLayout[1].width;

/// An order number as it is shown: six digits with leading zeros, longer numbers in full.
std::string orderNumberText(double number) {
    std::string digits(32, '\0');
    const int length = std::snprintf(digits.data(), digits.size(), "%06.0f", number);
    digits.resize(static_cast<std::size_t>(length));
    return digits;
}

}  // namespace

void OrderEditor::SaveChanges_Click() {
    const Prompts::Command command(at_.prompts);
    if (!at_.folder.available(at_.prompts)) return;
    pickTypedNames();
    if (at_.open.isPending()) {
        const Message question{"Save new Bramblet Number?", "Save PO?", Buttons::YesNo,
                               Icon::Question};
        if (at_.prompts.ask(question) != Answer::Yes || !checkDates()) return;
        for (const AddressSide side : kAddressSides) {
            if (at_.addresses.shown(side).changedEnabled) at_.addresses.Changed_Click(side);
        }
        if (const auto number = nextNumber()) saveAs(*number, Histories::Remember);
    } else if (totalUp()) {
        write(Histories::Remember);
    }
    at_.savedOrders.PopPOGrid();
    changed();
}

void OrderEditor::NewPO_Click() {
    const Prompts::Command command(at_.prompts);
    if (!at_.folder.available(at_.prompts)) return;
    if (offerToSave("Order", "Save?") != Offer::GoOn) return;
    if (!confirm("Create blank new order ?")) return;
    // Drawn before the window is cleared, so that without a number the order shown stays as it is.
    const auto number = nextNumber();
    if (!number) return;
    at_.histories.AddToUserFields();
    at_.addresses.PopAddyLists();
    clearOrder();
    at_.stock.PopStockList();
    saveAs(*number, Histories::LeaveAlone);
    at_.savedOrders.PopPOGrid();
    changed();
}

void OrderEditor::Save_PO_Click() {
    const Prompts::Command command(at_.prompts);
    if (!at_.folder.available(at_.prompts)) return;
    if (offerToSave("Bramblet", "Save PO?") != Offer::GoOn) return;
    if (!confirm("Create new purchase order based on details currently displayed?")) return;
    pickTypedNames();
    if (!checkDates()) return;
    const auto number = nextNumber();
    if (!number) return;
    const bool received = at_.open.order.MarkReceivedCheck;
    at_.open.order.MarkReceivedCheck = false;
    if (!saveAs(*number, Histories::LeaveAlone) && at_.open.order.PONoEd != *number) {
        at_.open.order.MarkReceivedCheck = received;  // no copy was made: the source is as it was
    }
    at_.savedOrders.PopPOGrid();
    changed();
}

void OrderEditor::Clear_Click() {
    const Prompts::Command command(at_.prompts);
    if (!at_.folder.available(at_.prompts)) return;
    clearOrder();
    at_.stock.PopStockList();
    at_.open.MarkOrderChanged();
    changed();
}

void OrderEditor::make10_Click() {
    const Prompts::Command command(at_.prompts);
    if (!at_.folder.available(at_.prompts)) return;
    pickTypedNames();
    if (!checkDates()) return;
    for (int copy = 1; copy <= kCopies; ++copy) {
        const auto number = nextNumber();
        if (!number || !saveAs(*number, Histories::Remember)) {
            at_.open.showCaption(kUsualCaption);
            return;
        }
        at_.savedOrders.PopPOGrid();
        changed();
        at_.clock.waitOneSecond();
        at_.open.showCaption("making number " + std::to_string(copy));
    }
    at_.open.showCaption("done");
}

void OrderEditor::Label11_DblClick() {
    const Prompts::Command command(at_.prompts);
    const Message question{
        "Are you SURE you want to unlock the PO number field?\r\n\r\nThis should only be done ONE "
        "TIME in order to make Bramblet conform to your existing numbered records. DO NOT do this "
        "as a matter of course - data corruption is very likely if you do!",
        "Confirm Setting Initial Document Number", Buttons::YesNo, Icon::Stop, Answer::No};
    if (at_.prompts.ask(question) != Answer::Yes) return;
    at_.open.numberUnlocked = true;
    changed();
}

void OrderEditor::TotalUp_Click() {
    const Prompts::Command command(at_.prompts);
    totalUp();
}

void OrderEditor::POGrid_Click(const std::string& orderNumber) {
    const Prompts::Command command(at_.prompts);
    if (!at_.folder.available(at_.prompts)) return;
    if (offerToSave("Bramblet", "Save PO?") != Offer::GoOn) return;
    LoadOrder(orderNumber);
}

void OrderEditor::POPop_delete_Click(const std::string& orderNumber) {
    const Prompts::Command command(at_.prompts);
    if (!at_.folder.available(at_.prompts)) return;
    const Message question{"Delete purchase order " + orderNumber + " ?", "Confirm", Buttons::YesNo,
                           Icon::None, Answer::No};
    if (at_.prompts.ask(question) != Answer::Yes) return;
    try {
        at_.index.markDeleted(orderNumber);
    } catch (const Fault& fault) {
        at_.prompts.say("Order " + orderNumber + " was not deleted: " + fault.inWords());
    }
    at_.savedOrders.PopPOGrid();
}

void OrderEditor::edit(OrderField field, const std::string& text) {
    if (at_.open.order.*field == text) return;
    at_.open.order.*field = text;
    at_.open.dateRefused = at_.open.dateRefused && !datesAreReadable();
    at_.open.MarkOrderChanged();
    changed();
    if (field == &Order::PONoEd) tellOfNumber();
}

void OrderEditor::MarkReceivedCheck_Click(bool received) {
    if (at_.open.order.MarkReceivedCheck == received) return;
    at_.open.order.MarkReceivedCheck = received;
    at_.open.MarkOrderChanged();
    changed();
}

void OrderEditor::MonthView1_DateClick(OrderField box, DayCount day) {
    edit(box, shortDateText(day, at_.formats));
}

DayCount OrderEditor::calendarStart(OrderField box) const {
    const DayCount today = at_.clock.today();
    return parseDate(at_.open.order.*box, at_.formats, today).value_or(today);
}

void OrderEditor::clearOrder() {
    Order cleared;
    cleared.PONoEd = at_.open.order.PONoEd;
    cleared.kind = at_.open.order.kind;
    cleared.OrderDateEd = shortDateText(at_.clock.today(), at_.formats);
    cleared.DiscountFactorEd = "0";
    cleared.TaxFactorEd = "0";
    const std::string zero = standardText(Currency{}, at_.formats);
    for (const auto box : {&Order::SubTotalEd, &Order::DiscountEd, &Order::NetTotalEd,
                           &Order::SalesTaxEd, &Order::ShippingEd, &Order::OrderTotalEd}) {
        cleared.*box = zero;
    }
    at_.open.order = cleared;
    at_.open.dateRefused = false;
    at_.addresses.showNone();
    TotalUp(at_.open.order, at_.taxFreight, at_.formats);
}

OrderEditor::Offer OrderEditor::offerToSave(const std::string& named, const std::string& title) {
    if (!at_.open.OrderDirty) return Offer::GoOn;
    const Message question{"Save changes to " + named + " Number " + at_.open.order.PONoEd + " ?",
                           title, Buttons::YesNoCancel, Icon::Question};
    switch (at_.prompts.ask(question)) {
        case Answer::Yes:
            SaveChanges_Click();
            return at_.open.OrderDirty ? Offer::NotSaved : Offer::GoOn;
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
        at_.prompts.say(doubt);
    } else if (numberDoubted_) {
        at_.prompts.sayDone("Number " + trimmed(at_.open.order.PONoEd) + " can be used");
    }
    numberDoubted_ = !doubt.empty();
}

std::string OrderEditor::doubtAboutNumber() const {
    const std::string number = trimmed(at_.open.order.PONoEd);
    if (number == at_.open.storedNumber || at_.open.isPending()) return {};
    if (number.empty()) return "The order needs a number";
    if (number.size() > kIndexNumberWidth) {
        return "The list of orders holds only six characters of the number " + number;
    }
    switch (at_.savedOrders.useOf(number)) {
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
    try {
        at_.index.checkDates(at_.open.order);
        return true;
    } catch (const Fault& fault) {
        at_.prompts.say("The order was not saved: " + fault.inWords());
        at_.open.dateRefused = true;
        changed();
        return false;
    }
}

bool OrderEditor::confirm(const std::string& question) {
    return at_.prompts.ask({question, "Confirm", Buttons::YesNo, Icon::Question}) == Answer::Yes;
}

bool OrderEditor::totalUp() {
    Order& order = at_.open.order;
    const std::string totalBefore = order.OrderTotalEd;
    bool totalled = true;
    try {
        TotalUp(order, at_.taxFreight, at_.formats);
        const std::string hint = multiplierHint(order, at_.formats);
        if (!hint.empty()) at_.prompts.say(hint, Loss::List);
    } catch (const BoxFault& fault) {
        totalled = false;
        at_.prompts.ask({"The order cannot be totalled up: " + fault.inWords() + ".", "Total up",
                         Buttons::Ok, Icon::Exclamation});
    }
    if (order.OrderTotalEd != totalBefore) at_.open.MarkOrderChanged();
    changed();
    return totalled;
}

std::optional<std::string> OrderEditor::nextNumber() {
    try {
        return orderNumberText(at_.index.NextPONumber());
    } catch (const Fault& fault) {
        at_.prompts.say("No order number could be drawn: " + fault.inWords());
        return std::nullopt;
    }
}

bool OrderEditor::saveAs(const std::string& number, Histories histories) {
    const std::string previousNumber = at_.open.order.PONoEd;
    at_.open.order.PONoEd = number;
    if (totalUp()) return write(histories);
    at_.open.order.PONoEd = previousNumber;
    changed();
    return false;
}

bool OrderEditor::write(Histories histories) {
    const Order& order = at_.open.order;
    bool written = true;
    const auto attempt = [&](Loss loss, const std::string& failure, const auto& step) {
        try {
            step();
            return true;
        } catch (const Fault& fault) {
            written = false;
            at_.prompts.say(failure + fault.inWords(), loss);
            return false;
        }
    };
    std::filesystem::path path;
    const bool named = attempt(Loss::Order, "Order " + order.PONoEd + " was not saved: ", [&] {
        path = at_.folder.documentPath(order.PONoEd);
    });
    if (named) {
        at_.open.storedNumber = trimmed(order.PONoEd);
        attempt(Loss::Work, "Order " + order.PONoEd + " was not entered in the list of orders: ",
                [&] { at_.index.RecordData(order); });
        if (histories == Histories::Remember) at_.histories.trimTexts();
        attempt(Loss::Order, "The document of order " + order.PONoEd + " was not saved: ", [&] {
            MakeSnap(path);
        });
        // Done last: a mere convenience must not keep an order from being saved.
        if (histories == Histories::Remember) at_.histories.AddToUserFields();
    }
    at_.open.Save_POEnabled = true;
    at_.open.dateRefused = !datesAreReadable();
    if (written) {
        at_.open.markSaved();
        at_.settings.OrdersSavedCount += 1;
        if (trimmed(order.PONoEd).size() > kIndexNumberWidth) {
            at_.prompts.say("The list of orders holds only six characters of the number " +
                            order.PONoEd);
        }
        at_.prompts.sayDone("Order " + order.PONoEd + " is saved");
    } else {
        at_.open.MarkOrderChanged();  // what is shown is not what is stored
    }
    return written;
}

void OrderEditor::MakeSnap(const std::filesystem::path& path) const {
    const DocumentStyle style{at_.settings, at_.taxFreight, at_.formats};
    bramblet::MakeSnap(path, at_.open.order, style, at_.files);
}

void OrderEditor::LoadOrder(const std::string& orderNumber) {
    std::string document;
    try {
        const std::filesystem::path path = at_.folder.documentPath(orderNumber);
        if (!at_.files.exists(path)) at_.files.touch(path);
        document = at_.files.read(path);
    } catch (const Fault& fault) {
        at_.prompts.ask({"Order " + orderNumber + " cannot be opened: " + fault.inWords() + ".",
                         "Bramblet", Buttons::Ok, Icon::Exclamation});
        return;
    }
    clearOrder();
    Order& order = at_.open.order;
    order.kind = OrderKind::PurchaseOrder;
    const MarkersFound found = readMarkers(document, order);
    // Without a number of its own, what is shown must not be saved over the order shown before.
    if (!found.number) {
        order.PONoEd = kPendingNumber;
        at_.prompts.say("The document of order " + orderNumber + " holds no order");
    }
    if (found.vendor) {
        at_.addresses.Combo_Click(AddressSide::Vendor);  // which also lists its stock items
    } else {
        at_.stock.PopStockList();
    }
    if (found.shipTo) at_.addresses.Combo_Click(AddressSide::Destination);
    totalUp();
    at_.open.markSaved();
    at_.open.Save_POEnabled = true;
    changed();
}

void OrderEditor::chooseKind(OrderKind kind) {
    if (at_.open.order.kind == kind) return;
    at_.open.order.kind = kind;
    at_.open.MarkOrderChanged();
    changed();
}

}  // namespace bramblet
