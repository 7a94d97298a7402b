#include "core/orders/spreadsheet.h"

#include "core/orders/saved_orders.h"
#include "core/platform/amount_text.h"
#include "core/platform/dates.h"
#include "core/platform/text.h"
#include "core/platform/utf8.h"

#include <array>

namespace bramblet {
namespace {

using Record = OrderIndexRecord;

/// What each row of a line tells of its order.
constexpr std::array kOfTheOrder{kNumberColumn, kJobColumn, kDateColumn, kVendorColumn,
                                 kShipToColumn};

struct LineColumn {
    const char* heading;
    OrderColumn cell;
    bool amount;
};
constexpr std::array kLineColumns{
    LineColumn{"Quantity", kQuantity, true},        LineColumn{"Unit", kUnit, false},
    LineColumn{"Description", kDescription, false}, LineColumn{"Unit Cost", kUnitCost, true},
    LineColumn{"Line Total", kLineTotal, true},     LineColumn{"File Number", kFileNumber, false},
};

const Column<OrderRow>& facts(int column) {
    return kOrderColumnTable[static_cast<std::size_t>(column)];
}

void addCell(SpreadsheetText& text, const Column<OrderRow>& column, const OrderRow& order,
             const RegionalFormats& formats) {
    if (column.amount != nullptr) return text.addNumber(column.amount(order));
    if (column.day == nullptr) return text.addText(column.text(order, formats));
    const double day = column.day(order);
    text.addText(day == 0 ? "" : isoDateText(day));
}

void addStatusHeadings(SpreadsheetText& text) {
    text.addText("Kind");
    text.addText("Received");
}

void addStatus(SpreadsheetText& text, const OrderRow& order) {
    const std::string_view status = order.field<&Record::Status>();
    text.addText(status == "R" || status == "r" ? "Requisition" : "Purchase Order");
    text.addText(status == "r" || status == "a" ? "yes" : "no");
}

}  // namespace

SpreadsheetText::SpreadsheetText(const RegionalFormats& formats)
    : formats_(formats),
      separator_(formats.decimalSeparator == "," ? ';' : ','),
      text_(kUtf8Mark) {}

void SpreadsheetText::addText(std::string_view text) {
    constexpr std::string_view kFormulaStarts = "=+-@";
    std::string cell = "\"";
    // A spreadsheet would calculate it, or show an error in its place.
    if (!text.empty() && kFormulaStarts.find(text.front()) != std::string_view::npos) cell += '\'';
    for (const char c : withoutControls(text)) {
        if (c == '"') cell += '"';
        cell += c;
    }
    add(cell + '"');
}

void SpreadsheetText::addNumber(const Decimal& number) {
    add(generalText(number, formats_));
}

void SpreadsheetText::addAmount(const std::string& text) {
    try {
        addNumber(numberOf(trimmed(text), formats_));
    } catch (const Fault&) {
        addText(text);
    }
}

void SpreadsheetText::endRow() {
    text_ += "\r\n";
    rowBegun_ = false;
}

void SpreadsheetText::add(std::string_view cell) {
    if (rowBegun_) text_ += separator_;
    rowBegun_ = true;
    text_ += utf8Of(toUnicode(cell));
}

std::string ordersForSpreadsheet(const OrderRecords& orders, const RegionalFormats& formats) {
    SpreadsheetText text(formats);
    for (const auto& column : kOrderColumnTable) {
        if (column.exported != nullptr) text.addText(column.exported);
    }
    addStatusHeadings(text);
    text.endRow();
    for (const OrderRow order : orders) {
        if (order.get<&Record::Status>() == kDeletedOrder) continue;
        for (const auto& column : kOrderColumnTable) {
            if (column.exported != nullptr) addCell(text, column, order, formats);
        }
        addStatus(text, order);
        text.endRow();
    }
    return text.text();
}

LinesForSpreadsheet::LinesForSpreadsheet(const RegionalFormats& formats)
    : formats_(formats), text_(formats) {
    for (const int column : kOfTheOrder)
        text_.addText(facts(column).exported);
    addStatusHeadings(text_);
    text_.addText("Line");
    for (const LineColumn& column : kLineColumns)
        text_.addText(column.heading);
    text_.endRow();
}

void LinesForSpreadsheet::add(const OrderRow& order, const std::vector<OrderLine>& lines) {
    for (std::size_t place = 0; place < lines.size(); ++place) {
        for (const int column : kOfTheOrder)
            addCell(text_, facts(column), order, formats_);
        addStatus(text_, order);
        text_.addNumber(static_cast<double>(place + 1));
        for (const auto& [heading, cell, amount] : kLineColumns)
            amount ? text_.addAmount(lines[place][cell]) : text_.addText(lines[place][cell]);
        text_.endRow();
    }
}

}  // namespace bramblet
