// The lines of the order in their grid, with the grid's pop-up menu.
#pragma once

#include "core/orders/line_items.h"

#include <QWidget>

namespace bramblet {

class GridView;

class LinesPanel : public QWidget {
  public:
    LinesPanel(LineItems& lines, const OpenOrder& open, const RegionalFormats& formats,
               QWidget* parent = nullptr);

    /// Shows the lines that the order holds now. Of another order than before, none is current.
    void refresh(bool anotherOrder);

    void addOneTimeItem() { lines_.OrderPop_OneTime_Click(); }
    void editCurrentLine();
    /// Makes a line current, and scrolls to it.
    void showLine(int row);

    GridView* grid() const { return grid_; }

  private:
    LineItems& lines_;
    const OpenOrder& open_;
    LineTable table_;
    GridView* grid_;
};

}  // namespace bramblet
