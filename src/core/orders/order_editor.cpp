#include "core/orders/order_editor.h"

#include "core/platform/text.h"

namespace bramblet {
namespace {

constexpr int kCopies = 10;

}  // namespace

void OrderEditor::SaveChanges_Click() {
    commands_.onData([&] {
        pickTypedNames();
        if (!open_.isPending())
            return relistUnless(open_.recompute() && saving_.write(Histories::Remember));
        const Message question{"Save new Bramblet Number?", "Save PO?", Buttons::YesNo,
                               Icon::Question};
        if (commands_.prompts().ask(question) != Answer::Yes || !saving_.checkDates()) return;
        for (const AddressSide side : kAddressSides) {
            if (addresses_.shown(side).changedEnabled) addresses_.Changed_Click(side);
        }
        const auto number = saving_.nextNumber();
        relistUnless(number && saving_.saveAs(*number, Histories::Remember));
    });
}

void OrderEditor::NewPO_Click() {
    commands_.onData([&] {
        if (offerToSave("Order", "Save?") != Offer::GoOn) return;
        if (!confirm("Create blank new order ?")) return;
        // Drawn before the window is cleared, so that without a number the order shown stays as it
        // is.
        const auto number = saving_.nextNumber();
        if (!number) return;
        histories_.AddToUserFields();
        addresses_.PopAddyLists();
        opening_.clearOrder();
        stock_.PopStockList();
        relistUnless(saving_.saveAs(*number, Histories::LeaveAlone));
    });
}

void OrderEditor::Save_PO_Click() {
    commands_.onData([&] {
        if (offerToSave("Bramblet", "Save PO?") != Offer::GoOn) return;
        if (!confirm("Create new purchase order based on details currently displayed?")) return;
        pickTypedNames();
        if (!saving_.checkDates()) return;
        const auto number = saving_.nextNumber();
        if (!number) return;
        const bool received = open_.order().MarkReceivedCheck;
        markReceived(false);
        const bool saved = saving_.saveAs(*number, Histories::LeaveAlone);
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
        opening_.clearOrder();
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
        if (!saving_.checkDates()) return;
        for (int copy = 1; copy <= kCopies; ++copy) {
            const auto number = saving_.nextNumber();
            if (!number || !saving_.saveAs(*number, Histories::Remember)) {
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
        if (offerToSave("Bramblet", "Save PO?") == Offer::GoOn) opening_.LoadOrder(orderNumber);
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
        if (path && offerToSave("Bramblet", "Save PO?") == Offer::GoOn) opening_.loadKept(*path);
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
        if (open_.dateRefused()) open_.refuseDates(!saving_.datesAreReadable());
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

void OrderEditor::keepUnsaved(const KeptOrders& kept) const {
    const bool blank = open_.isPending() && open_.order() == opening_.clearedOrder();
    if (open_.isUnsaved() && !blank) saving_.keepUnsaved(kept);
}

}  // namespace bramblet
