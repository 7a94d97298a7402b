// The orders, or their lines, in the form that every spreadsheet reads as it is meant: UTF-8 with a
// mark, texts in quotes with quotes in them doubled and an apostrophe before what looks like a
// formula, numbers without a currency sign or groups, and dates as 2026-03-04. Where the decimal
// point is a comma, the cells are divided by semicolons, as spreadsheets expect there.
#pragma once

#include "core/document/order.h"
#include "core/orders/order_index.h"
#include "core/platform/decimal.h"

#include <string>
#include <string_view>
#include <vector>

namespace bramblet {

/// A table as it is written, cell by cell.
class SpreadsheetText {
  public:
    explicit SpreadsheetText(const RegionalFormats& formats);

    void addText(std::string_view text);
    void addNumber(const Decimal& number);
    /// A number if the text is one in the user's region.
    void addAmount(const std::string& text);
    void endRow();

    const std::string& text() const { return text_; }

  private:
    void add(std::string_view cell);

    const RegionalFormats& formats_;
    const char separator_;
    bool rowBegun_ = false;
    std::string text_;
};

/// One row for each order that is not deleted, under headings.
std::string ordersForSpreadsheet(const OrderRecords& orders, const RegionalFormats& formats);

/// One row for each line of the orders added, under headings.
class LinesForSpreadsheet {
  public:
    explicit LinesForSpreadsheet(const RegionalFormats& formats);

    void add(const OrderRow& order, const std::vector<OrderLine>& lines);
    const std::string& text() const { return text_.text(); }

  private:
    const RegionalFormats& formats_;
    SpreadsheetText text_;
};

}  // namespace bramblet
