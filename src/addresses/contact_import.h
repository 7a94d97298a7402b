// Import of addresses from the files that the contact manager Kettleby exports.
#pragma once

#include "addresses/address_book.h"

#include <string>

namespace bramblet {

class ContactImport {
  public:
    ContactImport(const FileSystem& files, const DataFolder& folder, AddressBook& addresses,
                  Prompts& prompts);

    /// Path of the file that has been chosen and found good; empty until then.
    const std::string& chosenFile() const { return chosenFile_; }
    /// Whether the two import buttons are enabled.
    bool importEnabled() const { return !chosenFile_.empty(); }

    /// For an opening dialog: no file is chosen.
    void reset() { chosenFile_.clear(); }

    /// "Select Kettleby Data File"
    void Command1_Click();
    void ImportKettlebyVendors_Click() { import(kVendor); }
    void ImportAsShipTos_Click() { import(kDestination); }

  private:
    void import(const std::string& kind);

    const FileSystem& files_;
    const DataFolder& folder_;
    AddressBook& addresses_;
    Prompts& prompts_;
    std::string chosenFile_;
};

}  // namespace bramblet
