// The lines of the order: adding, editing and removing them. Typing goes through the line dialog,
// which the windows supply.
#pragma once

#include "core/document/open_order.h"
#include "core/platform/prompts.h"
#include "core/platform/regional_formats.h"
#include "core/stock/stock_list.h"

#include <functional>
#include <optional>
#include <string>

namespace bramblet {

/// The four boxes of the line dialog.
struct LineEntry {
    std::string quantity;
    std::string unit;
    std::string description;
    std::string unitCost;
};

/// Shows the line dialog under `caption`, with `entry` in its boxes. Returns what was stored, or
/// nothing if the dialog was closed without storing. The dialog checks what it stores with
/// `checkedEntry`.
using LineDialog =
    std::function<std::optional<LineEntry>(const LineEntry& entry, const std::string& caption)>;

/// What the dialog's Save stores from its boxes: texts trimmed, control characters (and, in the
/// description, everything beyond ASCII) replaced by blanks, amounts reduced to digits, "." and
/// ",".
LineEntry storedEntry(const LineEntry& boxes);

/// As `storedEntry`, but throws BoxFault when an amount cannot be read even then.
LineEntry checkedEntry(const LineEntry& boxes, const RegionalFormats& formats);

/// `quantity` × `unitCost` in the format "standard". Throws Fault for text that is not a number.
std::string lineTotal(const std::string& quantity, const std::string& unitCost,
                      const RegionalFormats& formats);

class LineItems {
  public:
    LineItems(OpenOrder& open, const RegionalFormats& formats, Prompts& prompts);

    LineDialog showDialog;

    /// Called when a line has been added or its quantity raised: makes line `row` current and shows
    /// it.
    std::function<void(int row)> showLine = [](int) {};

    /// Called at the end of every change to the lines: totals the order.
    std::function<void()> totalUp = [] {};

    /// "Add one-time item": the line is added no matter how the dialog was closed.
    void OrderPop_OneTime_Click();

    /// "Edit this item": edits line `row` (from 0), or removes it if its quantity has become 0;
    /// does nothing for a row that does not exist. The line becomes a special one.
    void OrderPop_DescriptionOverride_Click(int row);

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

  private:
    bool hasLine(int row) const;
    void store(OrderLine& line, const LineEntry& entry) const;
    void finish();
    void finishAdding();

    OpenOrder& open_;
    const RegionalFormats& formats_;
    Prompts& prompts_;
};

}  // namespace bramblet
