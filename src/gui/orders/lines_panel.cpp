#include "gui/orders/lines_panel.h"

#include "gui/orders/line_dialog.h"
#include "gui/platform/grid_model.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/literals.h"

#include <QMenu>
#include <QVBoxLayout>

namespace bramblet {
namespace {

/// The widths of the grid's headings in characters. The file number travels with its line out of
/// sight, as do the two cells behind the quantity.
const std::vector<GridColumn> kColumns{
    {8, false}, {}, {}, {11, false}, {36, true}, {12, false}, {13, false}, {},
};

}  // namespace

LinesPanel::LinesPanel(LineItems& lines, const OpenOrder& open, const StockList& stock,
                       const RegionalFormats& formats, Prompts& prompts, QWidget* parent)
    : QWidget(parent), lines_(lines), open_(open) {
    const GridSource source{
        [this] { return static_cast<int>(shown_.size()); },
        [this](int row, int column) {
            return shown_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
        },
        nullptr, [this](int column) { return widestAmount(static_cast<std::size_t>(column)); }};
    model_ = new GridModel({{u"Quant"_s, true},
                            {},
                            {},
                            {u"Unit"_s},
                            {u"Description"_s},
                            {u"Unit Cost"_s, true},
                            {u"Total"_s, true},
                            {u"File Number"_s}},
                           source, this);
    grid_ = new GridView;
    grid_->setObjectName(u"OrderGrid"_s);
    grid_->setAccessibleName(u"Lines of the order"_s);
    grid_->setToolTip(u"Items being ordered (right click for options)."_s);
    grid_->setModel(model_);
    grid_->setColumns(kColumns);
    grid_->setMinimumHeight(fontMetrics().height() * 6);

    menu_ = new QMenu(this);
    menu_->setObjectName(u"OrderPop"_s);
    auto* oneTime = menu_->addAction(u"&Add one-time item"_s, this, &LinesPanel::addOneTimeItem);
    oneTime->setObjectName(u"OrderPop_OneTime"_s);
    auto* edit = menu_->addAction(u"&Edit this item"_s, this, &LinesPanel::editCurrentLine);
    edit->setObjectName(u"OrderPop_DescriptionOverride"_s);

    connect(grid_, &GridView::menuRequested, this, [this, edit](const QPoint& place) {
        edit->setEnabled(grid_->currentRow() >= 0);
        menu_->popup(place);
    });
    connect(grid_, &GridView::rowDoubleClicked, this, [this] {
        if (dataAvailable()) editCurrentLine();
    });
    connect(grid_, &GridView::rowEntered, this, &LinesPanel::editCurrentLine);
    connect(grid_, &GridView::insertPressed, this, &LinesPanel::addOneTimeItem);
    connect(grid_, &GridView::deletePressed, this, &LinesPanel::deleteCurrentLine);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(grid_);
    lines_.showDialog = lineDialog(stock, formats, prompts);
    lines_.showLine = [this](int row) {
        grid_->showRow(row);
        grid_->scrollTo(model_->index(row, kDescription));
    };
}

std::string LinesPanel::widestAmount(std::size_t column) const {
    std::string widest;
    if (column != kQuantity && column != kUnitCost && column != kLineTotal) return widest;
    for (const OrderLine& line : shown_) {
        if (line[column].size() > widest.size()) widest = line[column];
    }
    return widest;
}

void LinesPanel::refresh() {
    if (shown_ == open_.order.lines) return;
    const int row = grid_->currentRow();
    shown_ = open_.order.lines;
    model_->refresh();
    const int last = model_->rowCount() - 1;
    if (row >= 0 && last >= 0) grid_->showRow(qMin(row, last));
}

void LinesPanel::addOneTimeItem() {
    lines_.OrderPop_OneTime_Click();
}

void LinesPanel::editCurrentLine() {
    lines_.OrderPop_DescriptionOverride_Click(grid_->currentRow());
}

void LinesPanel::deleteCurrentLine() {
    lines_.removeLine(grid_->currentRow());
}

LineDialog LinesPanel::lineDialog(const StockList& stock, const RegionalFormats& formats,
                                  Prompts& prompts) {
    return [=, this, &stock, &formats, &prompts](const LineEntry& entry,
                                                 const std::string& caption) {
        EditLineDialog dialog(entry, caption, stock.entries().units, formats, prompts, window());
        dialog.exec();
        return dialog.stored();
    };
}

}  // namespace bramblet
