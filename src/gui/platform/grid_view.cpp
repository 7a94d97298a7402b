#include "gui/platform/grid_view.h"

#include "core/platform/list_table.h"
#include "gui/platform/icons.h"
#include "gui/platform/qt_text.h"
#include "gui/platform/theme.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <functional>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace bramblet {
namespace {

constexpr int kCellMargin = 14;
constexpr int kRowMargin = 8;
constexpr int kMostFitted = 32;  ///< characters up to which a text widens its column
constexpr int kMostGiven = 3;    ///< in a narrow view, columns give up to a third of their width

/// How a list is sorted and narrowed, as one text.
std::string arrangementOf(const Table& table) {
    return std::to_string(table.sortColumn().value_or(-1)) +
           (table.sortedDescending() ? "descending " : "ascending ") + table.sought() + '\n' +
           table.shownOnly();
}

}  // namespace

/// The core's list gives each cell's text when it is shown.
class GridView::Model : public QAbstractTableModel {
  public:
    Model(const Table& table, QObject* parent) : QAbstractTableModel(parent), table_(table) {
        refresh();
    }

    /// The rows have changed, and the columns perhaps as well.
    void refresh() {
        beginResetModel();
        rows_ = table_.rowCount();
        columns_ = table_.columnCount();
        endResetModel();
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : rows_;
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : columns_;
    }

    QVariant data(const QModelIndex& index, int role) const override {
        // The core may already hold less than was last shown.
        if (index.row() >= table_.rowCount() || index.column() >= table_.columnCount()) return {};
        if (role == Qt::DisplayRole) return toQt(table_.cell(index.row(), index.column()));
        if (role == Qt::TextAlignmentRole) return alignment(index.column());
        if (role == Qt::ForegroundRole) return colour(index);
        if (role == Qt::DecorationRole && index.column() == 0) return sign(index.row());
        if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole)
            return toQt(table_.markText(index.row()));
        return {};
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || section >= table_.columnCount()) return {};
        if (role == Qt::TextAlignmentRole) return alignment(section);
        if (role == Qt::DisplayRole) return QString::fromLatin1(table_.look(section).heading);
        return {};
    }

  private:
    QVariant alignment(int column) const {
        const Align align = table_.look(column).align;
        const Qt::AlignmentFlag side = align == Align::Right    ? Qt::AlignRight
                                       : align == Align::Centre ? Qt::AlignHCenter
                                                                : Qt::AlignLeft;
        return QVariant::fromValue(Qt::AlignVCenter | side);
    }

    /// The first cell is red in open requisitions and has the button text's colour in orders that
    /// have been received, whose other cells are quieter; everything else has the grid's own.
    QVariant colour(const QModelIndex& cell) const {
        constexpr double kQuiet = 0.36;
        const Table::Mark mark = table_.mark(cell.row());
        const QPalette palette = QApplication::palette();
        if (cell.column() > 0) {
            if (mark != Table::Mark::Received) return {};
            return blend(palette.color(QPalette::Text), palette.color(QPalette::Base), kQuiet);
        }
        if (mark == Table::Mark::Requisition) return QColor(255, 0, 0);
        if (mark == Table::Mark::None) return {};
        return palette.color(QPalette::ButtonText);
    }

    QVariant sign(int row) const {
        const Table::Mark mark = table_.mark(row);
        if (mark == Table::Mark::None) return {};
        return mark == Table::Mark::Requisition ? requisition_ : received_;
    }

    const Table& table_;
    const QIcon requisition_ = icon(Drawing::Requisition);
    const QIcon received_ = icon(Drawing::Received);
    int rows_ = 0;
    int columns_ = 0;
};

/// Signs stand at the right edge of their cells, so that texts with and without one stay in line.
class SignsAtTheRight : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->decorationPosition = QStyleOptionViewItem::Right;
    }
};

GridView::GridView(const char* name, const QString& accessibleName, const QString& tip,
                   const Table& table, int lines)
    : table_(table), model_(new Model(table, this)) {
    setObjectName(QLatin1String(name));
    setAccessibleName(accessibleName);
    setToolTip(tip);
    setMinimumHeight(fontMetrics().height() * lines);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setItemDelegateForColumn(0, new SignsAtTheRight(this));
    tintSelection(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowMargin);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &GridView::headingClicked);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this] { resizedByHand_ = resizedByHand_ || !layingOut_; });
    connect(this, &QTableView::clicked, this,
            [this](const QModelIndex& index) { emit rowClicked(index.row()); });
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { emit rowDoubleClicked(index.row()); });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
        if (!refreshing_) noteTop(value);
    });
    setModel(model_);
}

void GridView::refresh() {
    if (model_->columnCount() != table_.columnCount()) resizedByHand_ = false;
    refreshing_ = true;
    const int scrolled = verticalScrollBar()->value();
    model_->refresh();
    keepPlace(scrolled);
    refreshing_ = false;
    const auto sorted = table_.sortColumn();
    horizontalHeader()->setSortIndicatorShown(sorted.has_value());
    if (!sorted) return;
    horizontalHeader()->setSortIndicator(
        *sorted, table_.sortedDescending() ? Qt::DescendingOrder : Qt::AscendingOrder);
}

