// The list of stock items with its pop-up menu, and the editor beside it.
#pragma once

#include "core/orders/last_paid.h"
#include "core/orders/line_items.h"
#include "core/stock/stock_list.h"
#include "gui/platform/boxes.h"

#include <QWidget>

class QAction;
namespace bramblet {

class GridView;
class HistoryBox;
class LastPaidLine;
class PaidReader;

class StockPanel : public QWidget {
  public:
    StockPanel(StockList& stock, LineItems& lines, PaidReader& reader, QWidget* parent = nullptr);

    /// For when the rows have changed, and for when another item has been picked.
    void refreshList();
    void refreshEditor();

    /// Adds the current row's item to the order.
    void addCurrentItem();

    GridView* grid() const { return grid_; }

  private:
    void makeGrid();
    QWidget* makeEditor();
    HistoryBox* comboBox(const char* name, const QString& accessibleName, const QString& tip,
                         int limit, std::string StockItemBoxes::*box);
    QLayout* makeButtons();
    void fillList(HistoryBox* combo);
    void startNext();
    void takePrice(const PaidPrice& price);

    StockList& stock_;
    LineItems& lines_;
    PaidReader& reader_;
    GridView* grid_;
    QAction* onHand_;
    HistoryBox* category_;
    HistoryBox* vendor_;
    HistoryBox* unit_;
    QLineEdit* unitCost_;
    QLabel* fileNumber_;
    LastPaidLine* lastPaid_;
    BoundBoxes boxes_;
};

}  // namespace bramblet
