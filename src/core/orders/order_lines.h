// What the cells of an order's line hold, from the boxes of the line dialog to the grid.
#pragma once

#include "core/document/order.h"
#include "core/platform/list_table.h"
#include "core/platform/regional_formats.h"
#include "core/platform/screen.h"

#include <string>
#include <vector>

namespace bramblet {

/// A text made fit for a cell of a line: a tab or a line break would end the cell or the line when
/// the order's document is read back.
std::string textCell(const std::string& text);

/// What the dialog's Save stores from its boxes: texts trimmed, control characters (and, in the
/// description, everything beyond ASCII) replaced by blanks, amounts reduced to digits, "." and
/// ",".
LineEntry storedEntry(const LineEntry& boxes);
/// The same of a description alone.
std::string storedDescription(const std::string& description);

/// As `storedEntry`, but throws BoxFault when an amount cannot be read even then, or a unit cost is
/// a division that has no `quotientIn`.
LineEntry checkedEntry(const LineEntry& boxes, const RegionalFormats& formats);

/// A one-time item, whose total is still empty.
OrderLine specialLine(const LineEntry& entry);

/// `quantity` × `unitCost` in the format "standard". Throws Fault for text that is not a number.
std::string lineTotal(const std::string& quantity, const std::string& unitCost,
                      const RegionalFormats& formats);

/// The unit cost, with as few decimals (two to eight) as it takes, at which `quantity` costs
/// `total`. Empty when one of them is not a number, or the quantity is 0.
std::string unitCostFor(const std::string& total, const std::string& quantity,
                        const RegionalFormats& formats);

/// What a unit cost typed as a division comes to, "24.6717" for "567.45 / 23"; empty for any other
/// text.
std::string quotientIn(const std::string& unitCost, const RegionalFormats& formats);

/// The lines as their grid shows them. Numbers are never cut short.
class LineTable : public ListTable<OrderLine> {
  public:
    explicit LineTable(const RegionalFormats& formats);
    /// Takes over the lines; false when it already holds these.
    bool take(const std::vector<OrderLine>& lines);
    std::string widest(int column) const override;
};

}  // namespace bramblet
