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

FieldHistories::FieldHistories(const FileSystem& files, const DataFolder& folder, Prompts& prompts,
                               OpenOrder& open, AddressBook& addresses)
    : files_(files),
      folder_(folder),
      prompts_(prompts),
      open_(open),
      addresses_(addresses),
      histories_(historiesIn(folder, std::make_index_sequence<kHistories.size()>())) {}

const FieldHistory::Entries& FieldHistories::entries(OrderField field) const {
    return histories_[indexOf(field)].entries();
}

void FieldHistories::trimTexts() {
    for (const HistoryFacts& facts : kHistories) {
        std::string& text = open_.order.*facts.field;
        text = trimmed(text);
        if (isCurrent(facts)) CurrentHistoryText = text;
    }
}

void FieldHistories::rememberAllBut(OrderField unfinished) {
    if (!folder_.DataPathOK()) return;
    trimTexts();
    update([=, this](std::size_t history) {
        const OrderField field = kHistories[history].field;
        return field == unfinished ? std::string() : open_.order.*field;
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
        try {
            histories_[i].remember(once, textOf(i));
        } catch (const Fault& fault) {
            prompts_.say("The lists of earlier entries were not brought up to date: " +
                             std::string(kHistories[i].file) + ": " + fault.inWords(),
                         Loss::List);
            break;
        }
    }
    open_.onChange();
}

void FieldHistories::RemoveHistoryEntry() {
    const Prompts::Command command(prompts_);
    if (!folder_.available(prompts_)) return;
    for (const AddressBox& box : kAddressBoxes) {
        if (CurrentHistoryFile == box.name) {
            return addresses_.deleteEntry(box.side, CurrentHistoryText);
        }
    }
    for (std::size_t i = 0; i < kHistories.size(); ++i) {
        if (isCurrent(kHistories[i])) return removeFrom(i);
    }
}

void FieldHistories::removeFrom(std::size_t history) {
    const std::string forgotten = trimmed(CurrentHistoryText);
    try {
        histories_[history].forget(files_, forgotten);
    } catch (const Fault& fault) {
        prompts_.say("\"" + forgotten + "\" was not removed from the list: " + fault.inWords());
        return;
    }
    // The box holds another value when the entry was pointed at in the list or among the
    // suggestions. That value may be half typed, and is remembered when the order is saved.
    const OrderField field = kHistories[history].field;
    if (trimmed(open_.order.*field) == forgotten) Change(field, "");
    rememberAllBut(field);
    if (!forgotten.empty()) prompts_.sayDone("\"" + forgotten + "\" is no longer in the list");
}

void FieldHistories::Change(OrderField field, const std::string& text) {
    CurrentHistoryText = text;
    if (open_.order.*field == text) return;
    open_.order.*field = text;
    open_.MarkOrderChanged();
    open_.onChange();
}

void FieldHistories::DropDown() {
    open_.MarkOrderChanged();
    open_.onChange();
}

void FieldHistories::GotFocus(OrderField field) {
    CurrentHistoryFile = kHistories[indexOf(field)].file;
    CurrentHistoryText = open_.order.*field;
}

void FieldHistories::GotFocus(AddressSide side) {
    for (const AddressBox& box : kAddressBoxes) {
        if (box.side != side) continue;
        CurrentHistoryFile = box.name;
        CurrentHistoryText = open_.order.*box.field;
    }
}

}  // namespace bramblet
