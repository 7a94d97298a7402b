#include "core/addresses/table_import.h"

#include "support/office.h"
#include "support/regions.h"

namespace bramblet::test {
namespace {

class TableImportTest : public Office {
  protected:
    void SetUp() override { start(); }
    TableImport& dialog() { return program().tableImport; }

    /// Opens the dialog with a file of this content.
    void open(const std::string& content) {
        writeFile(documents / "table.csv", content);
        screen.opened.clear();
        prompts.expectChoice("", documents / "table.csv");
        dialog().mu_ImportTable_Click();
    }
    void import(const std::string& told) {
        prompts.expectSaying(told);
        EXPECT_TRUE(dialog().Import_Click());
    }
    static std::string shown(const Table& table) {
        std::string text;
        for (int row = 0; row < table.rowCount(); ++row) {
            for (int column = 0; column < table.columnCount(); ++column)
                text += (column == 0 ? "" : " | ") + table.cell(row, column);
            text += "\n";
        }
        return text;
    }
    /// "V3 Acme: 1 Road/Town" for each record of the address book.
    std::string book() const {
        std::string text;
        const std::string bytes = stored("po_addy.dat");
        for (std::size_t at = 0; at < bytes.size(); at += AddressRow::kSize) {
            const AddressRow row(bytes.data() + at);
            std::string address(row.get<&AddressRecord::Address>());
            std::replace(address.begin(), address.end(), '\r', '/');
            std::erase(address, '\n');
            text += std::string(row.field<&AddressRecord::Kind>()) +
                    std::to_string(static_cast<int>(row.get<&AddressRecord::Tag>())) + " " +
                    std::string(row.get<&AddressRecord::Name>()) + ": " + address + "\n";
        }
        return text;
    }
    std::string catalogue() {
        program().stock.PopStockList();
        return shown(program().stock);
    }
};

TEST(SourceTables, TheSeparatorIsGuessed) {
    const struct {
        const char* text;
        char separator;
    } cases[]{
        {"Name,Street\nAcme,\"1 Road; 2nd\"\n", ','},
        {"Name;Street\nAcme;1 Road, Leeds, UK\nBolt;2 Road, York\n", ';'},
        {"Name\tCost\nSaw, large\t1,5\n", '\t'},
        {"Acme\nBolt\n", ','},
        {"", ','},
    };
    for (const auto& [text, separator] : cases)
        EXPECT_EQ(likelySeparator(text), separator) << text;
}

TEST_F(TableImportTest, ATableOfVendorsIsUnderstoodMarkedAndAdded) {
    saveAddress(Vendor, "Acme", "A Road");
    saveAddress(Destination, "Depot", "D Road");
    open(
        "\xEF\xBB\xBFSupplier,Address 1,Address 2,City,ZIP,Phone\r\n"
        "Zo\xC3\xAB \"Oak\",\"1 Mill Road\nUnit 2\",Rear,Leeds,LS1,0113 1\r\n"
        "ACME,\"2 Road, North\",,,,\r\n"
        ",nameless,,,,\r\n"
        "Depot,3 Road,,,,\r\n"
        "zo\xC3\x8B \"Oak\",,,,,\r\n");
    EXPECT_EQ(screen.opened, std::vector<std::string>{"table import"});
    EXPECT_EQ(dialog().kind(), TableKind::Vendors);
    EXPECT_EQ(shown(dialog().addresses()),
              "Zo\xEB \"Oak\" | 1 Mill Road, Unit 2, Rear, Leeds LS1, Phone 0113 1 | \n"
              "ACME | 2 Road, North | In the book as vendor\n"
              "Depot | 3 Road | In the book as ship-to\n"
              "zo\xCB \"Oak\" |  | twice in this table\n");
    EXPECT_EQ(dialog().summary(),
              "4 rows, 2 in the address book already; 1 without a name, left out");
    EXPECT_EQ(dialog().doubts(), "");
    import("Addresses added: 1\r\nSkipped, since the address book has them: 3");
    const std::string before =
        "V1 Acme: A Road\nT2 Depot: D Road\nV3 Zo\xEB \"Oak\": 1 Mill Road/Unit 2/Rear/Leeds "
        "LS1//Phone 0113 1\n";
    EXPECT_EQ(book(), before);
    EXPECT_EQ(names(Vendor).size(), 2u);

    // What another desk has done while the table was looked at counts.
    open("Supplier,Address\nacme,2 Road\nDepot,3 Road\nNew,4 Road\nnew,5 Road\n");
    dialog().setSkipsKnown(false);
    AddressFile(FileSystem(), data("po_addy.dat")).append(kVendor, "Other", "");
    import("Addresses added: 2\r\nReplaced: 1");
    EXPECT_EQ(book(), std::string(before).replace(before.find("A Road"), 6, "2 Road") +
                          "V4 Other: \nV5 Depot: 3 Road\nV6 New: 5 Road\n");
}

TEST_F(TableImportTest, WhatIsLostIsToldBeforeAnythingIsWritten) {
    const std::string name(61, 'n');
    open("Name;Street\n" + name + ";" + std::string(501, 'a') + "\n\xE9 \x80;x\n");
    EXPECT_EQ(dialog().coding(), TableCoding::Windows1252);
    EXPECT_EQ(dialog().doubts(), "2 texts are too long and are cut: see the remarks.");
    EXPECT_EQ(dialog().addresses().cell(0, 2),
              "Name has 61 of 60 characters; Address has 501 of 500 characters");
    EXPECT_EQ(dialog().addresses().cell(1, 0), "\xE9 \x80");
    dialog().setCoding(TableCoding::Utf8);
    EXPECT_TRUE(contains(dialog().doubts(), "2 characters cannot be stored and become \"?\"."));
    EXPECT_EQ(stored("po_addy.dat"), "");

    dialog().setKind(TableKind::Items);
    dialog().setSeparator(',');
    EXPECT_EQ(dialog().items().rowCount(), 2);
    dialog().choose(0, SourceTable::kNowhere);
    EXPECT_FALSE(dialog().mayImport());
}

TEST_F(TableImportTest, ItemsAreAddedOrTakeWhatTheTableHas) {
    saveItem("Saw", "Ames", "9", "Tools");
    program().stock.StockGrid_Click(0);
    prompts.expectInput("Specify quantity on hand:\r\n\r\nTools\r\nAmes\r\nSaw", "On Hand", "",
                        "12");
    program().stock.ItemsPopOnHand_Click(0);
    typeName(Vendor, "Ames");
    open("Article\tPrice\nSAW\t1.234,50\nNails\t0,125\nGlue\tten\n");
    EXPECT_EQ(dialog().kind(), TableKind::Items);
    EXPECT_EQ(dialog().decimalSign(), ',') << "whatever the region";
    EXPECT_EQ(shown(dialog().items()),
              " | Ames |  | SAW | 1,234.50 | In the catalogue\n"
              " | Ames |  | Nails | 0.125 | \n"
              " | Ames |  | Glue | 0.00 | \"ten\" is no cost\n");
    EXPECT_EQ(dialog().doubts(), "1 cost cannot be read and counts as 0.");
    import("Added 2 new items.\r\nReplaced 0 existing items.\r\nSkipped 1 items");
    EXPECT_TRUE(contains(catalogue(), "Tools | Ames | ea | Saw | 9.00 | 1"));

    open("Article\tPrice\nSAW\t1.234,50\n");
    dialog().setSkipsKnown(false);
    import("Added 0 new items.\r\nReplaced 1 existing items.");
    EXPECT_TRUE(contains(catalogue(), "Tools | Ames | ea | SAW | 1,234.50 | 1")) << catalogue();
    EXPECT_EQ(program().stock.row(0).record().OnHand, Currency{120000});
}

TEST_F(TableImportTest, TheDecimalSignIsThatOfTheAmountsOrOfTheRegion) {
    const struct {
        const char* costs;
        char inGermany;
    } cases[]{{"12.50\n\t3", '.'}, {"1.234\n\t2.000", ','},
              {"1,234.5", '.'},    {"1.234.567", ','},
              {"5", ','},          {"$ 7.5 each\n\t1,5\n\t2.25", '.'}};
    start(deDE());
    for (const auto& [costs, sign] : cases) {
        open("Item\tCost\n\t" + std::string(costs));
        EXPECT_EQ(dialog().decimalSign(), sign) << costs;
    }
}

TEST_F(TableImportTest, FilesThatAreNoTablesAreRefused) {
    const auto refused = [&](const std::string& content, const std::string& why) {
        prompts.expectChoice("", documents / "table.csv");
        prompts.expectSaying(why);
        writeFile(documents / "table.csv", content);
        dialog().mu_ImportTable_Click();
        EXPECT_TRUE(screen.opened.empty());
    };
    refused(" \n,\n", "This table is empty.");
    refused(std::string("PK\0\1", 4), "save the table as CSV first");
    std::string rows;
    for (int row = 0; row < 32'768; ++row)
        rows += "x\n";
    refused(rows, "more than 32,767 rows");
    prompts.expectChoice("", documents / "gone.csv");
    prompts.expectSaying("The table cannot be shown: ");
    dialog().mu_ImportTable_Click();

    open("Name\nAcme\n");
    obstruct(data("po_addy.dat"));
    prompts.expectSaying("The import ended early. Import the table again to have the rest. ");
    EXPECT_FALSE(dialog().Import_Click());
}

}  // namespace
}  // namespace bramblet::test
