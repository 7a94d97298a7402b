// The grid of saved orders with its pop-up menu.
#pragma once

#include "core/orders/order_editor.h"

#include <QWidget>

namespace bramblet {

class GridView;

class SavedOrdersPanel : public QWidget {
  public:
    SavedOrdersPanel(OrderEditor& editor, SavedOrders& orders, const OpenOrder& open,
                     QWidget* parent = nullptr);

    /// The list has changed.
    void refreshList();

    void deleteCurrentOrder();

    GridView* grid() const { return grid_; }

  private:
    void openRow(int row);
    int rowOfShownOrder() const;

    OrderEditor& editor_;
    SavedOrders& orders_;
    const OpenOrder& open_;
    GridView* grid_;
};

}  // namespace bramblet
