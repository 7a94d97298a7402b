#include "core/addresses/address_file.h"
#include "support/office.h"

namespace bramblet::test {
namespace {

using Entries = std::vector<std::string>;

AddressFile addressFileIn(const std::filesystem::path& folder) {
    return {FileSystem(), folder / "po_addy.dat"};
}

class AddressFileTest : public ::testing::Test {
  protected:
    std::string bytes() const { return contentOf(folder_ / "po_addy.dat"); }
    /// "V3 Acme" for each record.
    Entries entries() {
        Entries entries;
        for (const AddressRow row : file_.readAll()) {
            const AddressRecord record = row.record();
            entries.push_back(record.Kind + std::to_string(static_cast<int>(record.Tag)) + " " +
                              trimmedField(record.Name));
        }
        return entries;
    }

    TemporaryFolder folder_;
    AddressFile file_ = addressFileIn(folder_.path());
};

TEST_F(AddressFileTest, ARecordToTheByte) {
    file_.append(kVendor, "  Acme ", "1 Road\r\nTown ");
    const std::string one("\0\0\0\0\0\0\xF0\x3F", 8);  // 1 as a double
    EXPECT_EQ(bytes(), "1V" + one + fitted("Acme", 60) + fitted("1 Road\r\nTown", 500));
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
    EXPECT_EQ(file_.rewrite(kVendor, "Other", ""), 3.0);
    EXPECT_EQ(entries(), (Entries{"V1 Caf\xE9", "V2 caf\xE9", "V3 Other"}));
}

TEST_F(AddressFileTest, RemovingIsExactAndTakesEveryEntryOfTheName) {
    for (const char* name : {"ACME", "Acme", "ACME"})
        file_.append(kVendor, name, "");
    file_.append(kDestination, "ACME", "");
    // Of another desk that runs an older version and is deleting now, or stopped half way.
    writeFile(folder_ / "po_addy.tmp", fitted("1VSTALE...", 570));
    file_.removeNamed(" ACME ");
    EXPECT_EQ(entries(), Entries{"V2 Acme"});
    EXPECT_EQ(contentOf(folder_ / "po_addy.tmp"), fitted("1VSTALE...", 570));
}

TEST_F(AddressFileTest, ALeftOverCopyIsRemovedOnceNobodyCanBeWritingIt) {
    constexpr std::int64_t kMinute = 60'000'000'000;
    const std::filesystem::path leftOver = folder_ / "po_addy.tmp";
    const std::string copy = fitted("1VSTALE...", 570);
    file_.append(kVendor, "Acme", "");
    const auto cleared = [&](std::int64_t minutesOld) {
        writeFile(leftOver, copy);
        os::setModified(leftOver, 1000 * kMinute);
        return file_.clearLeftover((1000 + minutesOld) * kMinute);
    };
    EXPECT_FALSE(cleared(9));
    EXPECT_EQ(contentOf(leftOver), copy);
    EXPECT_FALSE(cleared(10));
    EXPECT_FALSE(os::exists(leftOver));
    EXPECT_EQ(entries(), Entries{"V1 Acme"});
    EXPECT_FALSE(file_.clearLeftover(0)) << "nothing there";
    // Stopped between deleting the book and giving its name to the copy.
    writeFile(folder_ / "po_addy.dat", "");
    EXPECT_TRUE(cleared(10));
    EXPECT_EQ(bytes(), copy);
    std::filesystem::remove(folder_ / "po_addy.dat");
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
    EXPECT_EQ(file_.rewrite(kVendor, "ACME TOOLS", "4"), file_.readAll()[0].record().Tag);
    EXPECT_EQ(bytes().size(), imported.size());
    file_.removeNamed("Bolt");
    EXPECT_EQ(bytes().substr(10, 60), fitted("ACME TOOLS", 60));
    EXPECT_EQ(bytes().size(), 570u);
}

class AddressBookTest : public Office {
  protected:
    void SetUp() override {
        start();
        saveAddress(Destination, "Depot", "D Road");
        saveAddress(Vendor, "Bolt", "B Road");
        saveAddress(Vendor, "Acme", "A Road");
    }
    AddressBook& book() { return program().addresses; }
    const AddressBook::Shown& vendor() { return book().shown(Vendor); }
    void saveOrder() {
        if (isPending())
            prompts.expect(yesNo("Save new Bramblet Number?", "Save PO?"), Answer::Yes);
        save();
    }
    std::string storedAddress(const std::string& name) const {
        AddressFile file = addressFileIn(data(""));
        const auto record = file.findNamed(file.readAll(), name);
        return record ? trimmedField(record->Address) : "none";
    }
};

TEST_F(AddressBookTest, SavedAddressesAreListedPickedAndNumbered) {
    EXPECT_EQ(vendor().names, (Entries{"Bolt", "Acme"})) << "in file order";
    EXPECT_EQ(vendor().counter, "3");
    EXPECT_FALSE(vendor().changedEnabled || vendor().deleteEnabled);
    typeName(Vendor, "A");
    EXPECT_TRUE(vendor().changedEnabled && !vendor().deleteEnabled);
    typeAddress(Vendor, "Road");
    EXPECT_TRUE(vendor().deleteEnabled);
    pickAddress(Vendor, "Bolt");
    EXPECT_EQ(order().ToField, "B Road");
    EXPECT_EQ(vendor().counter, "2");
    EXPECT_TRUE(vendor().deleteEnabled && !vendor().changedEnabled);
    EXPECT_TRUE(saveEnabled() && !dirty()) << "still pending";
    pickAddress(Vendor, "bolt");  // picking is exact; the number keeps its old text
    EXPECT_EQ(order().ToField + vendor().counter, "2");
    newOrder();
    pickAddress(Vendor, "Acme");
    EXPECT_TRUE(dirty());
}

TEST_F(AddressBookTest, PickingLoadsTheFirstRecordOfTheNameOfAnyKind) {
    // The name is known: saving it as a destination turns that record into one.
    saveAddress(Destination, "Acme", "as destination");
    EXPECT_EQ(vendor().names, Entries{"Bolt"});
    pickAddress(Vendor, "Acme");
    EXPECT_EQ(order().ToField, "as destination");
}

TEST_F(AddressBookTest, SavingOneSideKeepsWhatWasTypedOnTheOther) {
    typeName(Destination, "Depot");
    typeAddress(Destination, "not saved yet");
    saveAddress(Vendor, "Acme", "C Road");
    EXPECT_EQ(order().ShipToField, "not saved yet");
    EXPECT_TRUE(book().shown(Destination).changedEnabled);
}

TEST_F(AddressBookTest, AnAddressClearedByHandStaysCleared) {
    newOrder();
    pickAddress(Vendor, "Acme");
    typeAddress(Vendor, "");
    book().pickTypedName(Vendor);  // the name box is left
    saveOrder();
    EXPECT_EQ(order().ToField, "");
    EXPECT_FALSE(contains(stored("000001.htm"), "A Road"));
    saveAddress(Vendor, "Acme", "A Road");
    typeAddress(Vendor, "");
    typeName(Vendor, "Bolt");
    saveOrder();
    EXPECT_EQ(order().ToField, "B Road") << "another vendor's name brings that one's address";
}

TEST_F(AddressBookTest, ATypedNameNeverTakesTheAddressOfTheOneBefore) {
    for (const bool pending : {true, false}) {
        // Listed; but for letter case; on the other side.
        for (const std::string typed : {"Bolt", "bolt", "DEPOT"}) {
            for (const char* file : {"po_addy.dat", "po_data.dat", "000001.htm"})
                std::filesystem::remove(data(file));
            SetUp();
            if (!pending) newOrder();
            pickAddress(Vendor, "Acme");
            typeName(Vendor, typed);
            if (!pending) book().Changed_Click(Vendor);
            saveOrder();
            const std::string own = typed == "DEPOT" ? "D Road" : "B Road";
            EXPECT_EQ(order().ToField, own) << typed;
            EXPECT_EQ(storedAddress(typed), own) << typed;
            EXPECT_EQ(storedAddress("Acme"), "A Road");
            EXPECT_FALSE(contains(stored("000001.htm"), "A Road")) << typed;
        }
    }
}

TEST_F(AddressBookTest, AnEditedAddressIsStoredUnderTheNameTypedForIt) {
    newOrder();
    typeAddress(Vendor, "New Road");
    typeName(Vendor, "Bolt");
    book().Changed_Click(Vendor);
    EXPECT_EQ(storedAddress("Bolt"), "New Road");
}

TEST_F(AddressBookTest, AnAddressWithoutANameStaysOverTheFirstSave) {
    typeName(Destination, "");
    typeAddress(Destination, "Gate 4");
    const std::string before = stored("po_addy.dat");
    saveOrder();
    EXPECT_EQ(order().ShipToField, "Gate 4");
    EXPECT_TRUE(contains(stored("000001.htm"), "Gate 4"));
    EXPECT_EQ(stored("po_addy.dat"), before);
    newOrder();
    EXPECT_EQ(order().ShipToField, "");
}

TEST_F(AddressBookTest, SavingAVendorListsItsItemsAndIsWorthSaving) {
    StockList& stock = program().stock;
    saveItem("nail", "Acme");
    saveItem("bolt", "Bolt");
    typeName(Vendor, "");
    stock.VendorItemsCheck_Click(true);
    EXPECT_EQ(stock.rowCount(), 2);
    saveAddress(Vendor, "Bolt", "B Road");
    EXPECT_EQ(stock.rowCount(), 1);
    EXPECT_TRUE(saveEnabled() && !dirty()) << "still pending";
    book().Delete_Click(Vendor);
    EXPECT_EQ(stock.rowCount(), 2) << "of any vendor again";
}

TEST_F(AddressBookTest, WhatMayBeDeletedFromTheNameBox) {
    const auto mayDelete = [&](const char* entry) { return book().mayDeleteEntry(Vendor, entry); };
    EXPECT_FALSE(mayDelete("Acme")) << "the delete command is disabled";
    pickAddress(Vendor, "Acme");
    EXPECT_TRUE(mayDelete("Acme"));
    EXPECT_TRUE(mayDelete("Bolt")) << "pointed at in the list";
    EXPECT_FALSE(mayDelete("Depot")) << "listed on the other side only";
    typeName(Vendor, "Bolt");
    EXPECT_FALSE(mayDelete("Bolt")) << "only typed";
    pickAddress(Vendor, "Acme");
    book().deleteEntry(Vendor, "Bolt");
    EXPECT_EQ(order().ToCombo + ", " + order().ToField, "Acme, A Road");
    EXPECT_EQ(vendor().names, Entries{"Acme"});
}

TEST_F(AddressBookTest, ARefillDoesNotChangeTheOrderButShowsTheBookAnew) {
    newOrder();
    saveAddress(Vendor, "Acme", "A Road");
    save();
    addressFileIn(data("")).rewrite(kVendor, "Acme", "B Road");
    book().PopAddyLists();
    EXPECT_EQ(order().ToField, "B Road");
    EXPECT_FALSE(dirty() || saveEnabled());
}

TEST_F(AddressBookTest, APickThatCannotBeReadLeavesNoOtherVendorsAddress) {
    pickAddress(Vendor, "Acme");
    std::filesystem::rename(data("po_addy.dat"), data("away"));
    std::filesystem::create_directory(data("po_addy.dat"));
    pickAddress(Vendor, "Bolt");
    EXPECT_EQ(order().ToField, "");
    EXPECT_TRUE(screen.lastLine.starts_with("The address was not read: "));
    book().PopAddyLists();
    EXPECT_EQ(vendor().names.size(), 2u) << "the list stays";
    saveAddress(Vendor, "Cole", "C Road");
    EXPECT_TRUE(screen.lastLine.starts_with("The address was not saved: "));
    std::filesystem::remove(data("po_addy.dat"));
    std::filesystem::rename(data("away"), data("po_addy.dat"));
    book().Changed_Click(Vendor);
    EXPECT_EQ(vendor().names.size(), 3u);
    EXPECT_EQ(screen.lastLine, "") << "it is saved now";
}

TEST_F(AddressBookTest, APickedEntryIsRenamedInItsPlace) {
    const std::string before = stored("po_addy.dat");
    const auto ask = [&](const std::string& old, const std::string& preset,
                         const std::optional<std::string>& answer) {
        prompts.expectInput(
            "New name of \"" + old +
                "\":\r\n\r\nSaved orders and items of the catalogue keep the old "
                "one. An order that is opened again\r\nfinds its address by the name.",
            "Rename Vendor", preset, answer);
    };
    newOrder();
    typeName(Vendor, "Bol");
    prompts.expect(notice("Please pick the vendor to rename.", "Nothing to do!"));
    book().rename(Vendor);
    pickAddress(Vendor, "Bolt");
    ask("Bolt", "Bolt", " depot ");
    prompts.expectSaying("\"depot\" is in the address book already");
    ask("Bolt", "depot", std::string(61, 'n'));
    prompts.expectSaying("This name has 61 characters. The address book holds 60");
    ask("Bolt", std::string(61, 'n'), std::nullopt);
    book().rename(Vendor);
    EXPECT_EQ(stored("po_addy.dat"), before);

    givenUnchanged();
    ask("Bolt", "Bolt", "BOLT & Co");
    book().rename(Vendor);
    EXPECT_EQ(stored("po_addy.dat"),
              std::string(before).replace(570 + 10, 60, fitted("BOLT & Co", 60)));
    EXPECT_EQ(vendor().names, (Entries{"BOLT & Co", "Acme"}));
    EXPECT_EQ(order().ToCombo + ", " + order().ToField, "BOLT & Co, B Road");
    EXPECT_TRUE(dirty() && vendor().deleteEnabled && !vendor().changedEnabled);
    ask("BOLT & Co", "BOLT & Co", "Bolt & Co");  // only the case
    book().rename(Vendor);
    EXPECT_EQ(vendor().names.front(), "Bolt & Co");

    // Another desk has put something else there; an edited address stays.
    typeAddress(Vendor, "by hand");
    AddressFile other = addressFileIn(data(""));
    other.removeNamed("Depot");
    ask("Bolt & Co", "Bolt & Co", "Bolts");
    book().rename(Vendor);
    EXPECT_EQ(order().ToField, "by hand");
    EXPECT_EQ(storedAddress("Bolts"), "B Road");
    other.removeNamed("Bolts");
    ask("Bolts", "Bolts", "Nuts");
    book().rename(Vendor);
    expectSaid("\"Bolts\" is no longer in the address book; nothing was renamed");
    EXPECT_EQ(vendor().names, Entries{"Acme"});
}

TEST_F(AddressBookTest, DeletingAsksNothingAndABlankNameIsTold) {
    book().Delete_Click(Vendor);
    EXPECT_EQ(order().ToCombo + order().ToField, "");
    EXPECT_EQ(vendor().names, Entries{"Bolt"});
    prompts.expect(notice("Please select a vendor to delete.", "Nothing to do!"));
    book().Delete_Click(Vendor);
    typeName(Destination, " ");
    prompts.expect(notice("Please select an address to delete.", "Nothing to do!"));
    book().Delete_Click(Destination);
}

}  // namespace
}  // namespace bramblet::test
