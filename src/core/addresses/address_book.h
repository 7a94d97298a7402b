// The two address blocks of the order: the lists of vendor and destination names, picking one of
// them, and saving and deleting what is shown.
#pragma once

#include "core/addresses/address_file.h"
#include "core/addresses/address_preview.h"
#include "core/document/open_order.h"
#include "core/settings/commands.h"
#include "core/settings/undo.h"
#include "core/stock/stock_list.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace bramblet {

enum class AddressSide { Vendor, Destination };
inline constexpr std::array kAddressSides{AddressSide::Vendor, AddressSide::Destination};

class AddressBook {
  public:
    /// `stock` lists the items of the vendor picked.
    AddressBook(const FileSystem& files, Commands& commands, Undo& undo, OpenOrder& open,
                StockList& stock);

    /// What one side shows besides the order's own texts.
    struct Shown {
        std::vector<std::string> names;  ///< in file order
        std::string counter = "0";       ///< the number of the address shown
        bool changedEnabled = false;     ///< ChangedVendor or ChangedDest
        bool deleteEnabled = false;      ///< DeleteVendor or DeleteDest
        std::string picked;              ///< the name whose address was last looked up
        bool addressEdited = false;      ///< whether the address has been edited since then
    };
    const Shown& shown(AddressSide side) const { return shown_[index(side)]; }

    /// What both sides show, for a way back to it: the lists of names stay those of the book.
    using Standing = std::array<Shown, 2>;
    const Standing& standing() const { return shown_; }
    void bringBack(const Standing& standing);

    /// Clears up at start-up what an interrupted delete has left behind (address_file.h).
    void clearLeftover();

    /// Rebuilds both lists and shows the picked addresses anew. An address with unsaved edits stays
    /// as it is, so that saving one side never costs what was typed on the other; so does one
    /// without a name, which no entry could bring back.
    void PopAddyLists();

    /// Rebuilds both lists of names, leaving what is shown as it is.
    void refreshNames();

    /// Adds imported addresses, counting them in `added`. Throws FileError; addresses added before
    /// that stay.
    void import(const std::string& kind, const std::vector<NameAndAddress>& entries, int& added);

    /// Adds the addresses of a table, as AddressFile::merge does, and says what has come in. Throws
    /// FileError.
    std::string importTable(const std::string& kind, const std::vector<NameAndAddress>& entries,
                            bool replaces);

    /// The names in the book as it is now. Throws FileError.
    KnownNames knownNames() const { return KnownNames(file_.readAtOnce()); }

    /// Called when the order's addresses have been emptied: no number is shown, nothing can be
    /// saved.
    void showNone();

    /// ToCombo_Click and ShipToCombo_Click: the name in the box has been picked from its list.
    void Combo_Click(AddressSide side);

    /// A name typed in full counts as picked if it is listed and no address has been typed for it.
    /// Called when the focus leaves the box.
    void pickTypedName(AddressSide side);
    /// The same for both sides, before the order is saved or shown.
    void pickTypedNames();

    /// ToCombo_Change and ShipToCombo_Change; ToField_Change and ShipToField_Change.
    void Combo_Change(AddressSide side, const std::string& text);
    void Field_Change(AddressSide side, const std::string& text);

    /// ChangedVendor_Click and ChangedDest_Click: stores the name and address shown. An address
    /// that belongs to the name shown before is not stored under this one: this name's own address
    /// comes into the box first.
    void Changed_Click(AddressSide side);

    /// DeleteVendor_Click and DeleteDest_Click: removes every entry of the name shown.
    void Delete_Click(AddressSide side);

    /// Asks for another name for the entry picked, under which the address book has it from then
    /// on.
    void rename(AddressSide side);

    /// Whether an entry may be deleted from the name box and its list, by key or menu: the delete
    /// command is enabled, the side lists the entry, and if it is in the box, it was picked.
    bool mayDeleteEntry(AddressSide side, const std::string& entry) const;
    /// Deletes it: like `Delete_Click` for the name shown; deleting another one leaves that name
    /// alone.
    void deleteEntry(AddressSide side, const std::string& entry);

  private:
    static std::size_t index(AddressSide side) { return static_cast<std::size_t>(side); }
    bool isListed(AddressSide side, const std::string& name) const;
    /// Whether no address has been typed for this name: the one shown is as it was looked up, or is
    /// blank while the name differs from the one looked up.
    bool addressIsUntouched(AddressSide side) const;
    bool readAll(AddressRecords& records);
    void remove(const std::string& name, const std::function<void()>& after);
    bool putBack(const RemovedAddresses& removed, const OpenOrder::State& before,
                 const Standing& standing, const OpenOrder::State& after);
    void bringBack(AddressSide side, const Standing& standing);
    void bringBackBoxes(const OpenOrder::State& before, const Standing& standing,
                        const OpenOrder::State& after);
    /// False for a new name that cannot be taken, of which the user has been told.
    bool rename(AddressSide side, const std::string& newName);
    void showPicked(AddressSide side, const AddressRecords& records);
    void fillList(AddressSide side, const AddressRecords& records);
    bool hasUnsavedEdits(AddressSide side) const { return shown_[index(side)].changedEnabled; }

    /// What a side shows, about to be changed.
    Shown& changing(AddressSide side) {
        commands_.changed(&Views::order);
        return shown_[index(side)];
    }
    const std::string& name(AddressSide side) const;
    const std::string& address(AddressSide side) const;
    void refillStock(AddressSide side);

    Commands& commands_;
    Undo& undo_;
    OpenOrder& open_;
    StockList& stock_;
    AddressFile file_;
    Standing shown_;
};

}  // namespace bramblet
