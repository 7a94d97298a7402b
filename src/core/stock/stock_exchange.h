// Export of the listed stock items to a ".sid" file, and import of such a file into the catalogue.
#pragma once

#include "core/stock/stock_list.h"

#include <filesystem>
#include <functional>
#include <optional>

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

  private:
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
