// Import of addresses from the files that the contact manager Kettleby exports.
#pragma once

#include "core/addresses/address_book.h"

#include <filesystem>
#include <string>
#include <vector>

namespace bramblet {

class ContactImport {
  public:
    ContactImport(const FileSystem& files, Commands& commands, AddressBook& addresses,
                  const RegionalFormats& formats);

    /// Path of the file that has been chosen and found usable; empty until then.
    const std::filesystem::path& chosenFile() const { return chosenFile_; }
    /// Whether the two import buttons are enabled.
    bool importEnabled() const { return !chosenFile_.empty(); }

    /// The contacts of that file that can be imported.
    const AddressPreview& contacts() const { return contacts_; }
    /// "5 contacts, 1 without an organization, 2 in the address book already", or why they cannot
    /// be shown.
    const std::string& summary() const { return summary_; }

    /// Opens the dialog.
    void mu_ImportKettleby_Click();
    /// "Select Kettleby Data File"
    void selectFile();
    void ImportKettlebyVendors_Click() { import(kVendor); }
    void ImportAsShipTos_Click() { import(kDestination); }

  private:
    std::vector<NameAndAddress> entries(std::size_t& skipped) const;
    void look();
    void import(const std::string& kind);

    FileSystem files_;  ///< for the file that the user chooses, which is not waited for
    Commands& commands_;
    AddressBook& addresses_;
    std::filesystem::path chosenFile_;
    AddressPreview contacts_;
    std::string summary_;
};

}  // namespace bramblet
