// Import of vendors, ship-to destinations or stock items from a table that another program has
// written as text: CSV, or with semicolons or tabs between its cells.
#pragma once

#include "core/addresses/address_book.h"
#include "core/platform/source_table.h"
#include "core/stock/stock_exchange.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace bramblet {

/// What the rows of the table are.
enum class TableKind { Vendors, Destinations, Items };
/// How its letters are written.
enum class TableCoding { Utf8, Windows1252 };

class TableImport {
  public:
    TableImport(const FileSystem& files, Commands& commands, const OpenOrder& open,
                AddressBook& addresses, StockExchange& stock, const RegionalFormats& formats);

    /// Asks for the file, and opens the dialog for a usable one.
    void mu_ImportTable_Click();

    const std::filesystem::path& file() const { return file_; }

    /// What the user says of the table. It is guessed at first.
    TableKind kind() const { return kind_; }
    void setKind(TableKind kind);
    TableCoding coding() const { return coding_; }
    void setCoding(TableCoding coding);
    char separator() const { return separator_; }
    void setSeparator(char separator);
    /// Of unit costs: "." or ",".
    char decimalSign() const { return decimalSign_; }
    void setDecimalSign(char sign);
    const SourceTable& table() const { return table_; }
    void choose(std::size_t taken, int source);
    void setHeaded(bool headed);

    /// Whether what is there already stays as it is. Otherwise its address, or what the table has
    /// of an item, is replaced.
    bool skipsKnown() const { return skipsKnown_; }
    void setSkipsKnown(bool skips) { skipsKnown_ = skips; }

    /// The rows as they would be imported, each with a remark where there is one to make; one of
    /// the two lists is empty.
    const AddressPreview& addresses() const { return addressRows_; }
    const ItemPreview& items() const { return itemRows_; }
    /// "12 rows, 3 in the address book already; 1 without a name is left out".
    std::string summary() const;
    /// What will be lost: texts that are too long, amounts and letters that cannot be stored. Empty
    /// when nothing will.
    std::string doubts() const;
    bool mayImport() const { return rowCount() > 0; }

    /// False when the import has failed, of which the user has been told.
    bool Import_Click();

  private:
    bool isItems() const { return kind_ == TableKind::Items; }
    int rowCount() const { return addressRows_.rowCount() + itemRows_.rowCount(); }
    void read();
    void split();
    void guessSources();
    void guessDecimalSign();
    void rebuild();
    PreviewedAddress addressOf(std::size_t row);
    PreviewedItem itemOf(std::size_t row);
    std::string text(std::size_t row, std::size_t taken) const;
    void fit(const char* field, std::string& text, std::size_t most, std::string& remark);
    std::string importAddresses();
    std::string importItems();

    FileSystem files_;  ///< for the file that the user chooses, which is not waited for
    Commands& commands_;
    const OpenOrder& open_;
    AddressBook& addresses_;
    StockExchange& stock_;
    const RegionalFormats& formats_;

    std::filesystem::path file_;
    std::string bytes_;  ///< of the file
    std::string text_;   ///< the same in the code page
    TableKind kind_ = TableKind::Vendors;
    TableCoding coding_ = TableCoding::Utf8;
    char separator_ = ',';
    char decimalSign_ = '.';
    bool skipsKnown_ = true;
    SourceTable table_;
    KnownNames knownNames_;
    KnownItems knownItems_;
    AddressPreview addressRows_;
    ItemPreview itemRows_;

    std::size_t lost_ = 0;     ///< letters that the code page lacks
    std::size_t left_ = 0;     ///< rows without a name or a description
    std::size_t known_ = 0;    ///< rows of what is there already
    std::size_t tooLong_ = 0;  ///< texts
    std::size_t unread_ = 0;   ///< amounts
};

}  // namespace bramblet
