#include "core/addresses/address_file.h"
#include "support/office.h"

namespace bramblet::test {
namespace {

const std::string kLines = "1 Mill Road\r\nUnit 2\r\nLeeds W. Yorks LS1 1AA";

/// A contact as the other program writes it: 1,047 bytes, unused fields full of dots.
std::string contact(const std::string& organization, const std::string& phone = "",
                    const std::string& fax = "") {
    std::string record(1047, '.');
    record.replace(81, 40, fitted(organization, 40));
    record.replace(121, 20, fitted(phone, 20));
    record.replace(151, 20, fitted(fax, 20));
    record.replace(316, 130,
                   fitted("1 Mill Road", 40) + fitted("Unit 2", 40) + fitted("Leeds", 20) +
                       fitted("W. Yorks", 20) + fitted("LS1 1AA", 10));
    return record;
}

class ContactImportTest : public Office {
  protected:
    void SetUp() override {
        start();
        saveAddress(Vendor, "Acme", "A Road");
    }
    ContactImport& dialog() { return program().contactImport; }
    void choosePath(const std::optional<std::filesystem::path>& path, bool good = true) {
        prompts.expectChoice("", path);
        if (!good) {
            prompts.expect(
                notice("This file does not contain Kettleby records, or they are corrupt", "Error",
                       Icon::Stop));
        }
        dialog().selectFile();
    }
    void choose(const std::string& content, bool good = true) {
        writeFile(documents / "contacts.dat", content);
        choosePath(documents / "contacts.dat", good);
    }
    void import(AddressSide side) {
        prompts.expect(notice("Finished!", "Import Complete"));
        side == Vendor ? dialog().ImportKettlebyVendors_Click() : dialog().ImportAsShipTos_Click();
    }
    std::size_t records() const { return stored("po_addy.dat").size() / 570; }
    AddressRecord record(std::size_t number) const {
        return decodeRecord(kAddressLayout, stored("po_addy.dat").substr(570 * (number - 1), 570));
    }
    std::string address(std::size_t number) const { return trimmedField(record(number).Address); }
};

TEST_F(ContactImportTest, ContactsBecomeAddressesOfTheKind) {
    choose(contact(" Zo\xEB & Co ", "0113 1", "0113 2") + contact("", "0113 3") +
           contact("No Fax", "0113 4") + contact("No Phone", "", "0113 5"));
    import(Vendor);
    ASSERT_EQ(records(), 4u);
    EXPECT_EQ(record(2).Active + record(2).Kind, "1V");
    EXPECT_EQ(trimmedField(record(2).Name), "Zo\xEB & Co");
    EXPECT_EQ(address(2), kLines + "\r\n\r\nPhone 0113 1 Fax 0113 2");
    EXPECT_EQ(address(3), kLines + "\r\n\r\nPhone 0113 4 Fax");
    EXPECT_EQ(address(4), kLines);
    EXPECT_EQ(screen.lastLine, "Addresses added: 3, skipped without an organization: 1");
    EXPECT_EQ(names(Vendor).size(), 4u);
    import(Destination);
    EXPECT_EQ(records(), 7u);
    EXPECT_EQ(record(5).Kind, "T");
    EXPECT_EQ(names(Destination).size(), 3u);
    import(Destination);
    EXPECT_EQ(records(), 10u) << "no look for duplicates";
}

TEST_F(ContactImportTest, TheChosenFileIsShownWithWhatTheBookHas) {
    saveAddress(Destination, "Zo\xC9", "");
    const auto shown = [&] {
        std::string text = dialog().summary();
        for (int row = 0; row < dialog().contacts().rowCount(); ++row)
            text +=
                " | " + dialog().contacts().cell(row, 0) + ": " + dialog().contacts().cell(row, 2);
        return text;
    };
    choose(contact("Bolt") + contact("") + contact("ACME") + contact("zo\xE9"));
    EXPECT_EQ(shown(),
              "3 contacts, 2 in the address book already; 1 without an organization | Bolt:  | "
              "ACME: In the book as vendor | zo\xE9: In the book as ship-to");
    EXPECT_EQ(dialog().contacts().cell(0, 1), "1 Mill Road, Unit 2, Leeds W. Yorks LS1 1AA");
    import(Vendor);
    EXPECT_TRUE(contains(shown(), "3 in the address book")) << shown();
    EXPECT_TRUE(contains(shown(), "zo\xE9: In the book as vendor, ship-to")) << shown();
    dialog().mu_ImportKettleby_Click();
    EXPECT_EQ(shown(), "");
}

TEST_F(ContactImportTest, TheNumberIsThatOfTheRecordReadLast) {
    saveAddress(Vendor, "Bolts", "");
    pickAddress(Vendor, "Acme");  // reads record 1 last
    choose(contact("One") + contact("Two"));
    import(Vendor);
    EXPECT_EQ(record(2).Tag, 2);
    EXPECT_EQ(record(3).Tag, 1);
    EXPECT_EQ(record(4).Tag, 1);
}

TEST_F(ContactImportTest, WhatIsShownStays) {
    typeAddress(Vendor, "typed by hand");
    given(&Order::ShipToCombo, "Depot");
    given(&Order::ShipToField, "as in an old order");
    choose(contact("Depot"));
    import(Destination);
    EXPECT_EQ(order().ToField, "typed by hand");
    EXPECT_EQ(order().ShipToField, "as in an old order");
}

TEST_F(ContactImportTest, OnlyTheLengthOfAFileTellsWhetherItIsGood) {
    choose("", false);
    choose(std::string(523, 'x'), false);
    EXPECT_FALSE(dialog().importEnabled());
    choosePath(std::nullopt);
    EXPECT_EQ(prompts.lastChoice.filters.at(0).name, "All Files (*.*)");
    EXPECT_EQ(prompts.lastChoice.filters.at(1).name, "Kettleby Files(*.dat)");
    choose(std::string(524, 'x'));
    EXPECT_TRUE(dialog().importEnabled());
    // A last contact cut short behind its name still comes in.
    choose(contact("Whole") + contact("Cut").substr(0, 600));
    import(Vendor);
    EXPECT_EQ(trimmedField(record(3).Name), "Cut");
    choosePath(documents / "gone.dat", false);
    EXPECT_EQ(dialog().chosenFile(), documents / "contacts.dat") << "the good one stays chosen";
}

TEST_F(ContactImportTest, EmptyLinesOfAnAddressStayAndAFileOfNamelessContactsAddsNothing) {
    choose(contact("Bare").replace(316, 130, std::string(130, ' ')));
    import(Vendor);
    EXPECT_EQ(record(2).Address.substr(0, 8), "\r\n\r\n    ");
    choose(contact("") + contact(" "));
    import(Vendor);
    EXPECT_EQ(records(), 2u);
}

TEST_F(ContactImportTest, TooManyContactsAreAnOverflow) {
    choose(std::string(32768 * 1047, ' '));
    prompts.expect(
        notice("The import ended early: Overflow (error 6).\r\n\r\nAddresses added before that: 0.",
               "Import Failed", Icon::Stop));
    dialog().ImportKettlebyVendors_Click();
    EXPECT_EQ(records(), 1u);
}

}  // namespace
}  // namespace bramblet::test
