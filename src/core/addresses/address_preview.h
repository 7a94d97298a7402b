// Addresses that are about to be imported, as they are shown before: their names, and which of them
// the address book has already.
#pragma once

#include "core/addresses/address_file.h"
#include "core/platform/list_table.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace bramblet {

/// The names in the address book, regardless of case.
class KnownNames {
  public:
    KnownNames() = default;
    explicit KnownNames(const AddressRecords& records);

    /// As what the book has a name: "vendor", "ship-to" or both; empty when it does not.
    std::string kindOf(const std::string& name) const;

  private:
    struct Kinds {
        bool vendor = false, destination = false;
    };
    std::unordered_map<std::string, Kinds> kinds_;
};

struct PreviewedAddress {
    NameAndAddress entry;
    std::string remark;
};

class AddressPreview : public Preview<PreviewedAddress> {
  public:
    explicit AddressPreview(const RegionalFormats& formats);
};

}  // namespace bramblet
