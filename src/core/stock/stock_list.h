// The list of stock items and the editor beside it: what is shown, what has been picked, and the
// commands that change the catalogue.
#pragma once

#include "core/document/open_order.h"
#include "core/platform/record_list.h"
#include "core/settings/commands.h"
#include "core/settings/settings.h"
#include "core/settings/undo.h"
#include "core/stock/stock_file.h"

#include <optional>
#include <string>
#include <vector>

namespace bramblet {

/// The columns of the list. "On Hand" is shown only when the setting `UseQuantities` is on, so the
/// file number is the sixth or the seventh column.
enum class StockColumn { Category, Vendor, Unit, Description, UnitCost, OnHand, FileNumber };

class StockList : public RecordList<kStockItemLayout> {
  public:
    StockList(FileSystem files, Commands& commands, Undo& undo, const Settings& settings,
              const OpenOrder& open, const RegionalFormats& formats);

    /// Lists the items of the current vendor only, when one is chosen.
    bool VendorItemsCheck = false;
    void VendorItemsCheck_Click(bool checked);

    /// Rereads the catalogue, in file order until the list is sorted by a column. If the catalogue
    /// cannot be read, the previous list stays.
    void PopStockList();

    /// Rereads the catalogue if somebody has changed it since; says nothing when that cannot be
    /// told.
    void lookForNews();

    /// The text of a column, shown or not.
    std::string text(int row, StockColumn column) const;
    std::string key(int row) const override { return text(row, StockColumn::FileNumber); }
    int rowOf(const std::string& fileNumber) const override;
    /// "40 stock items listed", or that they could not be read.
    std::string countText() const { return countOf("stock items"); }

    /// A click on a heading. Amounts and file numbers sort as numbers, everything else as text
    /// regardless of case.
    void sortBy(int column);
    /// Narrows the list to the items that hold all words of a typed text.
    void find(const std::string& typed);
    bool showsOnHand() const;

    /// A click on a row: loads its item into the editor.
    void StockGrid_Click(int row);

    /// The editor's boxes, the entries of its lists, and the number of the item last picked.
    StockItemBoxes boxes;
    struct Entries {
        std::vector<std::string> categories, vendors, units;
    };
    /// Collected from the list when they are asked for.
    const Entries& entries() const;
    const std::string& FileOrderTag() const { return fileOrderTag_; }
    /// Whether what is in the boxes is still called what the item picked is.
    bool editsPicked() const;

    /// The new item becomes the one picked.
    void SaveNewStockItem_Click();
    void SaveChangedStockItem_Click();
    void DeleteStockItem_Click();
    /// Asks for the quantity on hand of the picked item; `row` is the list's current one.
    void ItemsPopOnHand_Click(int row);

    /// The catalogue's file, for exchange with other installations.
    StockFile& file() { return file_; }

  private:
    void refill();
    std::string vendorListed() const;
    int pickedRecord() const;
    std::string pickedInWords() const;
    /// If `record`, found at the number of the picked item, is not that item, says which item it is
    /// and what has been `done` to it.
    void tellIfNotPicked(const StockItemRecord& record, const std::string& done);
    bool bringBack(int recordNumber, const StockItemRecord& item);
    /// Makes one change to the file, then rebuilds the list.
    void change(const std::string& failure, const Commands::Body& change);

    Commands& commands_;
    Undo& undo_;
    const Settings& settings_;
    const OpenOrder& open_;
    StockFile file_;
    mutable std::optional<Entries> entries_;
    std::string fileOrderTag_ = "0";
    StockItemRecord picked_;  ///< as the list held it when it was picked, or as saved since then
};

}  // namespace bramblet
