// The lower band of the main window: the saved orders or the stock items, and the bar under them
// that says what is listed and switches between the two.
#pragma once

#include "core/app/program.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QStackedWidget;
class QToolButton;

namespace bramblet {

class FindBox;
class GridView;
class PaidReader;
class SavedOrdersPanel;
class StockPanel;

class ListsPanel : public QWidget {
  public:
    ListsPanel(Program& program, PaidReader& reader, QWidget* parent = nullptr);

    /// The list of orders, or of stock items, has changed.
    void refreshOrders();
    void refreshStock();

    /// Switches to the saved orders, or to the stock items.
    void showOrders();
    void HideOrders_Click();

    SavedOrdersPanel* orders() const { return orders_; }
    StockPanel* stock() const { return stock_; }
    bool showsOrders() const;
    /// The grid of the list shown now.
    GridView* grid() const;

    /// Goes to the find box of the list shown now.
    void findInList();

  private:
    QLayout* makeBar();
    QCheckBox* filterBox(const char* name, const QString& caption, const QString& tip,
                         bool SavedOrders::*filter);
    void find(const QString& typed);
    void showAll();
    QString shortened(QString text) const;
    void showView();

    Program& program_;
    SavedOrdersPanel* orders_;
    StockPanel* stock_;
    QStackedWidget* views_;
    FindBox* find_;
    QToolButton* shownOnly_;
    QLabel* label_;
    QLabel* count_;
    QLabel* total_;
    std::vector<QCheckBox*> filters_;
    QCheckBox* vendorItems_;
    QToolButton* viewExisting_;
    QToolButton* hideOrders_;
};

}  // namespace bramblet
