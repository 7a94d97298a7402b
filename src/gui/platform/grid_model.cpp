#include "gui/platform/grid_model.h"

#include "core/platform/list_table.h"
#include "gui/platform/qt_text.h"

#include <QApplication>
#include <QPalette>

namespace bramblet {

GridModel::GridModel(const Table& table, QObject* parent)
    : QAbstractTableModel(parent),
      table_(table),
      rows_(table.rowCount()),
      columns_(table.columnCount()) {}

void GridModel::refresh() {
    beginResetModel();
    rows_ = table_.rowCount();
    columns_ = table_.columnCount();
    endResetModel();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    // The core may already hold less than was last shown.
    if (index.row() >= table_.rowCount() || index.column() >= table_.columnCount()) return {};
    switch (role) {
        case Qt::DisplayRole:
            return toQt(table_.cell(index.row(), index.column()));
        case Qt::TextAlignmentRole:
            return alignment(index.column());
        case Qt::ForegroundRole:
            return index.column() == 0 ? colour(index.row()) : QVariant();
        default:
            return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= table_.columnCount()) return {};
    if (role == Qt::TextAlignmentRole) return alignment(section);
    if (role == Qt::DisplayRole) return QString::fromLatin1(table_.look(section).heading);
    if (role == kWidestTextRole) return toQt(table_.widest(section));
    return {};
}

QVariant GridModel::alignment(int column) const {
    const Align align = table_.look(column).align;
    const Qt::AlignmentFlag side = align == Align::Right    ? Qt::AlignRight
                                   : align == Align::Centre ? Qt::AlignHCenter
                                                            : Qt::AlignLeft;
    return QVariant::fromValue(Qt::AlignVCenter | side);
}

/// Red for open requisitions, the button text's for orders that have been received, the grid's own
/// for all other rows.
QVariant GridModel::colour(int row) const {
    switch (table_.mark(row)) {
        case Table::Mark::Requisition:
            return QColor(255, 0, 0);
        case Table::Mark::Received:
            return QApplication::palette().color(QPalette::ButtonText);
        case Table::Mark::None:
            break;
    }
    return {};
}

}  // namespace bramblet
