#include "gui/orders/saved_orders_panel.h"

#include "gui/platform/grid_model.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/literals.h"

#include <QApplication>
#include <QHeaderView>
#include <QMenu>
#include <QVBoxLayout>

namespace bramblet {
namespace {

const std::vector<GridColumn> kColumns{
    {11, false}, {13, true},  {11, false}, {24, true},  {24, true},  {11, false}, {14, false},
    {12, false}, {12, false}, {14, false}, {12, false}, {14, false}, {7, false},
};

/// The colour of a row's first cell: red for open requisitions, the button text's for orders that
/// have been received, the grid's own for open purchase orders.
QColor colourOf(const std::string& status) {
    if (status == "R") return {255, 0, 0};
    if (status == "a" || status == "r") return QApplication::palette().color(QPalette::ButtonText);
    return {};
}

}  // namespace

SavedOrdersPanel::SavedOrdersPanel(OrderEditor& editor, SavedOrders& orders, const OpenOrder& open,
                                   QWidget* parent)
    : QWidget(parent), editor_(editor), orders_(orders), open_(open) {
    const GridSource source{[&orders] { return orders.rowCount(); },
                            [&orders](int row, int column) { return orders.cell(row, column); },
                            [&orders](int row, int column) {
                                return column == kNumberColumn ? colourOf(orders.status(row))
                                                               : QColor();
                            },
                            [&orders](int column) { return orders.widest(column); }};
    model_ = new GridModel({{u"Number"_s},
                            {u"Job"_s},
                            {u"Date"_s},
                            {u"Vendor"_s},
                            {u"Ship To"_s},
                            {u"Ship Date"_s},
                            {u"Order Total"_s, true},
                            {u"Shipping"_s, true},
                            {u"Sales Tax"_s, true},
                            {u"Net"_s, true},
                            {u"Discount"_s, true},
                            {u"Sub Total"_s, true},
                            {u"Status"_s, false, true}},
                           source, this);
    grid_ = new GridView;
    grid_->setObjectName(u"POGrid"_s);
    grid_->setAccessibleName(u"Saved orders"_s);
    grid_->setToolTip(u"Saved orders (click to open, right click for options)."_s);
    grid_->setModel(model_);
    grid_->setColumns(kColumns);
    grid_->setMinimumHeight(fontMetrics().height() * 5);
    grid_->horizontalHeader()->setSortIndicatorShown(true);

    menu_ = new QMenu(this);
    menu_->setObjectName(u"POPop"_s);
    auto* remove =
        menu_->addAction(u"&Delete Order"_s, this, &SavedOrdersPanel::deleteCurrentOrder);
    remove->setObjectName(u"POPop_delete"_s);

    connect(grid_, &GridView::rowClicked, this, &SavedOrdersPanel::openRow);
    connect(grid_, &GridView::rowEntered, this, &SavedOrdersPanel::openRow);
    connect(grid_, &GridView::deletePressed, this, &SavedOrdersPanel::deleteCurrentOrder);
    connect(grid_, &GridView::headingClicked, this, &SavedOrdersPanel::sortBy);
    connect(grid_, &GridView::menuRequested, this, [this, remove](const QPoint& place) {
        remove->setEnabled(grid_->currentRow() >= 0);
        menu_->popup(place);
    });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(grid_);
}

void SavedOrdersPanel::refreshList() {
    model_->refresh();
    grid_->horizontalHeader()->setSortIndicator(orders_.sortColumn(), orders_.sortedDescending()
                                                                          ? Qt::DescendingOrder
                                                                          : Qt::AscendingOrder);
    const int row = rowOfShownOrder();
    if (row >= 0) grid_->showRow(row);
}

int SavedOrdersPanel::rowOfShownOrder() const {
    return open_.storedNumber.empty() ? -1 : orders_.rowOf(open_.storedNumber);
}

void SavedOrdersPanel::deleteCurrentOrder() {
    const int row = grid_->currentRow();
    if (row >= 0) editor_.POPop_delete_Click(orders_.number(row));
}

void SavedOrdersPanel::sortBy(int column) {
    orders_.sortByHeading(column);
}

void SavedOrdersPanel::openRow(int row) {
    editor_.POGrid_Click(orders_.number(row));
    highlightShownOrder();
}

/// The order in the clicked row may not have been opened.
void SavedOrdersPanel::highlightShownOrder() {
    const int current = grid_->currentRow();
    if (current >= 0 && orders_.number(current) == open_.storedNumber) return;
    const int row = rowOfShownOrder();
    row >= 0 ? grid_->showRow(row) : grid_->clearCurrentRow();
}

}  // namespace bramblet
