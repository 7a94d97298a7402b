// The list of saved orders: the index records that pass the filters.
#pragma once

#include "core/orders/order_index.h"
#include "core/platform/record_list.h"
#include "core/settings/commands.h"

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace bramblet {

/// The places of the columns, in the grid and in `kOrderColumnTable`.
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
extern const std::array<Column<OrderRow>, kSavedOrderColumns> kOrderColumnTable;

/// Whether the index held an order number when it was last read.
enum class NumberUse { Free, Taken, TakenByDeleted };

class SavedOrders : public RecordList<kOrderIndexLayout> {
  public:
    SavedOrders(Commands& commands, const OrderIndex& index, const RegionalFormats& formats);

    /// The three filters. Received orders of both kinds are governed by `ListCheckRecd` alone.
    bool ListCheckPO = true;
    bool ListCheckRE = true;
    bool ListCheckRecd = true;

    /// Rereads the index; the highest order number comes first until the list is sorted by another
    /// column. If the index cannot be read, the previous list stays.
    void PopPOGrid();
    /// The same with records that have just been read.
    void take(OrderRecords records);

    /// Rereads the index if somebody has changed it since; says nothing when that cannot be told.
    void lookForNews();

    /// Switches to this list, and rereads it.
    void ViewExisting_Click();
    /// A click on one of the filter boxes: rebuilds the list.
    void ListCheck_Click(bool SavedOrders::*filter, bool checked);
    /// A click on a heading. Order numbers sort as numbers, everything else as text regardless of
    /// case.
    void sortBy(int column);
    /// Narrows the list to the orders that hold all words of a typed text.
    void find(const std::string& typed);
    /// Narrows it, besides, to those orders that `only` accepts, under a name for them.
    void showOnly(const std::string& name, std::function<bool(const OrderRow&)> only);
    /// Gives that up.
    void showAll();
    std::string shownOnly() const override { return shownOnly_; }

    std::string number(int row) const { return cell(row, kNumberColumn); }
    Mark mark(int row) const override;
    std::string markText(int row) const override;
    std::string key(int row) const override { return number(row); }
    int rowOf(const std::string& orderNumber) const override;

    /// Covers all orders: those that the filters leave out have numbers too.
    NumberUse useOf(const std::string& orderNumber) const;

    /// The index as it was last read; nothing when that failed.
    const OrderRecords* records() const { return read_ ? &records_ : nullptr; }

    /// The index file just before it was last read; nothing when that could not be told.
    const std::optional<os::FileStatus>& seen() const { return seen_; }

    /// What the listed orders come to, and the sums of all amounts, each with its heading.
    std::string totalText() const { return sumText(kOrderTotalColumn); }
    std::string sumsText() const;

    /// "12 orders listed", or that they could not be read: the tool tip of the label under the
    /// list.
    std::string countText() const { return countOf("orders"); }

  private:
    bool isListed(const OrderRow& record) const;
    void refill();

    Commands& commands_;
    const OrderIndex& index_;
    std::string shownOnly_;
};

}  // namespace bramblet
