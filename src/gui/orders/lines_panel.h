// The lines of the order in their grid, with the grid's pop-up menu.
#pragma once

#include "core/orders/line_items.h"

#include <QWidget>

class QMenu;

namespace bramblet {

class GridModel;
class GridView;

class LinesPanel : public QWidget {
    Q_OBJECT
  public:
    /// `stock` gives the units that the line dialog offers.
    LinesPanel(LineItems& lines, const OpenOrder& open, const StockList& stock,
               const RegionalFormats& formats, Prompts& prompts, QWidget* parent = nullptr);

    /// Shows the lines that the order holds now.
    void refresh();

    void addOneTimeItem();
    void editCurrentLine();
    void deleteCurrentLine();

    /// Whether the data folder can be used; asked before a double-click edits a line.
    std::function<bool()> dataAvailable = [] { return true; };

    GridView* grid() const { return grid_; }

  private:
    std::string widestAmount(std::size_t column) const;
    LineDialog lineDialog(const StockList& stock, const RegionalFormats& formats, Prompts& prompts);

    LineItems& lines_;
    const OpenOrder& open_;
    std::vector<OrderLine> shown_;
    GridModel* model_;
    GridView* grid_;
    QMenu* menu_;
};

}  // namespace bramblet
