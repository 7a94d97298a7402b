#include "core/stock/item_preview.h"

#include "core/platform/amount_text.h"

#include <array>

namespace bramblet {
namespace {

using PreviewColumn = Column<PreviewedItem>;

template <std::string StockItemRecord::*Field>
constexpr PreviewColumn text(ColumnLook look) {
    PreviewColumn column{look};
    column.text = [](const PreviewedItem& row, const RegionalFormats&) {
        return row.item.record.*Field;
    };
    return column;
}

constexpr std::array kColumns{
    text<&StockItemRecord::Category>({"Category", 12, true}),
    text<&StockItemRecord::Vendor>({"Vendor", 16, true}),
    text<&StockItemRecord::Unit>({"Unit", 8}),
    text<&StockItemRecord::Description>({"Description", 28, true}),
    [] {
        PreviewColumn column{{"Unit Cost", 12, false, Align::Right}};
        column.amount = [](const PreviewedItem& row) { return row.item.record.UnitCost; };
        column.amountText = [](Currency cost, const RegionalFormats& formats) {
            return exactText(cost, formats);
        };
        return column;
    }(),
    [] {
        PreviewColumn column{{"Remark", 24, true}};
        column.text = [](const PreviewedItem& row, const RegionalFormats&) { return row.remark; };
        return column;
    }(),
};

}  // namespace

ItemPreview::ItemPreview(const RegionalFormats& formats) : Preview(formats, kColumns) {}

}  // namespace bramblet
