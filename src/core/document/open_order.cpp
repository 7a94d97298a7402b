#include "core/document/open_order.h"

#include "core/document/totals.h"
#include "core/platform/text.h"

namespace bramblet {

OpenOrder::OpenOrder(Commands& commands, bool taxFreight, const RegionalFormats& formats)
    : commands_(commands), taxFreight_(taxFreight), formats_(formats) {}

bool OpenOrder::isPending() const {
    return trimmed(order_.PONoEd) == kPendingNumber;
}

void OpenOrder::set(OrderField field, const std::string& text) {
    if (order_.*field == text) return;
    order_.*field = text;
    MarkOrderChanged();
}

void OpenOrder::set(OrderKind kind) {
    if (order_.kind == kind) return;
    order_.kind = kind;
    markChanged();
}

void OpenOrder::setReceived(bool received) {
    if (order_.MarkReceivedCheck == received) return;
    order_.MarkReceivedCheck = received;
    markChanged();
}

void OpenOrder::MarkOrderChanged() {
    touched_ = true;
    markChanged();
}

void OpenOrder::markChanged() {
    changed();
    if (isPending()) return;
    worthSaving_ = true;
    dirty_ = true;
}

void OpenOrder::setLines(std::vector<OrderLine> lines) {
    order_.lines = std::move(lines);
    markWorthSaving();
}

void OpenOrder::markWorthSaving() {
    worthSaving_ = true;
    MarkOrderChanged();
}

void OpenOrder::fill(OrderField field, const std::string& text) {
    order_.*field = text;
    changed();
}

void OpenOrder::replace(Order order) {
    order_ = std::move(order);
    touched_ = false;
    ++showing_;
    changed();
    commands_.changed(&Views::anotherOrder);
}

void OpenOrder::bringBack(const State& state) {
    order_ = state.order;
    dirty_ = state.dirty;
    touched_ = state.touched;
    worthSaving_ = state.worthSaving;
    dateRefused_ = state.dateRefused;
    changed();
}

void OpenOrder::unlockNumber() {
    numberUnlocked_ = true;
    changed();
}

void OpenOrder::refuseDates(bool refused) {
    dateRefused_ = refused;
    changed();
}

void OpenOrder::markStored() {
    storedNumber_ = isPending() ? std::string() : trimmed(order_.PONoEd);
}

void OpenOrder::markSaved() {
    keptState_ = false;
    worthSaving_ = false;
    dirty_ = false;
    touched_ = false;
    markStored();
    changed();
}

void OpenOrder::markKeptState() {
    keptState_ = true;
    worthSaving_ = true;
    changed();
}

void OpenOrder::allowCopies() {
    copyable_ = true;
    changed();
}

bool OpenOrder::recompute() {
    const std::string totalBefore = order_.OrderTotalEd;
    const bool totalled =
        commands_.attemptOrAsk("The order cannot be totalled up: ", "Total up", [&] {
            TotalUp(order_, taxFreight_, formats_);
            const std::string hint = multiplierHint(order_, formats_);
            if (!hint.empty()) commands_.say(hint, Loss::List);
        });
    changed();
    if (order_.OrderTotalEd != totalBefore) MarkOrderChanged();
    return totalled;
}

}  // namespace bramblet
