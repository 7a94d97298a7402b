#include "core/addresses/address_file.h"
#include "support/office.h"

#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;

std::string padded(const std::string& text, std::size_t width) {
    return text + std::string(width - text.size(), ' ');
}

class AddressFileTest : public ::testing::Test {
  protected:
    std::filesystem::path path() const { return folder_ / "po_addy.dat"; }
    std::string bytes() const { return contentOf(path()); }
    /// "V3 Acme" for each record.
    std::vector<std::string> entries() {
        std::vector<std::string> entries;
        for (const auto& record : file_.readAll()) {
            entries.push_back(record.Kind + std::to_string(static_cast<int>(record.Tag)) + " " +
                              trimmedField(record.Name));
        }
        return entries;
    }

    TemporaryFolder folder_;
    AddressFile file_{FileSystem(), path()};
};

using Entries = std::vector<std::string>;

TEST_F(AddressFileTest, ARecordToTheByte) {
    file_.append(kVendor, "  Acme ", "1 Road\r\nTown ");
    const std::string one("\0\0\0\0\0\0\xF0\x3F", 8);  // 1 as a double
    EXPECT_EQ(bytes(), "1V" + one + padded("Acme", 60) + padded("1 Road\r\nTown", 500));
    file_.append(kDestination, std::string(70, 'n'), std::string(600, 'a'));
    EXPECT_EQ(bytes().substr(570), std::string("1T\0\0\0\0\0\0\0\x40", 10) + std::string(60, 'n') +
                                       std::string(500, 'a'));
}

TEST_F(AddressFileTest, NumbersGoOnFromTheHighest) {
    EXPECT_EQ(file_.GetNextAddyTag(), 1);
    file_.append(kVendor, "Acme", "");
    file_.append(kDestination, "Depot", "");
    file_.removeNamed("Acme");
    EXPECT_EQ(file_.GetNextAddyTag(), 3);
    file_.removeNamed("Depot");
    EXPECT_EQ(file_.GetNextAddyTag(), 1);
    EXPECT_EQ(file_.append(kVendor, "  ", "x"), std::nullopt);
    EXPECT_EQ(bytes(), "");
}

TEST_F(AddressFileTest, RewritingMatchesWithoutCaseAndKind) {
    file_.append(kDestination, "CAF\xC9", "old");
    file_.append(kVendor, "caf\xE9", "second");
    EXPECT_EQ(file_.rewrite(kVendor, "Caf\xE9", "new"), 1.0);
    EXPECT_EQ(entries(), (Entries{"V1 Caf\xE9", "V2 caf\xE9"}));
    EXPECT_EQ(file_.rewrite(kVendor, "Other", ""), 3.0);
    EXPECT_EQ(entries().back(), "V3 Other");
}

TEST_F(AddressFileTest, RemovingIsExactAndTakesEveryEntryOfTheName) {
    for (const char* name : {"ACME", "Acme", "ACME"})
        file_.append(kVendor, name, "");
    file_.append(kDestination, "ACME", "");
    file_.removeNamed(" ACME ");
    EXPECT_EQ(entries(), Entries{"V2 Acme"});
}

TEST_F(AddressFileTest, DeletingIsNotMixedWithWhatAnotherDeskDeletes) {
    file_.append(kVendor, "Acme", "");
    file_.append(kVendor, "Bolt", "");
    // Of another desk that runs an older version and is deleting now, or stopped half way.
    const std::string copy = padded("1VSTALE...", 570) + padded("1VSECOND..", 570);
    writeFile(folder_ / "po_addy.tmp", copy);
    file_.removeNamed("Acme");
    EXPECT_EQ(entries(), Entries{"V2 Bolt"});
    EXPECT_EQ(contentOf(folder_ / "po_addy.tmp"), copy);
}

TEST_F(AddressFileTest, ALeftOverCopyIsRemovedOnceNobodyCanBeWritingIt) {
    constexpr std::int64_t kMinute = 60'000'000'000;
    const std::string copy = padded("1VSTALE...", 570);
    file_.append(kVendor, "Acme", "");
    const auto cleared = [&](std::int64_t minutesOld) {
        writeFile(folder_ / "po_addy.tmp", copy);
        os::setModified(folder_ / "po_addy.tmp", 1000 * kMinute);
        return file_.clearLeftover((1000 + minutesOld) * kMinute);
    };
    EXPECT_FALSE(cleared(9));
    EXPECT_EQ(contentOf(folder_ / "po_addy.tmp"), copy);
    EXPECT_FALSE(cleared(10));
    EXPECT_FALSE(FileSystem().exists(folder_ / "po_addy.tmp"));
    EXPECT_EQ(entries(), Entries{"V1 Acme"});
    EXPECT_FALSE(file_.clearLeftover(0)) << "nothing there";
    // Stopped between deleting the book and giving its name to the copy.
    writeFile(path(), "");
    EXPECT_TRUE(cleared(10));
    EXPECT_EQ(bytes(), copy);
    std::filesystem::remove(path());
    EXPECT_TRUE(cleared(10));
    EXPECT_EQ(bytes(), copy);
}

