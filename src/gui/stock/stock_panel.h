// The list of stock items with its pop-up menu, and the editor beside it.
#pragma once

#include "core/orders/line_items.h"
#include "core/stock/stock_list.h"

#include <QWidget>

class QAction;

class QLabel;
class QLineEdit;
class QMenu;
class QToolButton;

namespace bramblet {

class HistoryBox;

class GridModel;
class GridView;

class StockPanel : public QWidget {
    Q_OBJECT
  public:
    StockPanel(StockList& stock, LineItems& lines, QWidget* parent = nullptr);

    /// For when the rows have changed, and for when another item has been picked.
    void refreshList();
    void refreshEditor();

    /// Adds the current row's item to the order, when the data folder can be used.
    void addCurrentItem();

    /// Whether the data folder can be used; asked before an item is added.
    std::function<bool()> dataAvailable = [] { return true; };

    GridView* grid() const { return grid_; }
    void sortBy(int column);
    int columnCount() const { return static_cast<int>(stock_.columns().size()); }

  private:
    void makeGrid();
    QWidget* makeEditor();
    HistoryBox* comboBox(const char* name, const QString& tip, int limit,
                         std::string StockItemBoxes::*box);
    QLineEdit* lineEdit(const char* name, const QString& tip, std::string StockItemBoxes::*box);
    QWidget* makeButtons();
    void refreshColumns();

    StockList& stock_;
    LineItems& lines_;
    GridModel* model_;
    GridView* grid_;
    QMenu* menu_;
    QAction* onHand_;
    HistoryBox* category_;
    HistoryBox* vendor_;
    HistoryBox* unit_;
    QLineEdit* description_;
    QLineEdit* unitCost_;
    QLabel* fileNumber_;
    QToolButton* addToOrder_;
    std::vector<StockColumn> shownColumns_;
};

}  // namespace bramblet
