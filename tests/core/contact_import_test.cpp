#include "support/office.h"

#include <cstring>
#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;

/// A contact as the other program writes it: 1,047 bytes, unused fields full of dots.
std::string contact(const std::string& organization, const std::string& phone = "",
                    const std::string& fax = "") {
    std::string record(1047, '.');
    const auto put = [&](std::size_t offset, std::size_t width, const std::string& text) {
        record.replace(offset, width, fitted(text, width));
    };
    put(81, 40, organization);
    put(121, 20, phone);
    put(151, 20, fax);
    put(316, 40, "1 Mill Road");
    put(356, 40, "Unit 2");
    put(396, 20, "Leeds");
    put(416, 20, "W. Yorks");
    put(436, 10, "LS1 1AA");
    return record;
}

class ContactImportTest : public Office {
  protected:
    void SetUp() override {
        start();
        program().addresses.Combo_Change(AddressSide::Vendor, "Acme");
        program().addresses.Field_Change(AddressSide::Vendor, "A Road");
        program().addresses.Changed_Click(AddressSide::Vendor);
    }
    ContactImport& dialog() { return program().contactImport; }
    void choose(const std::string& content, bool good = true) {
        writeFile(documents / "contacts.dat", content);
        choosePath(documents / "contacts.dat", good);
    }
    void choosePath(const std::optional<std::filesystem::path>& path, bool good = true) {
        prompts.expectChoice("", path);
        if (!good) prompts.expect(corrupt);
        dialog().Command1_Click();
    }
    void expectFinished() {
        prompts.expect({"Finished!", "Import Complete", Buttons::Ok, Icon::Information});
    }
    std::string book() const { return contentOf(data("po_addy.dat")); }
    /// A field of a record of the address book, numbered from 0.
    std::string field(std::size_t record, std::size_t offset, std::size_t width) const {
        return trimmedField(book().substr(record * 570 + offset, width));
    }
    std::string address(std::size_t record) const { return field(record, 70, 500); }
    double tag(std::size_t record) const {
        double value = 0;
        std::memcpy(&value, book().data() + record * 570 + 2, sizeof value);
        return value;
    }
    const Message corrupt{"This file does not contain Kettleby records, or they are corrupt",
                          "Error", Buttons::Ok, Icon::Stop};
};

TEST_F(ContactImportTest, ContactsBecomeAddressesOfTheKind) {
    choose(contact(" Zo\xEB & Co ", "0113 1", "0113 2") + contact("", "0113 3") +
           contact("No Fax", "0113 4") + contact("No Phone", "", "0113 5"));
    EXPECT_TRUE(dialog().importEnabled());
    expectFinished();
    dialog().ImportKettlebyVendors_Click();
    ASSERT_EQ(book().size(), 4 * 570u);
    EXPECT_EQ(book().substr(570, 2), "1V");
    EXPECT_EQ(field(1, 10, 60), "Zo\xEB & Co");
    const std::string lines = "1 Mill Road\r\nUnit 2\r\nLeeds W. Yorks LS1 1AA";
    EXPECT_EQ(address(1), lines + "\r\n\r\nPhone 0113 1 Fax 0113 2");
    EXPECT_EQ(address(2), lines + "\r\n\r\nPhone 0113 4 Fax");
    EXPECT_EQ(address(3), lines);
    EXPECT_EQ(prompts.lastLine, "Addresses added: 3, skipped without an organization: 1");
    EXPECT_EQ(program().addresses.shown(AddressSide::Vendor).names.size(), 4u);

    expectFinished();
    dialog().ImportAsShipTos_Click();
    EXPECT_EQ(book().size(), 7 * 570u);
    EXPECT_EQ(book().substr(4 * 570, 2), "1T");
    EXPECT_EQ(program().addresses.shown(AddressSide::Destination).names.size(), 3u);
    expectFinished();
    dialog().ImportAsShipTos_Click();
    EXPECT_EQ(book().size(), 10 * 570u) << "no look for duplicates";
}

TEST_F(ContactImportTest, TheNumberIsThatOfTheRecordReadLast) {
    program().addresses.Combo_Change(AddressSide::Vendor, "Bolts");
    program().addresses.Changed_Click(AddressSide::Vendor);
    order().ToCombo = "Acme";
    program().addresses.Combo_Click(AddressSide::Vendor);  // reads record 1 last
    choose(contact("One") + contact("Two"));
    expectFinished();
    dialog().ImportKettlebyVendors_Click();
    EXPECT_EQ(tag(1), 2);
    EXPECT_EQ(tag(2), 1);
    EXPECT_EQ(tag(3), 1);
}

TEST_F(ContactImportTest, WhatIsShownStays) {
    program().addresses.Field_Change(AddressSide::Vendor, "typed by hand");
    order().ShipToCombo = "Depot";
    order().ShipToField = "as in an old order";
    choose(contact("Depot"));
    expectFinished();
    dialog().ImportAsShipTos_Click();
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
    expectFinished();
    dialog().ImportKettlebyVendors_Click();
    EXPECT_EQ(field(2, 10, 60), "Cut");
    choosePath(documents / "gone.dat", false);
    EXPECT_EQ(dialog().chosenFile(), documents / "contacts.dat") << "the good one stays chosen";
}

TEST_F(ContactImportTest, EmptyLinesOfAnAddressStayAndAFileOfNamelessContactsAddsNothing) {
    std::string bare = contact("Bare");
    bare.replace(316, 130, std::string(130, ' '));
    choose(bare);
    expectFinished();
    dialog().ImportKettlebyVendors_Click();
    EXPECT_EQ(book().substr(570 + 70, 8), "\r\n\r\n    ");
    choose(contact("") + contact(" "));
    expectFinished();
    dialog().ImportKettlebyVendors_Click();
    EXPECT_EQ(book().size(), 2 * 570u);
}

TEST_F(ContactImportTest, TooManyContactsAreAnOverflow) {
    choose(std::string(32768 * 1047, ' '));
    prompts.expect(
        {"The import ended early: Overflow (error 6).\r\n\r\nAddresses added before "
         "that: 0.",
         "Import Failed", Buttons::Ok, Icon::Stop});
    dialog().ImportKettlebyVendors_Click();
    EXPECT_EQ(book().size(), 570u);
}

}  // namespace
}  // namespace bramblet
