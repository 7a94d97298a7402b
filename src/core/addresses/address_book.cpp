#include "core/addresses/address_book.h"

#include "core/platform/amount_text.h"
#include "core/platform/text.h"

#include <algorithm>

namespace bramblet {
namespace {

constexpr std::size_t kNameWidth = 60;

/// What differs between the two sides.
struct SideFacts {
    const char* kind;
    OrderField name;
    OrderField address;
    const char* nothingToDelete;
};
constexpr std::array kFacts{
    SideFacts{kVendor, &Order::ToCombo, &Order::ToField, "Please select a vendor to delete."},
    SideFacts{kDestination, &Order::ShipToCombo, &Order::ShipToField,
              "Please select an address to delete."},
};

const SideFacts& facts(AddressSide side) {
    return kFacts[static_cast<std::size_t>(side)];
}

bool isBlank(const std::string& address) {
    return address.find_first_not_of(" \r\n") == std::string::npos;
}

}  // namespace

AddressBook::AddressBook(const FileSystem& files, const DataFolder& folder, Prompts& prompts,
                         OpenOrder& open)
    : folder_(folder), prompts_(prompts), open_(open), file_(files, folder.file("po_addy.dat")) {}

void AddressBook::clearLeftover() {
    try {
        if (file_.clearLeftover(folder_.checkedAt())) {
            prompts_.say("The address book was missing and has been taken from po_addy.tmp");
        }
    } catch (const Fault& fault) {
        prompts_.say("The old file po_addy.tmp was not removed: " + fault.inWords());
    }
}

void AddressBook::PopAddyLists() {
    std::vector<AddressRecord> records;
    try {
        records = file_.readAll();
    } catch (const Fault& fault) {
        prompts_.say("The address book was not read: " + fault.inWords(), Loss::List);
        return;
    }
    for (const AddressSide side : kAddressSides) {
        fillList(side, records);
        if (hasUnsavedEdits(side)) continue;
        std::string& name = open_.order.*facts(side).name;
        name = trimmed(name).substr(0, kNameWidth);
        if (!name.empty()) showPicked(side, records);
        shown_[index(side)].deleteEnabled = false;
    }
    open_.onChange();
}

void AddressBook::refreshNames() {
    try {
        const auto records = file_.readAll();
        for (const AddressSide side : kAddressSides)
            fillList(side, records);
    } catch (const Fault& fault) {
        prompts_.say("The address book was not read: " + fault.inWords(), Loss::List);
    }
    open_.onChange();
}

void AddressBook::import(const std::string& kind, const std::vector<NameAndAddress>& entries,
                         int& added) {
    LongOperation operation(prompts_, "Importing addresses", static_cast<int>(entries.size()));
    file_.import(kind, entries, [&](int done) {
        added = done;
        operation.reached(done);
    });
}

void AddressBook::showNone() {
    for (Shown& side : shown_) {
        side.counter = "0";
        side.changedEnabled = false;
        side.deleteEnabled = false;
        side.picked.clear();
        side.addressEdited = false;
    }
    open_.onChange();
}

void AddressBook::Combo_Click(AddressSide side) {
    if (!folder_.DataPathOK()) return;
    const Prompts::Command command(prompts_);
    try {
        showPicked(side, file_.readAll());
    } catch (const Fault& fault) {
        (open_.order.*facts(side).address).clear();
        shown_[index(side)].addressEdited = false;
        open_.MarkOrderChanged();
        prompts_.say("The address was not read: " + fault.inWords());
        open_.onChange();
        return;
    }
    open_.markWorthSaving();
    shown_[index(side)].deleteEnabled = true;
    shown_[index(side)].changedEnabled = false;
    open_.onChange();
    if (side == AddressSide::Vendor) onVendorPicked();
}

void AddressBook::pickTypedName(AddressSide side) {
    const bool listed = isListed(side, open_.order.*facts(side).name);
    if (listed && hasUnsavedEdits(side) && addressIsUntouched(side)) Combo_Click(side);
}

void AddressBook::pickTypedNames() {
    for (const AddressSide side : kAddressSides)
        pickTypedName(side);
}

bool AddressBook::isListed(AddressSide side, const std::string& name) const {
    const auto& names = shown_[index(side)].names;
    return std::find(names.begin(), names.end(), trimmed(name)) != names.end();
}

bool AddressBook::addressIsUntouched(AddressSide side) const {
    const Shown& shown = shown_[index(side)];
    if (!shown.addressEdited) return true;
    // An address emptied by hand stays empty for the name it was emptied for, but not for another.
    const Order& order = open_.order;
    return isBlank(order.*facts(side).address) && trimmed(order.*facts(side).name) != shown.picked;
}

void AddressBook::Combo_Change(AddressSide side, const std::string& text) {
    open_.order.*facts(side).name = text;
    open_.MarkOrderChanged();
    shown_[index(side)].changedEnabled = true;
    open_.onChange();
}

void AddressBook::Field_Change(AddressSide side, const std::string& text) {
    open_.order.*facts(side).address = text;
    shown_[index(side)].addressEdited = true;
    open_.MarkOrderChanged();
    shown_[index(side)].changedEnabled = true;
    shown_[index(side)].deleteEnabled = true;
    open_.onChange();
}

void AddressBook::Changed_Click(AddressSide side) {
    const Prompts::Command command(prompts_);
    if (!folder_.available(prompts_)) return;
    const SideFacts& fact = facts(side);
    Shown& shown = shown_[index(side)];
    const std::string& name = open_.order.*fact.name;
    std::string& address = open_.order.*fact.address;
    try {
        if (!trimmed(name).empty() && addressIsUntouched(side)) {
            const auto entry = file_.findToRewrite(name);
            if (entry) address = trimmedField(entry->Address);
        }
        const auto tag = file_.rewrite(fact.kind, name, address);
        if (tag) shown.counter = tagText(*tag);
    } catch (const Fault& fault) {
        prompts_.say("The address was not saved: " + fault.inWords());
        return;
    }
    shown.changedEnabled = false;
    PopAddyLists();
    shown.deleteEnabled = false;
    if (!trimmed(name).empty()) open_.markWorthSaving();
    open_.onChange();
    if (side == AddressSide::Vendor) onVendorPicked();
}

void AddressBook::Delete_Click(AddressSide side) {
    const Prompts::Command command(prompts_);
    if (!folder_.available(prompts_)) return;
    const SideFacts& fact = facts(side);
    std::string& name = open_.order.*fact.name;
    if (trimmed(name).empty()) {
        prompts_.ask({fact.nothingToDelete, "Nothing to do!", Buttons::Ok, Icon::Information});
        return;
    }
    if (!removeNamed(name)) return;
    shown_[index(side)].changedEnabled = false;
    PopAddyLists();
    name.clear();
    open_.MarkOrderChanged();
    open_.onChange();
    if (side == AddressSide::Vendor) onVendorPicked();
}

bool AddressBook::removeNamed(const std::string& name) {
    try {
        file_.removeNamed(name);
        return true;
    } catch (const Fault& fault) {
        prompts_.ask({"The address was not deleted: " + fault.inWords() + ".", "Bramblet",
                      Buttons::Ok, Icon::Stop});
        return false;
    }
}

bool AddressBook::mayDeleteEntry(AddressSide side, const std::string& entry) const {
    const Shown& shown = shown_[index(side)];
    const std::string name = trimmed(entry);
    const bool onlyTyped = name == trimmed(open_.order.*facts(side).name) && name != shown.picked;
    return shown.deleteEnabled && isListed(side, name) && !onlyTyped;
}

void AddressBook::deleteEntry(AddressSide side, const std::string& entry) {
    if (trimmed(entry) == trimmed(open_.order.*facts(side).name)) return Delete_Click(side);
    if (!folder_.available(prompts_) || !removeNamed(entry)) return;
    const Order before = open_.order;
    PopAddyLists();
    // The other side may have been showing an entry of the same name.
    if (open_.order != before) open_.MarkOrderChanged();
    open_.onChange();
}

void AddressBook::showPicked(AddressSide side, const std::vector<AddressRecord>& records) {
    Shown& shown = shown_[index(side)];
    const std::string& name = open_.order.*facts(side).name;
    std::string& address = open_.order.*facts(side).address;
    address.clear();
    if (const auto record = file_.findNamed(records, name)) {
        address = trimmedField(record->Address);
        shown.counter = tagText(record->Tag);
    }
    shown.picked = trimmed(name);
    shown.addressEdited = false;
}

void AddressBook::fillList(AddressSide side, const std::vector<AddressRecord>& records) {
    std::vector<std::string>& names = shown_[index(side)].names;
    names.clear();
    for (const auto& record : records) {
        if (record.Kind == facts(side).kind) names.push_back(listedName(record));
    }
}

}  // namespace bramblet
