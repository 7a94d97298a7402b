// The list of stock items and the editor beside it: what is shown, what has been picked, and the
// commands that change the catalogue.
#pragma once

#include "core/document/open_order.h"
#include "core/platform/prompts.h"
#include "core/settings/data_folder.h"
#include "core/settings/settings.h"
#include "core/stock/stock_file.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bramblet {

/// The columns of the list. "On Hand" is shown only when the setting `UseQuantities` is on, so the
/// file number is the sixth or the seventh column.
enum class StockColumn { Category, Vendor, Unit, Description, UnitCost, OnHand, FileNumber };

class StockList {
  public:
    StockList(FileSystem files, const DataFolder& folder, const Settings& settings,
              const OpenOrder& open, const RegionalFormats& formats, Prompts& prompts);

    /// Called after the rows or their order have changed.
    std::function<void()> onListChange = [] {};
    /// Called after another item has been loaded into the editor.
    std::function<void()> onPick = [] {};

    /// Lists the items of the current vendor only, when one is chosen.
    bool VendorItemsCheck = false;
    void VendorItemsCheck_Click(bool checked);

    /// Rereads the catalogue, in file order, and collects the entries of the editor's lists. If it
    /// cannot be read, the previous list stays.
    void PopStockList();

    /// The columns shown now.
    const std::vector<StockColumn>& columns() const { return columns_; }
    int rowCount() const { return static_cast<int>(rows_.size()); }
    std::string cell(int row, StockColumn column) const;
    /// The widest text of a column of amounts; empty for the other columns.
    std::string widest(StockColumn column) const;
    const StockItemRecord& item(int row) const { return rows_[static_cast<std::size_t>(row)]; }
    /// The row of an item's number; -1 when it is not listed.
    int rowOf(const std::string& fileNumber) const;
    /// "40 stock items listed", or that they could not be read.
    std::string countText() const;

    /// A click on a heading: sorts by that column, first ascending, then alternating. Amounts and
    /// file numbers sort as numbers, everything else as text regardless of case.
    void sortByHeading(StockColumn column);
    /// The column that the list is sorted by; nothing when it is in file order.
    std::optional<StockColumn> sortColumn() const { return sortColumn_; }
    bool sortedDescending() const { return descending_; }

    /// A click on a row: loads its item into the editor.
    void StockGrid_Click(int row);

    /// The editor's boxes, the entries of its lists, and the number of the item last picked.
    StockItemBoxes boxes;
    struct Entries {
        std::vector<std::string> categories, vendors, units;
    };
    const Entries& entries() const { return entries_; }
    const std::string& FileOrderTag() const { return fileOrderTag_; }

    void SaveNewStockItem_Click();
    void SaveChangedStockItem_Click();
    void DeleteStockItem_Click();
    /// Asks for the quantity on hand of the picked item; `row` is the list's current one.
    void ItemsPopOnHand_Click(int row);

    /// The catalogue's file, for exchange with other installations.
    StockFile& file() { return file_; }

  private:
    std::vector<StockItemRecord> records();
    void list(const std::vector<StockItemRecord>& records);
    double numberIn(const StockItemRecord& record, StockColumn column) const;
    std::string textIn(const StockItemRecord& record, StockColumn column) const;
    int pickedRecord() const;
    std::string pickedInWords() const;
    /// If `record`, found at the number of the picked item, is not that item, says which item it is
    /// and what has been `done` to it.
    void tellIfNotPicked(const StockItemRecord& record, const std::string& done);
    /// Runs one change to the file after checking the data folder, then rebuilds the list.
    template <class Change>
    void change(const std::string& failure, Change change);

    const DataFolder& folder_;
    const Settings& settings_;
    const OpenOrder& open_;
    const RegionalFormats& formats_;
    Prompts& prompts_;
    StockFile file_;
    std::vector<StockColumn> columns_;
    std::vector<StockItemRecord> rows_;
    bool read_ = false;  ///< whether the rows come from the last reading
    Entries entries_;
    std::string fileOrderTag_ = "0";
    StockItemRecord picked_;  ///< as the list held it when it was picked, or as saved since then
    std::optional<StockColumn> sortColumn_;
    bool descending_ = false;
};

}  // namespace bramblet
