#include "core/history/field_histories.h"

#include "core/platform/text.h"

namespace bramblet {
namespace {

template <std::size_t... I>
std::array<FieldHistory, kHistories.size()> historiesIn(const DataFolder& folder,
                                                        std::index_sequence<I...>) {
    return {FieldHistory(folder.file(kHistories[I].file))...};
}

std::size_t indexOf(OrderField field) {
    std::size_t index = 0;
    while (kHistories[index].field != field)
        ++index;
    return index;
}

struct AddressBox {
    const char* name;
    AddressSide side;
    OrderField field;
};
constexpr std::array kAddressBoxes{
    AddressBox{"ToCombo", AddressSide::Vendor, &Order::ToCombo},
    AddressBox{"ShipToCombo", AddressSide::Destination, &Order::ShipToCombo}};

}  // namespace

FieldHistories::FieldHistories(const FileSystem& files, Commands& commands, OpenOrder& open,
                               AddressBook& addresses)
    : files_(files),
      commands_(commands),
      open_(open),
      addresses_(addresses),
      histories_(historiesIn(commands.folder(), std::make_index_sequence<kHistories.size()>())) {}

const FieldHistory::Entries& FieldHistories::entries(OrderField field) const {
    return histories_[indexOf(field)].entries();
}

void FieldHistories::trimTexts() {
    for (const HistoryFacts& facts : kHistories) {
        open_.fill(facts.field, trimmed(open_.order().*facts.field));
        if (isCurrent(facts)) CurrentHistoryText = open_.order().*facts.field;
    }
}

void FieldHistories::rememberAllBut(OrderField unfinished) {
    if (!commands_.folder().DataPathOK()) return;
    trimTexts();
    update([=, this](std::size_t history) {
        const OrderField field = kHistories[history].field;
        return field == unfinished ? std::string() : open_.order().*field;
    });
}

void FieldHistories::reload() {
    update([](std::size_t) { return std::string(); });
}

/// Adds a text to each history and rereads it.
template <class TextOf>
void FieldHistories::update(TextOf textOf) {
    const FileSystem once = files_.withoutRetry();
    for (std::size_t i = 0; i < kHistories.size(); ++i) {
        const std::string failure = "The lists of earlier entries were not brought up to date: " +
                                    std::string(kHistories[i].file) + ": ";
        const auto remember = [&] { histories_[i].remember(once, textOf(i)); };
        if (!commands_.attempt(failure, remember, Loss::List)) break;
    }
    commands_.changed(&Views::order);
}

void FieldHistories::RemoveHistoryEntry() {
    commands_.onData([&] {
        for (const AddressBox& box : kAddressBoxes) {
            if (CurrentHistoryFile == box.name) {
                return addresses_.deleteEntry(box.side, CurrentHistoryText);
            }
        }
        for (std::size_t i = 0; i < kHistories.size(); ++i) {
            if (isCurrent(kHistories[i])) return removeFrom(i);
        }
    });
}

void FieldHistories::removeFrom(std::size_t history) {
    const std::string forgotten = trimmed(CurrentHistoryText);
    const bool removed = commands_.attempt("\"" + forgotten + "\" was not removed from the list: ",
                                           [&] { histories_[history].forget(files_, forgotten); });
    if (!removed) return;
    // The box holds another value when the entry was pointed at in the list or among the
    // suggestions. That value may be half typed, and is remembered when the order is saved.
    const OrderField field = kHistories[history].field;
    if (trimmed(open_.order().*field) == forgotten) Change(field, "");
    rememberAllBut(field);
    if (!forgotten.empty()) commands_.sayDone("\"" + forgotten + "\" is no longer in the list");
}

void FieldHistories::Change(OrderField field, const std::string& text) {
    CurrentHistoryText = text;
    commands_.edit([&] { open_.set(field, text); });
}

void FieldHistories::DropDown() {
    commands_.edit([&] { open_.MarkOrderChanged(); });
}

void FieldHistories::GotFocus(OrderField field) {
    CurrentHistoryFile = kHistories[indexOf(field)].file;
    CurrentHistoryText = open_.order().*field;
}

void FieldHistories::GotFocus(AddressSide side) {
    for (const AddressBox& box : kAddressBoxes) {
        if (box.side != side) continue;
        CurrentHistoryFile = box.name;
        CurrentHistoryText = open_.order().*box.field;
    }
}

}  // namespace bramblet
