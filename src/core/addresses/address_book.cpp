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
    const char* nothingToRename;
    const char* renaming;
    const char* keptElsewhere;  ///< where a name that is given up stays
};
constexpr std::array kFacts{
    SideFacts{kVendor, &Order::ToCombo, &Order::ToField, "Please select a vendor to delete.",
              "Please pick the vendor to rename.", "Rename Vendor",
              "Saved orders and items of the catalogue"},
    SideFacts{kDestination, &Order::ShipToCombo, &Order::ShipToField,
              "Please select an address to delete.", "Please pick the address to rename.",
              "Rename Ship-To", "Saved orders"},
};

const SideFacts& facts(AddressSide side) {
    return kFacts[static_cast<std::size_t>(side)];
}

bool isBlank(const std::string& address) {
    return address.find_first_not_of(" \r\n") == std::string::npos;
}

}  // namespace

AddressBook::AddressBook(const FileSystem& files, Commands& commands, Undo& undo, OpenOrder& open,
                         StockList& stock)
    : commands_(commands),
      undo_(undo),
      open_(open),
      stock_(stock),
      file_(files, commands.folder().file("po_addy.dat")) {}

void AddressBook::clearLeftover() {
    commands_.attempt("The old file po_addy.tmp was not removed: ", [&] {
        if (file_.clearLeftover(commands_.folder().checkedAt())) {
            commands_.say("The address book was missing and has been taken from po_addy.tmp");
        }
    });
}

void AddressBook::PopAddyLists() {
    AddressRecords records;
    if (!readAll(records)) return;
    for (const AddressSide side : kAddressSides) {
        fillList(side, records);
        if (hasUnsavedEdits(side)) continue;
        open_.fill(facts(side).name, trimmed(name(side)).substr(0, kNameWidth));
        if (!name(side).empty()) showPicked(side, records);
        changing(side).deleteEnabled = false;
    }
}

void AddressBook::refreshNames() {
    AddressRecords records;
    if (!readAll(records)) return;
    for (const AddressSide side : kAddressSides)
        fillList(side, records);
}

void AddressBook::import(const std::string& kind, const std::vector<NameAndAddress>& entries,
                         int& added) {
    LongOperation operation(commands_.prompts(), "Importing addresses",
                            static_cast<int>(entries.size()));
    file_.import(kind, entries, [&](int done) {
        added = done;
        operation.reached(done);
    });
}

std::string AddressBook::importTable(const std::string& kind,
                                     const std::vector<NameAndAddress>& entries, bool replaces) {
    AddressFile::Merged merged;
    try {
        merged = file_.merge(kind, entries, replaces);
    } catch (const Fault&) {
        refreshNames();  // some may have come in
        throw;
    }
    refreshNames();
    return "Addresses added: " + std::to_string(merged.added) +
           (replaces ? "\r\nReplaced: " + std::to_string(merged.replaced)
                     : "\r\nSkipped, since the address book has them: " +
                           std::to_string(merged.skipped));
}

void AddressBook::showNone() {
    for (const AddressSide side : kAddressSides) {
        Shown none;
        none.names = shown(side).names;
        changing(side) = std::move(none);
    }
}

void AddressBook::Combo_Click(AddressSide side) {
    if (!commands_.folder().DataPathOK()) return;
    commands_.run([&] {
        const bool found = commands_.attempt("The address was not read: ",
                                             [&] { showPicked(side, file_.readAll()); });
        if (!found) {
            open_.fill(facts(side).address, "");
            open_.MarkOrderChanged();
            changing(side).addressEdited = false;
            return;
        }
        open_.markWorthSaving();
        changing(side).deleteEnabled = true;
        changing(side).changedEnabled = false;
        refillStock(side);
    });
}

void AddressBook::pickTypedName(AddressSide side) {
    const bool listed = isListed(side, name(side));
    if (listed && hasUnsavedEdits(side) && addressIsUntouched(side)) Combo_Click(side);
}

void AddressBook::pickTypedNames() {
    for (const AddressSide side : kAddressSides)
        pickTypedName(side);
}

bool AddressBook::isListed(AddressSide side, const std::string& name) const {
    const auto& names = shown(side).names;
    return std::find(names.begin(), names.end(), trimmed(name)) != names.end();
}

bool AddressBook::addressIsUntouched(AddressSide side) const {
    if (!shown(side).addressEdited) return true;
    // An address emptied by hand stays empty for the name it was emptied for, but not for another.
    return isBlank(address(side)) && trimmed(name(side)) != shown(side).picked;
}