TEST_F(AddressFileTest, NamesWithControlCharactersAreFoundAsTheyAreListed) {
    file_.import(kVendor, {{"Acme\tTools", "1"}, {"\nBolt", "2"}}, [](int) {});
    const std::string imported = bytes();
    EXPECT_EQ(listedName(file_.readAll()[0]), "Acme Tools");
    EXPECT_EQ(file_.findNamed(file_.readAll(), "Bolt")->Address.front(), '2');
    file_.append(kVendor, "Acme Tools", "3");
    EXPECT_EQ(file_.findNamed(file_.readAll(), "Acme Tools")->Address.front(), '3');
    file_.removeNamed("Acme Tools");  // the one that is stored so
    EXPECT_EQ(bytes(), imported);
    EXPECT_EQ(file_.rewrite(kVendor, "ACME TOOLS", "4"), file_.readAll()[0].Tag);
    EXPECT_EQ(bytes().size(), imported.size());
    file_.removeNamed("Bolt");
    EXPECT_EQ(bytes().substr(10, 60), padded("ACME TOOLS", 60));
    EXPECT_EQ(bytes().size(), 570u);
}

class AddressBookTest : public Office {
  protected:
    const AddressBook::Shown& vendor() { return program().addresses.shown(AddressSide::Vendor); }
    void type(AddressSide side, const std::string& name, const std::string& address) {
        program().addresses.Combo_Change(side, name);
        program().addresses.Field_Change(side, address);
    }
    void save(AddressSide side, const std::string& name, const std::string& address) {
        type(side, name, address);
        program().addresses.Changed_Click(side);
    }
    void pick(AddressSide side, const std::string& name) {
        program().addresses.Combo_Change(side, name);
        program().addresses.Combo_Click(side);
    }
    void saveOrder() {
        if (program().open.isPending()) {
            prompts.expect(yesNo("Save new Bramblet Number?", "Save PO?"), Answer::Yes);
        }
        program().editor.SaveChanges_Click();
    }
    std::string document() const { return contentOf(data("000001.htm")); }
    std::string stored(const std::string& name) {
        AddressFile file(FileSystem(), data("po_addy.dat"));
        const auto record = file.findNamed(file.readAll(), name);
        return record ? trimmedField(record->Address) : "none";
    }
};

TEST_F(AddressBookTest, SavedAddressesAreListedPickedAndNumbered) {
    start();
    save(AddressSide::Vendor, "Zed", "Z Road");
    save(AddressSide::Destination, "Depot", "D Road");
    save(AddressSide::Vendor, "Acme", "A Road");
    EXPECT_EQ(vendor().names, (std::vector<std::string>{"Zed", "Acme"}));  // in file order
    EXPECT_EQ(vendor().counter, "3");
    EXPECT_FALSE(vendor().changedEnabled || vendor().deleteEnabled);
    pick(AddressSide::Vendor, "Zed");
    EXPECT_EQ(order().ToField, "Z Road");
    EXPECT_EQ(vendor().counter, "1");
    EXPECT_TRUE(vendor().deleteEnabled);
    EXPECT_FALSE(vendor().changedEnabled);
    pick(AddressSide::Vendor, "zed");  // picking is exact; the number keeps its old text
    EXPECT_EQ(order().ToField, "");
    EXPECT_EQ(vendor().counter, "1");
}

TEST_F(AddressBookTest, ButtonsFollowTheEdits) {
    start();
    program().addresses.Combo_Change(AddressSide::Vendor, "A");
    EXPECT_TRUE(vendor().changedEnabled);
    EXPECT_FALSE(vendor().deleteEnabled);
    program().addresses.Field_Change(AddressSide::Vendor, "Road");
    EXPECT_TRUE(vendor().deleteEnabled);
}

TEST_F(AddressBookTest, PickingADestinationLoadsTheFirstRecordOfTheNameOfAnyKind) {
    start();
    save(AddressSide::Vendor, "Acme", "as vendor");
    // The name is known: saving it as a destination turns that record into one.
    save(AddressSide::Destination, "Acme", "as destination");
    EXPECT_TRUE(vendor().names.empty());
    pick(AddressSide::Vendor, "Acme");
    EXPECT_EQ(order().ToField, "as destination");
}

