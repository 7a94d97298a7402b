// Import of addresses from the files that the contact manager Kettleby exports.
#pragma once

#include "core/addresses/address_book.h"

#include <filesystem>
#include <string>
#include <vector>

namespace bramblet {

class ContactImport {
  public:
    ContactImport(const FileSystem& files, Commands& commands, AddressBook& addresses);

    /// Path of the file that has been chosen and found usable; empty until then.
    const std::filesystem::path& chosenFile() const { return chosenFile_; }
    /// Whether the two import buttons are enabled.
    bool importEnabled() const { return !chosenFile_.empty(); }

    /// Opens the dialog.
    void mu_ImportKettleby_Click();
    /// "Select Kettleby Data File"
    void selectFile();
    void ImportKettlebyVendors_Click() { import(kVendor); }
    void ImportAsShipTos_Click() { import(kDestination); }

  private:
    std::vector<NameAndAddress> entries(std::size_t& skipped) const;
    void import(const std::string& kind);

    FileSystem files_;  ///< for the file that the user chooses, which is not waited for
    Commands& commands_;
    AddressBook& addresses_;
    std::filesystem::path chosenFile_;
};

}  // namespace bramblet
