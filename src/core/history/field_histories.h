// The histories of the six free-text fields of the order, what the events of their boxes do, and
// how a value is forgotten.
#pragma once

#include "core/addresses/address_book.h"
#include "core/document/open_order.h"
#include "core/history/field_history.h"
#include "core/settings/commands.h"

#include <array>
#include <string>

namespace bramblet {

/// A box with a history: its name, its field in the order, its file in the data folder.
struct HistoryFacts {
    const char* box;
    OrderField field;
    const char* file;
};
inline constexpr std::array kHistories{
    HistoryFacts{"ByEd", &Order::ByEd, "by_field.dat"},
    HistoryFacts{"ShipViaEd", &Order::ShipViaEd, "via_field.dat"},
    HistoryFacts{"FOBEd", &Order::FOBEd, "fob_field.dat"},
    HistoryFacts{"TermsEd", &Order::TermsEd, "ter_field.dat"},
    HistoryFacts{"CommentsEd", &Order::CommentsEd, "com_field.dat"},
    HistoryFacts{"JobNumberEd", &Order::JobNumberEd, "jno_field.dat"},
};

class FieldHistories {
  public:
    FieldHistories(const FileSystem& files, Commands& commands, OpenOrder& open,
                   AddressBook& addresses);

    const FieldHistory::Entries& entries(OrderField field) const;

    /// Trims the texts in the six boxes, as they are when remembered.
    void trimTexts();

    /// Adds the texts of the six boxes to their histories and rereads all histories. The texts
    /// stay, trimmed. The first fault ends it, even that of a file in use: nothing is waited for.
    void AddToUserFields() { rememberAllBut(nullptr); }

    /// Rereads all histories.
    void reload();

    /// Forgets `CurrentHistoryText` in the history of `CurrentHistoryFile` and empties that box if
    /// it shows the value; in an address box, deletes the entry of that name.
    void RemoveHistoryEntry();
    /// Whether a box offers to do that with an entry: always, except in the address boxes.
    bool mayDelete(AddressSide side, const std::string& entry) const {
        return addresses_.mayDeleteEntry(side, entry);
    }

    // The events of the boxes.
    void Change(OrderField field, const std::string& text);
    void DropDown();
    void GotFocus(OrderField field);
    /// ToCombo or ShipToCombo has the focus.
    void GotFocus(AddressSide side);

    /// The box that has the focus: its history's file, or its own name for the address boxes.
    std::string CurrentHistoryFile;
    /// The text of that box as last seen.
    std::string CurrentHistoryText;

  private:
    bool isCurrent(const HistoryFacts& facts) const { return CurrentHistoryFile == facts.file; }
    void removeFrom(std::size_t history);
    template <class TextOf>
    void update(TextOf textOf);
    /// Reads the history of `unfinished`, but does not remember what is in its box.
    void rememberAllBut(OrderField unfinished);

    const FileSystem& files_;
    Commands& commands_;
    OpenOrder& open_;
    AddressBook& addresses_;
    std::array<FieldHistory, kHistories.size()> histories_;
};

}  // namespace bramblet
