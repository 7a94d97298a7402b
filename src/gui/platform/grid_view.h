// The table view behind the program's grids: whole rows, columns laid out to fit the view, and a
// key for everything that the mouse can do.
#pragma once

#include <QTableView>

#include <string>

namespace bramblet {

class Table;

class GridView : public QTableView {
    Q_OBJECT
  public:
    /// Shows `table`, at least `lines` lines of it.
    GridView(const char* name, const QString& accessibleName, const QString& tip,
             const Table& table, int lines);

    /// Shows what the table holds now. Where its rows have keys, the same row stays current and the
    /// same one on top of the view; a list that is sorted or narrowed anew shows the current row.
    void refresh();
    /// -1 when no row is current.
    int currentRow() const { return currentIndex().row(); }
    /// Makes a row current without signalling that it has been reached.
    void showRow(int row);
    /// The same with the row of a key, at once or as soon as it is listed.
    void showKey(const std::string& key);
    /// Takes the focus; the first row becomes current if none is.
    void enter();
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
    void keepPlace(int scrolled);
    void noteTop(int scrolled);
    std::string keyOf(int row) const;
    void layOutColumns();
    int headingWidth(int column) const;
    int widthOf(int column) const;
    /// Tints the current row, more strongly in the grid that has the focus.
    void tintSelection(bool focused);

    const Table& table_;
    Model* model_;
    std::string currentKey_;   ///< of the row that is current, or will be when it is listed
    std::string topKey_;       ///< of the first row in view; empty at the start of the list
    std::string arrangement_;  ///< how the list was sorted and narrowed when last shown
    bool refreshing_ = false;
    bool showingRow_ = false;
    bool layingOut_ = false;
    bool resizedByHand_ = false;
};

}  // namespace bramblet
