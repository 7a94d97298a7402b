// The lines of the order: adding, editing and removing them. Typing goes through the line dialog.
#pragma once

#include "core/document/open_order.h"
#include "core/orders/order_lines.h"
#include "core/orders/pasted_lines.h"
#include "core/platform/regional_formats.h"
#include "core/settings/undo.h"
#include "core/stock/stock_list.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bramblet {

class LineItems {
  public:
    LineItems(Commands& commands, Undo& undo, OpenOrder& open, const RegionalFormats& formats);

    /// "Add one-time item": the line is added no matter how the dialog was closed.
    void OrderPop_OneTime_Click();

    /// "Edit this item": edits line `row` (from 0), or removes it if its quantity has become 0;
    /// does nothing for a row that does not exist. The line becomes a special one.
    void OrderPop_DescriptionOverride_Click(int row);
    void OrderGrid_DblClick(int row);

    /// The quantity that picking a stock item once more comes to, and the line that holds the item
    /// so far; 0 when no line carries the item's file number. Throws Fault when the line's quantity
    /// is not a number or the result exceeds 32,767.
    struct Quantity {
        int value = 0;
        std::size_t line = 0;
    };
    Quantity GetQuantity(const std::string& fileNumber) const;

    /// Adds the stock item in a row of the list to the order; an item that is already there moves
    /// to the end with its quantity raised by one.
    void StockGrid_DblClick(const StockList& list, int row);

    /// What the dialog's Del does to a line, without the dialog.
    void removeLine(int row);

    /// Moves a line so many rows down, or up if `by` is negative; it stays the current one.
    void moveLine(int row, int by);

    /// Adds the rows of another program's table as one-time items, once the user has looked at
    /// them.
    void paste(const std::string& clipboard);
    /// Those, while they are looked at.
    PastedLines& pasted() { return *pasted_; }

  private:
    bool hasLine(int row) const;
    OrderLine itemLine(const StockList& list, int row, int quantity) const;
    void store(OrderLine& line, const LineEntry& entry) const;
    void change(const std::function<void(std::vector<OrderLine>& lines)>& change);
    void offerBack(const OpenOrder::State& before, int row);
    void show(int row);
    void showLast();

    Commands& commands_;
    Undo& undo_;
    OpenOrder& open_;
    const RegionalFormats& formats_;
    std::optional<PastedLines> pasted_;
};

}  // namespace bramblet