TEST_F(AddressBookTest, SavingOneSideKeepsWhatWasTypedOnTheOther) {
    start();
    type(AddressSide::Destination, "Depot", "not saved yet");
    save(AddressSide::Vendor, "Acme", "A Road");
    EXPECT_EQ(order().ShipToField, "not saved yet");
    EXPECT_TRUE(program().addresses.shown(AddressSide::Destination).changedEnabled);
}

TEST_F(AddressBookTest, AnAddressClearedByHandStaysCleared) {
    start();
    save(AddressSide::Vendor, "Acme", "A Road");
    newOrder();
    pick(AddressSide::Vendor, "Acme");
    program().addresses.Field_Change(AddressSide::Vendor, "");
    program().addresses.pickTypedName(AddressSide::Vendor);  // the name box is left
    saveOrder();
    EXPECT_EQ(order().ToField, "");
    EXPECT_EQ(document().find("A Road"), std::string::npos);
    // Another vendor's name typed over it brings that one's address.
    save(AddressSide::Destination, "Depot", "D Road");
    save(AddressSide::Vendor, "Bolt", "B Road");
    pick(AddressSide::Vendor, "Acme");
    program().addresses.Field_Change(AddressSide::Vendor, "");
    program().addresses.Combo_Change(AddressSide::Vendor, "Bolt");
    saveOrder();
    EXPECT_EQ(order().ToField, "B Road");
}

TEST_F(AddressBookTest, ATypedNameNeverTakesTheAddressOfTheOneBefore) {
    for (const bool pending : {true, false}) {
        // Listed; but for letter case; on the other side.
        for (const char* typed : {"Bolt", "bolt", "DEPOT"}) {
            for (const char* file : {"po_addy.dat", "po_data.dat", "000001.htm"})
                std::filesystem::remove(data(file));
            start();
            save(AddressSide::Destination, "Depot", "D Road");
            save(AddressSide::Vendor, "Bolt", "B Road");
            save(AddressSide::Vendor, "Acme", "A Road");
            if (!pending) newOrder();
            pick(AddressSide::Vendor, "Acme");
            program().addresses.Combo_Change(AddressSide::Vendor, typed);
            if (!pending) program().addresses.Changed_Click(AddressSide::Vendor);
            saveOrder();
            const std::string own = typed == std::string("DEPOT") ? "D Road" : "B Road";
            EXPECT_EQ(order().ToField, own) << typed;
            EXPECT_EQ(stored(typed), own) << typed;
            EXPECT_EQ(stored("Acme"), "A Road");
            EXPECT_EQ(document().find("A Road"), std::string::npos) << typed;
        }
    }
}

TEST_F(AddressBookTest, AnEditedAddressIsStoredUnderTheNameTypedForIt) {
    start();
    save(AddressSide::Vendor, "Acme", "A Road");
    save(AddressSide::Vendor, "Bolt", "B Road");
    newOrder();
    program().addresses.Field_Change(AddressSide::Vendor, "New Road");
    program().addresses.Combo_Change(AddressSide::Vendor, "Bolt");
    program().addresses.Changed_Click(AddressSide::Vendor);
    EXPECT_EQ(stored("Bolt"), "New Road");
}

TEST_F(AddressBookTest, AnAddressWithoutANameStaysOverTheFirstSave) {
    start();
    program().addresses.Field_Change(AddressSide::Destination, "Gate 4");
    saveOrder();
    EXPECT_EQ(order().ShipToField, "Gate 4");
    EXPECT_NE(document().find("Gate 4"), std::string::npos);
    EXPECT_EQ(contentOf(data("po_addy.dat")), "");
    newOrder();
    EXPECT_EQ(order().ShipToField, "");
}

TEST_F(AddressBookTest, SavingAVendorListsItsItemsAndIsWorthSaving) {
    start();
    for (const char* vendor : {"Acme", "Bolt"}) {
        program().stock.boxes = {"", vendor, "ea", std::string("of ") + vendor, "1"};
        program().stock.SaveNewStockItem_Click();
    }
    program().stock.VendorItemsCheck_Click(true);
    EXPECT_EQ(program().stock.rowCount(), 2);
    save(AddressSide::Vendor, "Bolt", "B Road");
    EXPECT_EQ(program().stock.rowCount(), 1);
    EXPECT_TRUE(program().open.SaveChangesEnabled);
    EXPECT_FALSE(program().open.OrderDirty);  // still pending
    program().addresses.Delete_Click(AddressSide::Vendor);
    EXPECT_EQ(program().stock.rowCount(), 2) << "of any vendor again";
}

