// The table view behind the program's grids: whole rows, columns laid out to fit the view, and a
// key for everything that the mouse can do.
#pragma once

#include <QTableView>

namespace bramblet {

class Table;

class GridView : public QTableView {
    Q_OBJECT
  public:
    /// Shows `table`, at least `lines` lines of it.
    GridView(const char* name, const QString& accessibleName, const QString& tip,
             const Table& table, int lines);

    /// Shows what the table holds now.
    void refresh();
    /// -1 when no row is current.
    int currentRow() const { return currentIndex().row(); }
    /// Makes a row current without signalling that it has been reached.
    void showRow(int row);
    void reset() override;

  signals:
    void rowClicked(int row);
    void rowDoubleClicked(int row);
    /// A row has become current, by a click or a key.
    void rowReached(int row);
    /// Return or Enter on a row.
    void rowEntered(int row);
    void insertPressed();
    void deletePressed(int row);
    void headingClicked(int column);
    /// The right button was released (the row under it is now current), or the menu key pressed.
    void menuRequested(const QPoint& globalPosition);

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    class Model;
    void layOutColumns();
    int headingWidth(int column) const;
    int widthOf(int column) const;
    /// Tints the current row, more strongly in the grid that has the focus.
    void tintSelection(bool focused);

    const Table& table_;
    Model* model_;
    bool showingRow_ = false;
    bool layingOut_ = false;
    bool resizedByHand_ = false;
};

}  // namespace bramblet
