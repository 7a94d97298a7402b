#include "core/addresses/address_preview.h"

#include "core/platform/text.h"

#include <array>

namespace bramblet {
namespace {

using PreviewColumn = Column<PreviewedAddress>;

constexpr PreviewColumn column(ColumnLook look, std::string (*text)(const PreviewedAddress&,
                                                                    const RegionalFormats&)) {
    PreviewColumn column{look};
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
               return joinedLines(row.entry.address, ", ");
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

AddressPreview::AddressPreview(const RegionalFormats& formats) : Preview(formats, kColumns) {}

}  // namespace bramblet
