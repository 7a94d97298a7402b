// The lines of the order in their grid, with the grid's pop-up menu.
#pragma once

#include "core/orders/line_items.h"

#include <QAction>
#include <QWidget>

#include <functional>

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
    /// The commands on lines that only make sense while the grid has the focus.
    const QList<QAction*>& gridCommands() const { return gridCommands_; }

  private:
    void addGridCommand(QMenu* menu, const char* name, const QString& caption,
                        const QKeySequence& keys, const std::function<void()>& command);
    void paste();

    LineItems& lines_;
    const OpenOrder& open_;
    LineTable table_;
    GridView* grid_;
    QList<QAction*> gridCommands_;
};

}  // namespace bramblet
