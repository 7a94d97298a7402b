// The grid of saved orders with its pop-up menu.
#pragma once

#include "core/orders/order_editor.h"
#include "core/orders/spending.h"

#include <QWidget>

#include <string>

namespace bramblet {

class GridView;

class SavedOrdersPanel : public QWidget {
  public:
    SavedOrdersPanel(OrderEditor& editor, SavedOrders& orders, Spending& spending,
                     const OpenOrder& open, QWidget* parent = nullptr);

    /// The list has changed.
    void refreshList();

    void deleteCurrentOrder();

    GridView* grid() const { return grid_; }

  private:
    void openRow(int row);
    void showOpenOrder();

    OrderEditor& editor_;
    SavedOrders& orders_;
    const OpenOrder& open_;
    GridView* grid_;
    std::string shownOrder_;  ///< the number of the order whose row was last made current
};

}  // namespace bramblet
