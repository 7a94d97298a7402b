// The list of saved orders: the index records that pass the filters, in the order in which they are
// shown. Cells are turned into text when asked for.
#pragma once

#include "core/orders/order_index.h"
#include "core/platform/prompts.h"
#include "core/settings/data_folder.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace bramblet {

/// The columns of the grid.
enum SavedOrderColumn : int {
    kNumberColumn,
    kJobColumn,
    kDateColumn,
    kVendorColumn,
    kShipToColumn,
    kShipDateColumn,
    kOrderTotalColumn,
    kShippingColumn,
    kSalesTaxColumn,
    kNetColumn,
    kDiscountColumn,
    kSubTotalColumn,
    kStatusColumn,
    kSavedOrderColumns
};

/// Whether the index held an order number when it was last read.
enum class NumberUse { Free, Taken, TakenByDeleted };

class SavedOrders {
  public:
    SavedOrders(const OrderIndex& index, const DataFolder& folder, const RegionalFormats& formats,
                Prompts& prompts);

    /// The three filters. Received orders of both kinds are governed by `ListCheckRecd` alone.
    bool ListCheckPO = true;
    bool ListCheckRE = true;
    bool ListCheckRecd = true;

    /// Called after the list or its order has changed.
    std::function<void()> onChange = [] {};

    /// Rereads the index; the highest order number comes first. If it cannot be read, the previous
    /// list stays.
    void PopPOGrid();

    /// The switch to this list: rereads it; false when the data folder cannot be used.
    bool ViewExisting_Click();

    /// A click on one of the filter boxes: rebuilds the list.
    void ListCheck_Click(bool SavedOrders::*filter, bool checked);

    /// A click on a heading: sorts by that column, first ascending, then alternating. Order numbers
    /// sort as numbers, everything else as text regardless of case.
    void sortByHeading(int column);

    int rowCount() const { return static_cast<int>(rows_.size()); }
    std::string cell(int row, int column) const;
    /// The widest text of a column of amounts; empty for the other columns.
    std::string widest(int column) const;
    std::string number(int row) const { return cell(row, kNumberColumn); }
    /// The status letter of a row: "A", "R", "a" or "r".
    std::string status(int row) const { return cell(row, kStatusColumn); }
    /// The row of an order number; -1 when it is not listed.
    int rowOf(const std::string& orderNumber) const;

    /// Covers all orders: those that the filters leave out have numbers too.
    NumberUse useOf(const std::string& orderNumber) const;

    int sortColumn() const { return sortColumn_; }
    bool sortedDescending() const { return descending_; }

    /// "12 orders listed", or that they could not be read: the tool tip of the label under the
    /// list.
    std::string countText() const;

  private:
    bool isListed(const OrderIndexRecord& record) const;
    void collectNumbers();
    std::string cellOf(const OrderIndexRecord& record, int column) const;
    void sort();

    const OrderIndex& index_;
    const DataFolder& folder_;
    const RegionalFormats& formats_;
    Prompts& prompts_;
    struct KnownNumber {
        std::string number;
        NumberUse use;
    };
    std::vector<KnownNumber> numbers_;  ///< of all records
    std::vector<OrderIndexRecord> rows_;
    bool read_ = false;  ///< whether the rows come from the last reading
    int sortColumn_ = kNumberColumn;
    bool descending_ = true;
};

}  // namespace bramblet
