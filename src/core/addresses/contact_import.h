// Import of addresses from the files that the contact manager Kettleby exports.
#pragma once

#include "core/addresses/address_book.h"

#include <filesystem>
#include <functional>
#include <string>

namespace bramblet {

class ContactImport {
  public:
    ContactImport(const FileSystem& files, const DataFolder& folder, AddressBook& addresses,
                  Prompts& prompts);

    /// Path of the file that has been chosen and found usable; empty until then.
    const std::filesystem::path& chosenFile() const { return chosenFile_; }
    /// Whether the two import buttons are enabled.
    bool importEnabled() const { return !chosenFile_.empty(); }

    /// Shows the dialog.
    std::function<void()> showDialog = [] {};
    void mu_ImportKettleby_Click();

    /// "Select Kettleby Data File"
    void Command1_Click();
    void ImportKettlebyVendors_Click() { import(kVendor); }
    void ImportAsShipTos_Click() { import(kDestination); }

  private:
    void import(const std::string& kind);

    FileSystem files_;  ///< for the file that the user chooses, which is not waited for
    const DataFolder& folder_;
    AddressBook& addresses_;
    Prompts& prompts_;
    std::filesystem::path chosenFile_;
};

}  // namespace bramblet