void AddressBook::Combo_Change(AddressSide side, const std::string& text) {
    commands_.edit([&] {
        open_.fill(facts(side).name, text);
        open_.MarkOrderChanged();
        changing(side).changedEnabled = true;
    });
}

void AddressBook::Field_Change(AddressSide side, const std::string& text) {
    commands_.edit([&] {
        open_.fill(facts(side).address, text);
        open_.MarkOrderChanged();
        Shown& shown = changing(side);
        shown.addressEdited = true;
        shown.changedEnabled = true;
        shown.deleteEnabled = true;
    });
}

void AddressBook::Changed_Click(AddressSide side) {
    commands_.onData([&] {
        const bool saved = commands_.attempt("The address was not saved: ", [&] {
            if (!trimmed(name(side)).empty() && addressIsUntouched(side)) {
                const auto entry = file_.findToRewrite(name(side));
                if (entry) open_.fill(facts(side).address, trimmedField(entry->Address));
            }
            const auto tag = file_.rewrite(facts(side).kind, name(side), address(side));
            if (tag) changing(side).counter = tagText(*tag);
        });
        if (!saved) return;
        changing(side).changedEnabled = false;
        PopAddyLists();
        changing(side).deleteEnabled = false;
        if (!trimmed(name(side)).empty()) open_.markWorthSaving();
        refillStock(side);
    });
}

void AddressBook::Delete_Click(AddressSide side) {
    commands_.onData([&] {
        if (trimmed(name(side)).empty()) {
            commands_.tell(facts(side).nothingToDelete, "Nothing to do!");
            return;
        }
        remove(name(side), [&] {
            changing(side).changedEnabled = false;
            PopAddyLists();
            open_.fill(facts(side).name, "");
            open_.MarkOrderChanged();
            refillStock(side);
        });
    });
}

void AddressBook::rename(AddressSide side) {
    commands_.onData([&] {
        const std::string old = trimmed(name(side));
        if (old.empty() || !isListed(side, old))
            return commands_.tell(facts(side).nothingToRename, "Nothing to do!");
        for (std::string typed = old;;) {
            const auto answer = commands_.prompts().input(
                "New name of \"" + old + "\":\r\n\r\n" + facts(side).keptElsewhere +
                    " keep the old one. An order that is opened again\r\nfinds its address by the "
                    "name.",
                facts(side).renaming, typed);
            if (!answer) return;
            typed = trimmed(*answer);
            if (typed.empty() || typed == old || rename(side, typed)) return;
        }
    });
}

bool AddressBook::rename(AddressSide side, const std::string& newName) {
    using Renaming = AddressFile::Renaming;
    if (newName.size() > kNameWidth) {
        commands_.tell("This name has " + std::to_string(newName.size()) +
                           " characters. The address book holds " + std::to_string(kNameWidth) +
                           " of a name.",
                       facts(side).renaming, Icon::Exclamation);
        return false;
    }
    const std::string old = trimmed(name(side));
    Renaming result{};
    const bool tried = commands_.attempt("The address was not renamed: ", [&] {
        result = file_.rename(facts(side).kind, old, newName);
    });
    if (!tried) return true;
    if (result == Renaming::Taken) {
        commands_.tell("\"" + newName +
                           "\" is in the address book already. Two entries of one name cannot be "
                           "told apart.",
                       facts(side).renaming, Icon::Exclamation);
        return false;
    }
    if (result == Renaming::Gone) {
        commands_.say("\"" + old + "\" is no longer in the address book; nothing was renamed");
        refreshNames();
        return true;
    }
    const bool deletable = shown(side).deleteEnabled;
    open_.fill(facts(side).name, newName);
    changing(side).picked = newName;
    PopAddyLists();
    changing(side).deleteEnabled = deletable;
    open_.MarkOrderChanged();
    refillStock(side);
    commands_.sayDone("\"" + old + "\" is now \"" + newName + "\" in the address book");
    return true;
}

bool AddressBook::readAll(AddressRecords& records) {
    return commands_.attempt(
        "The address book was not read: ", [&] { records = file_.readAll(); }, Loss::List);
}

