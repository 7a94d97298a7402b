// The histories of the six free-text fields of the order, what the events of their boxes do, and
// the forgetting of a value.
#pragma once

#include "core/addresses/address_book.h"
#include "core/document/open_order.h"
#include "core/history/field_history.h"
#include "core/platform/prompts.h"
#include "core/settings/data_folder.h"

#include <array>
#include <string>

namespace bramblet {

/// A box with a history: its name, its field of the order, its file in the data folder.
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
    FieldHistories(const FileSystem& files, const DataFolder& folder, Prompts& prompts,
                   OpenOrder& open, AddressBook& addresses);

    const FieldHistory::Entries& entries(OrderField field) const;

    /// Trims what stands in the six boxes, as it is remembered.
    void trimTexts();

    /// Adds what stands in the six boxes to their histories and reads all of them anew. The texts
    /// stay, trimmed. The first fault ends it, that of a file in use too: nothing is waited for.
    void AddToUserFields() { rememberAllBut(nullptr); }

    /// Reads all of them anew.
    void reload();

    /// Forgets `CurrentHistoryText` in the history of `CurrentHistoryFile` and empties that box if
    /// it shows the value; in an address box, deletes the entry of that name.
    void RemoveHistoryEntry();
    /// Whether a box offers to do that with an entry: always, but in the address boxes.
    bool mayDelete(AddressSide side, const std::string& entry) const {
        return addresses_.mayDeleteEntry(side, entry);
    }

    // The events of the boxes.
    void Change(OrderField field, const std::string& text);
    /// An entry was chosen from the list.
    void Click(OrderField field, const std::string& text) { Change(field, text); }
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
    /// The history of `unfinished` is read, but what stands in its box is not remembered.
    void rememberAllBut(OrderField unfinished);

    const FileSystem& files_;
    const DataFolder& folder_;
    Prompts& prompts_;
    OpenOrder& open_;
    AddressBook& addresses_;
    std::array<FieldHistory, kHistories.size()> histories_;
};

}  // namespace bramblet
