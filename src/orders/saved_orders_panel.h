// The list of saved orders: its grid, the filters, and the label under it.
#pragma once

#include "orders/order_editor.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QMenu;

namespace bramblet {

class GridView;
class SavedOrdersModel;

class SavedOrdersPanel : public QWidget {
    Q_OBJECT
  public:
    SavedOrdersPanel(OrderEditor& editor, SavedOrders& orders, const OpenOrder& open,
                     QWidget* parent = nullptr);

    /// The list has changed.
    void refreshList();

    void deleteCurrentOrder();
    void sortBy(int column);

    GridView* grid() const { return grid_; }

  private:
    QCheckBox* filterBox(const char* name, const QString& caption, const QString& tip,
                         bool SavedOrders::*filter);
    void openRow(int row);

    OrderEditor& editor_;
    SavedOrders& orders_;
    const OpenOrder& open_;
    SavedOrdersModel* model_;
    GridView* grid_;
    QMenu* menu_;
    QLabel* label_;
    QLabel* count_;
};

}  // namespace bramblet
