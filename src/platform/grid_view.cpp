#include "platform/grid_view.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

namespace bramblet {
namespace {

constexpr int kCellMargin = 14;
constexpr int kRowMargin = 8;

}  // namespace

GridView::GridView(QWidget* parent) : QTableView(parent) {
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
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
}

void GridView::setColumns(const std::vector<GridColumn>& columns) {
    columns_ = columns;
    resizedByHand_ = false;
    layOutColumns();
}

int GridView::currentRow() const {
    return currentIndex().isValid() ? currentIndex().row() : -1;
}

void GridView::showRow(int row) {
    showingRow_ = true;
    selectRow(row);
    showingRow_ = false;
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
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
    if (event->reason() != QContextMenuEvent::Keyboard) return;  // the mouse's release does it
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
    QPalette tinted = QApplication::palette();
    const QColor base = tinted.color(QPalette::Base);
    const QColor accent = tinted.color(QPalette::Highlight);
    const double share = focused ? 0.38 : 0.18;
    const auto mixed = [share](int from, int to) { return qRound(from + share * (to - from)); };
    tinted.setColor(QPalette::Highlight,
                    QColor(mixed(base.red(), accent.red()), mixed(base.green(), accent.green()),
                           mixed(base.blue(), accent.blue())));
    tinted.setColor(QPalette::HighlightedText, tinted.color(QPalette::Text));
    setPalette(tinted);
}

void GridView::layOutColumns() {
    if (model() == nullptr) return;
    const auto widthOf = [this](int characters) {
        return characters * fontMetrics().averageCharWidth() + kCellMargin;
    };
    int used = 0;
    int stretching = 0;
    for (const auto& column : columns_) {
        if (column.characters == 0) continue;
        used += widthOf(column.characters);
        stretching += column.stretches ? column.characters : 0;
    }
    layingOut_ = true;
    int left = qMax(0, viewport()->width() - used);
    for (int i = 0; i < static_cast<int>(columns_.size()); ++i) {
        const GridColumn& column = columns_[static_cast<std::size_t>(i)];
        setColumnHidden(i, column.characters == 0);
        if (column.characters == 0) continue;
        int width = widthOf(column.characters);
        if (column.stretches) {
            const int share = left * column.characters / stretching;
            width += share;
            left -= share;
            stretching -= column.characters;
        }
        setColumnWidth(i, width);
    }
    layingOut_ = false;
}

}  // namespace bramblet
