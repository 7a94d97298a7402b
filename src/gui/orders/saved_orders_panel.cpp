#include "gui/orders/saved_orders_panel.h"

#include "gui/platform/boxes.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/qt_text.h"

#include <QHeaderView>
#include <QMenu>

namespace bramblet {

SavedOrdersPanel::SavedOrdersPanel(OrderEditor& editor, SavedOrders& orders, Spending& spending,
                                   const OpenOrder& open, QWidget* parent)
    : QWidget(parent), editor_(editor), orders_(orders), open_(open) {
    grid_ = new GridView("POGrid", u"Saved orders"_s,
                         u"Saved orders (click to open, right click for options)."_s, orders, 5);
    grid_->horizontalHeader()->setSectionsMovable(true);
    auto* menu = new QMenu(this);
    menu->setObjectName(u"POPop"_s);
    auto* remove =
        addEntry(menu, "POPop_delete", u"&Delete Order"_s, {}, [this] { deleteCurrentOrder(); });

    addEntry(menu, "POPop_Spending", u"&Spending ..."_s, {},
             [&spending] { spending.mu_Spending_Click(); });
    connect(grid_, &GridView::rowClicked, this, &SavedOrdersPanel::openRow);
    connect(grid_, &GridView::rowEntered, this, &SavedOrdersPanel::openRow);
    connect(grid_, &GridView::deletePressed, this, &SavedOrdersPanel::deleteCurrentOrder);
    connect(grid_, &GridView::headingClicked, this, [this](int column) { orders_.sortBy(column); });
    connect(grid_, &GridView::menuRequested, this, [this, menu, remove](const QPoint& place) {
        remove->setEnabled(grid_->currentRow() >= 0);
        menu->popup(place);
    });
    fill(this, row(0, {grid_}));
}

void SavedOrdersPanel::refreshList() {
    grid_->refresh();
    if (open_.storedNumber() != shownOrder_) showOpenOrder();
}

/// Its row becomes current.
void SavedOrdersPanel::showOpenOrder() {
    shownOrder_ = open_.storedNumber();
    grid_->showKey(shownOrder_);
}

void SavedOrdersPanel::deleteCurrentOrder() {
    const int row = grid_->currentRow();
    if (row >= 0) editor_.POPop_delete_Click(orders_.number(row));
}

void SavedOrdersPanel::openRow(int clicked) {
    editor_.POGrid_Click(orders_.number(clicked));
    showOpenOrder();  // the order in the clicked row may not have been opened
}

}  // namespace bramblet
