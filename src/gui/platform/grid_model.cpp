#include "gui/platform/grid_model.h"

#include "gui/platform/qt_text.h"

namespace bramblet {

GridModel::GridModel(std::vector<GridHeading> headings, GridSource source, QObject* parent)
    : QAbstractTableModel(parent), headings_(std::move(headings)), source_(std::move(source)) {}

void GridModel::refresh() {
    beginResetModel();
    rows_ = source_.rows();
    endResetModel();
}

void GridModel::refresh(std::vector<GridHeading> headings) {
    beginResetModel();
    headings_ = std::move(headings);
    rows_ = source_.rows();
    endResetModel();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(headings_.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    // The core may already hold fewer rows than were last shown.
    if (index.row() >= source_.rows()) return {};
    switch (role) {
        case Qt::DisplayRole:
            return toQt(source_.cell(index.row(), index.column()));
        case Qt::TextAlignmentRole:
            return alignment(index.column());
        case Qt::ForegroundRole: {
            const QColor colour =
                source_.colour ? source_.colour(index.row(), index.column()) : QColor();
            return colour.isValid() ? QVariant(colour) : QVariant();
        }
        default:
            return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return alignment(section);
    if (role == Qt::DisplayRole) return headings_[static_cast<std::size_t>(section)].text;
    if (role == kWidestTextRole && source_.widest) return toQt(source_.widest(section));
    return {};
}

QVariant GridModel::alignment(int column) const {
    const GridHeading& heading = headings_[static_cast<std::size_t>(column)];
    const Qt::AlignmentFlag side = heading.amount    ? Qt::AlignRight
                                   : heading.centred ? Qt::AlignHCenter
                                                     : Qt::AlignLeft;
    return QVariant::fromValue(Qt::AlignVCenter | side);
}

}  // namespace bramblet