TEST_F(AddressBookTest, WhatMayBeDeletedFromTheNameBox) {
    start();
    save(AddressSide::Destination, "Depot", "D Road");
    save(AddressSide::Vendor, "Bolt", "B Road");
    save(AddressSide::Vendor, "Acme", "A Road");
    const auto mayDelete = [&](const char* entry) {
        return program().addresses.mayDeleteEntry(AddressSide::Vendor, entry);
    };
    EXPECT_FALSE(mayDelete("Acme")) << "the delete command is disabled";
    pick(AddressSide::Vendor, "Acme");
    EXPECT_TRUE(mayDelete("Acme"));
    EXPECT_TRUE(mayDelete("Bolt")) << "pointed at in the list";
    EXPECT_FALSE(mayDelete("Depot")) << "listed on the other side only";
    program().addresses.Combo_Change(AddressSide::Vendor, "Bolt");
    EXPECT_FALSE(mayDelete("Bolt")) << "only typed";

    pick(AddressSide::Vendor, "Acme");
    program().addresses.deleteEntry(AddressSide::Vendor, "Bolt");
    EXPECT_EQ(order().ToCombo + ", " + order().ToField, "Acme, A Road");
    EXPECT_EQ(vendor().names, std::vector<std::string>{"Acme"});
}

TEST_F(AddressBookTest, ARefillDoesNotChangeTheOrderButShowsTheBookAnew) {
    start();
    newOrder();
    save(AddressSide::Vendor, "Acme", "A Road");
    program().editor.SaveChanges_Click();
    AddressFile(FileSystem(), data("po_addy.dat")).rewrite(kVendor, "Acme", "B Road");
    program().addresses.PopAddyLists();
    EXPECT_EQ(order().ToField, "B Road");
    EXPECT_FALSE(program().open.OrderDirty);
    EXPECT_FALSE(program().open.SaveChangesEnabled);
}

TEST_F(AddressBookTest, APickThatCannotBeReadLeavesNoOtherVendorsAddress) {
    start();
    save(AddressSide::Vendor, "Acme", "A Road");
    pick(AddressSide::Vendor, "Acme");
    std::filesystem::rename(data("po_addy.dat"), data("away"));
    std::filesystem::create_directory(data("po_addy.dat"));
    pick(AddressSide::Vendor, "Bolt");
    EXPECT_EQ(order().ToField, "");
    EXPECT_EQ(prompts.lastLine.find("The address was not read: "), 0u);
    program().addresses.PopAddyLists();
    EXPECT_EQ(vendor().names, std::vector<std::string>{"Acme"}) << "the list stays";
    save(AddressSide::Vendor, "Bolt", "B Road");
    EXPECT_EQ(prompts.lastLine.find("The address was not saved: "), 0u);
    std::filesystem::remove(data("po_addy.dat"));
    std::filesystem::rename(data("away"), data("po_addy.dat"));
    program().addresses.Changed_Click(AddressSide::Vendor);
    EXPECT_EQ(vendor().names.size(), 2u);
    EXPECT_EQ(prompts.lastLine, "") << "it is saved now";
}

TEST_F(AddressBookTest, DeletingAsksNothingAndABlankNameIsTold) {
    start();
    save(AddressSide::Vendor, "Acme", "A Road");
    program().addresses.Delete_Click(AddressSide::Vendor);
    EXPECT_EQ(order().ToCombo + order().ToField, "");
    EXPECT_TRUE(vendor().names.empty());
    prompts.expect(
        {"Please select a vendor to delete.", "Nothing to do!", Buttons::Ok, Icon::Information});
    program().addresses.Delete_Click(AddressSide::Vendor);
    prompts.expect(
        {"Please select an address to delete.", "Nothing to do!", Buttons::Ok, Icon::Information});
    program().addresses.Delete_Click(AddressSide::Destination);
}

TEST_F(AddressBookTest, APickIsWorthSavingAndChangesAnOrderThatHasANumber) {
    start();
    save(AddressSide::Vendor, "Acme", "A Road");
    pick(AddressSide::Vendor, "Acme");
    EXPECT_TRUE(program().open.SaveChangesEnabled);
    EXPECT_FALSE(program().open.OrderDirty);  // still pending
    newOrder();
    pick(AddressSide::Vendor, "Acme");
    EXPECT_TRUE(program().open.OrderDirty);
}

}  // namespace
}  // namespace bramblet
