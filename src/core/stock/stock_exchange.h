// Export of the listed stock items to a ".sid" file, and import of such a file into the catalogue.
#pragma once

#include "core/stock/item_preview.h"
#include "core/stock/stock_list.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bramblet {

class StockExchange {
  public:
    StockExchange(FileSystem files, Commands& commands, const OpenOrder& open, StockList& list);

    /// Writes the items now listed, in the list's order, to a file that the user chooses.
    void mu_ExportStockItems_Click();

    /// Merges a file that the user chooses into the catalogue: an item with the same description
    /// and vendor (ignoring case) is replaced, any other is added.
    void mu_ImportStockItems_Click();
    /// The same with a file that the user has opened from outside the program.
    void offerImport(const std::filesystem::path& path);

    /// The live items of the catalogue as it is now. Throws FileError.
    KnownItems knownItems() const;
    /// Merges the items of a table into the catalogue, in the same way; of an item that is there
    /// already, what the table does not have stays, and all of it unless `replaces`. Says what has
    /// come in. Throws Fault.
    std::string importTable(const std::vector<TableItem>& items, bool replaces);

  private:
    template <class Merge, class Take>
    void takeAll(Merge& merge, std::size_t count, Take take);
    std::string suggestedName() const;
    bool isCatalogue(const std::filesystem::path& path) const;
    void exportTo(const std::filesystem::path& path);
    using Choose = std::function<std::optional<std::filesystem::path>()>;
    void import(const Choose& choose);
    void importFrom(const std::filesystem::path& path);

    FileSystem files_;
    Commands& commands_;
    const OpenOrder& open_;
    StockList& list_;
};

}  // namespace bramblet
