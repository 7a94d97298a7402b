#include "core/addresses/address_preview.h"

#include "core/platform/text.h"

#include <algorithm>
#include <array>

namespace bramblet {
namespace {

using Preview = Column<PreviewedAddress>;

/// The lines of an address in one line.
std::string inOneLine(const std::string& address) {
    std::string line;
    for (std::size_t at = 0; at < address.size();) {
        const std::size_t end = std::min(address.find_first_of("\r\n", at), address.size());
        const std::string part = trimmed(withoutControls(address.substr(at, end - at)));
        if (!part.empty()) line += (line.empty() ? "" : ", ") + part;
        at = end + 1;
    }
    return line;
}

constexpr Preview column(ColumnLook look,
                         std::string (*text)(const PreviewedAddress&, const RegionalFormats&)) {
    Preview column{look};
    column.text = text;
    return column;
}

constexpr std::array kColumns{
    column({"Name", 24, true},
           [](const PreviewedAddress& row, const RegionalFormats&) {
               return trimmed(withoutControls(row.entry.name));
           }),
    column({"Address", 36, true},
           [](const PreviewedAddress& row, const RegionalFormats&) {
               return inOneLine(row.entry.address);
           }),
    column({"Remark", 24, true},
           [](const PreviewedAddress& row, const RegionalFormats&) { return row.remark; }),
};

}  // namespace

KnownNames::KnownNames(const AddressRecords& records) {
    kinds_.reserve(records.size());
    for (const AddressRow record : records) {
        const std::string_view kind = record.field<&AddressRecord::Kind>();
        Kinds& kinds = kinds_[upper(listedName(record))];
        kinds.vendor = kinds.vendor || kind == kVendor;
        kinds.destination = kinds.destination || kind == kDestination;
    }
}

std::string KnownNames::kindOf(const std::string& name) const {
    const auto found = kinds_.find(upper(trimmed(withoutControls(name))));
    if (found == kinds_.end()) return {};
    const Kinds& kinds = found->second;
    if (kinds.vendor && kinds.destination) return "vendor, ship-to";
    return kinds.vendor ? "vendor" : kinds.destination ? "ship-to" : "";
}

AddressPreview::AddressPreview(const RegionalFormats& formats) : ListTable(formats) {
    for (const auto& column : kColumns)
        shown_.push_back(&column);
}

}  // namespace bramblet