/// `scrolled` is the place of the scroll bar before the rows changed.
void GridView::keepPlace(int scrolled) {
    const int sideways = horizontalScrollBar()->value();
    const std::string arrangement = arrangementOf(table_);
    const bool rearranged = std::exchange(arrangement_, arrangement) != arrangement;
    const int current = currentKey_.empty() ? -1 : table_.rowOf(currentKey_);
    if (current >= 0) showRow(current);
    if (current < 0 && scrolled == 0) return;
    executeDelayedItemsLayout();  // the scroll bar learns of the rows
    if (!rearranged) {
        const int top = topKey_.empty() ? -1 : table_.rowOf(topKey_);
        verticalScrollBar()->setValue(top >= 0 ? top : scrolled);
    } else {
        current >= 0 ? scrollTo(model_->index(current, 0)) : scrollToTop();
        noteTop(verticalScrollBar()->value());
    }
    horizontalScrollBar()->setValue(sideways);
}

/// `scrolled` is the place of the scroll bar.
void GridView::noteTop(int scrolled) {
    topKey_ = scrolled > 0 ? keyOf(rowAt(0)) : std::string();
}

std::string GridView::keyOf(int row) const {
    return row >= 0 && row < table_.rowCount() ? table_.key(row) : std::string();
}

void GridView::showRow(int row) {
    showingRow_ = true;
    selectRow(row);
    showingRow_ = false;
}

void GridView::showKey(const std::string& key) {
    if (key == currentKey_) return;
    const int row = key.empty() ? -1 : table_.rowOf(key);
    row >= 0 ? showRow(row) : selectionModel()->clear();
    currentKey_ = key;
}

void GridView::enter() {
    if (currentRow() < 0 && model_->rowCount() > 0) selectRow(0);
    setFocus();
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    currentKey_ = keyOf(current.row());
    if (!showingRow_ && current.isValid()) emit rowReached(current.row());
}

void GridView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (currentRow() >= 0) emit rowEntered(currentRow());
            return;
        case Qt::Key_Insert:
            emit insertPressed();
            return;
        case Qt::Key_Delete:
            if (currentRow() >= 0) emit deletePressed(currentRow());
            return;
        default:
            QTableView::keyPressEvent(event);
    }
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    if (!resizedByHand_) layOutColumns();
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton) emit menuRequested(event->globalPosition().toPoint());
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Keyboard) return;  // the mouse does it on release
    emit menuRequested(viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
}

void GridView::focusInEvent(QFocusEvent* event) {
    tintSelection(true);
    QTableView::focusInEvent(event);
}

void GridView::focusOutEvent(QFocusEvent* event) {
    tintSelection(false);
    QTableView::focusOutEvent(event);
}

void GridView::tintSelection(bool focused) {
    recolour(this, [focused](QPalette& tinted) {
        tinted.setColor(QPalette::Highlight,
                        blend(tinted.color(QPalette::Base), tinted.color(QPalette::Highlight),
                              focused ? 0.38 : 0.18));
        tinted.setColor(QPalette::HighlightedText, tinted.color(QPalette::Text));
    });
}

/// The rows have changed, and the widest texts with them.
void GridView::reset() {
    QTableView::reset();
    if (!resizedByHand_ && isVisible()) layOutColumns();
}

void GridView::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    if (!resizedByHand_) layOutColumns();
}

/// The width of a heading with the sort mark. Qt's own size hint allows less for the mark than it
/// takes when drawn: half the height, with a margin on both sides.
int GridView::headingWidth(int column) const {
    const QHeaderView* header = horizontalHeader();
    const QString text = QString::fromLatin1(table_.look(column).heading);
    const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header);
    return header->fontMetrics().horizontalAdvance(text) + 4 * margin +
           header->sizeHint().height() / 2 + 1;
}

/// The width of a column before the view's width is shared out: enough to elide neither its heading
/// nor the widest of the texts that must not be cut short.
int GridView::widthOf(int column) const {
    QString widest = toQt(table_.widest(column));
    widest.truncate(kMostFitted);
    for (QChar& c : widest) {
        if (c.isDigit()) c = QLatin1Char('0');  // as wide as any digit
    }
    const int text = qMax(table_.look(column).characters * fontMetrics().averageCharWidth(),
                          fontMetrics().horizontalAdvance(widest));
    return qMax(headingWidth(column), text + kCellMargin);
}

/// Spare width goes to the columns that stretch. If the view is a little too narrow, they shrink to
/// fit; if it is narrower than that, it scrolls sideways.
void GridView::layOutColumns() {
    layingOut_ = true;
    const int columns = qMin(model_->columnCount(), table_.columnCount());
    std::vector<int> widths;
    int givable = 0;
    int characters = 0;  // of the columns that stretch
    for (int i = 0; i < columns; ++i) {
        const ColumnLook& column = table_.look(i);
        const bool hidden = column.characters == 0;
        setColumnHidden(i, hidden);
        widths.push_back(hidden ? 0 : widthOf(i));
        if (!column.stretches) continue;
        givable += widths.back() / kMostGiven;
        characters += column.characters;
    }
    int left = std::accumulate(widths.begin(), widths.end(), viewport()->width(), std::minus());
    const bool scrolls = left < -givable;
    for (int i = 0; i < columns; ++i) {
        const ColumnLook& column = table_.look(i);
        if (column.characters == 0) continue;
        int width = widths[static_cast<std::size_t>(i)];
        if (column.stretches && !scrolls) {
            const int share = left * column.characters / characters;
            const int shared = qMax(width + share, headingWidth(i));
            left -= shared - width;
            characters -= column.characters;
            width = shared;
        }
        setColumnWidth(i, width);
    }
    layingOut_ = false;
}

}  // namespace bramblet