/// Removes the entries of a name, does what comes `after` that, and offers the way back.
void AddressBook::remove(const std::string& name, const std::function<void()>& after) {
    const std::string removedName = trimmed(name);  // which may be that of a box
    const OpenOrder::State before = open_.state();
    const Standing standing = shown_;
    RemovedAddresses removed;
    const bool done = commands_.attemptOrAsk(
        "The address was not deleted: ", "Bramblet", [&] { removed = file_.removeNamed(name); },
        Icon::Stop);
    if (!done) return;
    after();
    const std::string missing = called("Address", removedName) + " was not in the address book.";
    if (removed.empty() && open_.state() == before) return commands_.sayDone(missing);
    Undo::Step step = deletionOf(called("address", removedName), [=, this, now = open_.state()] {
        return putBack(removed, before, standing, now);
    });
    if (removed.empty()) {  // a name that was typed, or that a colleague has removed
        step.done = missing;
        step.what = "emptying the boxes";
    }
    undo_.offer(std::move(step));
}

/// Under their old name, the addresses also come back into the boxes that the removal has emptied.
bool AddressBook::putBack(const RemovedAddresses& removed, const OpenOrder::State& before,
                          const Standing& standing, const OpenOrder::State& after) {
    const std::string name = file_.putBack(removed);
    const std::string former =
        removed.empty() ? name
                        : trimmed(withoutControls(trimmedField(removed.front().record.Name)));
    if (name == former) bringBackBoxes(before, standing, after);
    refreshNames();
    stock_.PopStockList();
    if (name != former) {
        commands_.sayDone("There is another \"" + former +
                          "\" by now: the one that was deleted is back as \"" + name + "\"");
    } else if (!removed.empty()) {
        commands_.sayDone("\"" + name + "\" is back in the address book");
    }
    return true;
}

void AddressBook::bringBackBoxes(const OpenOrder::State& before, const Standing& standing,
                                 const OpenOrder::State& after) {
    if (open_.state() == after) {
        open_.bringBack(before);
        return bringBack(standing);
    }
    if (!open_.isStill(after)) return;
    for (const AddressSide side : kAddressSides) {
        const auto is = [&, now = open_.order()](OrderField box) {
            return now.*box == after.order.*box;
        };
        const auto was = [&](OrderField box) { return before.order.*box == after.order.*box; };
        const SideFacts& boxes = facts(side);
        const bool emptied = !was(boxes.name) || !was(boxes.address);
        if (!emptied || !is(boxes.name) || !is(boxes.address)) continue;
        open_.fill(boxes.name, before.order.*boxes.name);
        open_.fill(boxes.address, before.order.*boxes.address);
        open_.MarkOrderChanged();
        bringBack(side, standing);
    }
}

void AddressBook::bringBack(const Standing& standing) {
    for (const AddressSide side : kAddressSides)
        bringBack(side, standing);
}

void AddressBook::bringBack(AddressSide side, const Standing& standing) {
    Shown& shown = changing(side);
    std::vector<std::string> names = std::move(shown.names);
    shown = standing[index(side)];
    shown.names = std::move(names);
}

bool AddressBook::mayDeleteEntry(AddressSide side, const std::string& entry) const {
    const std::string wanted = trimmed(entry);
    const bool onlyTyped = wanted == trimmed(name(side)) && wanted != shown(side).picked;
    return shown(side).deleteEnabled && isListed(side, wanted) && !onlyTyped;
}

void AddressBook::deleteEntry(AddressSide side, const std::string& entry) {
    if (trimmed(entry) == trimmed(name(side))) return Delete_Click(side);
    commands_.onData([&] {
        remove(entry, [&] {
            const Order before = open_.order();
            PopAddyLists();
            // The other side may have been showing an entry of the same name.
            if (open_.order() != before) open_.MarkOrderChanged();
        });
    });
}

void AddressBook::showPicked(AddressSide side, const AddressRecords& records) {
    Shown& shown = changing(side);
    const auto record = file_.findNamed(records, name(side));
    open_.fill(facts(side).address, record ? trimmedField(record->Address) : "");
    if (record) shown.counter = tagText(record->Tag);
    shown.picked = trimmed(name(side));
    shown.addressEdited = false;
}

void AddressBook::fillList(AddressSide side, const AddressRecords& records) {
    std::vector<std::string>& names = changing(side).names;
    names.clear();
    for (const AddressRow record : records) {
        if (record.field<&AddressRecord::Kind>() == facts(side).kind)
            names.push_back(listedName(record));
    }
}

const std::string& AddressBook::name(AddressSide side) const {
    return open_.order().*facts(side).name;
}

const std::string& AddressBook::address(AddressSide side) const {
    return open_.order().*facts(side).address;
}

/// After the vendor shown has been picked, saved or deleted.
void AddressBook::refillStock(AddressSide side) {
    if (side == AddressSide::Vendor) stock_.PopStockList();
}

}  // namespace bramblet
