#include "orders/saved_orders_model.h"

#include "platform/qt_text.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>

namespace bramblet {
namespace {

constexpr std::array<const char*, kSavedOrderColumns> kHeadings{
    "Number",   "Job",       "Date", "Vendor",   "Ship To",   "Ship Date", "Order Total",
    "Shipping", "Sales Tax", "Net",  "Discount", "Sub Total", "Status"};

QVariant alignmentOf(int column) {
    const bool amount = column >= kOrderTotalColumn && column <= kSubTotalColumn;
    return QVariant::fromValue(Qt::AlignVCenter | (amount ? Qt::AlignRight : Qt::AlignLeft));
}

/// The colour of a row's first cell: red for open requisitions, the button text's for what has
/// been received, the grid's own for open purchase orders.
QVariant colourOf(const std::string& status) {
    if (status == "R") return QColor(255, 0, 0);
    if (status == "a" || status == "r") {
        return QGuiApplication::palette().color(QPalette::ButtonText);
    }
    return {};
}

}  // namespace

SavedOrdersModel::SavedOrdersModel(const SavedOrders& orders, QObject* parent)
    : QAbstractTableModel(parent), orders_(orders) {}

void SavedOrdersModel::refresh() {
    beginResetModel();
    endResetModel();
}

int SavedOrdersModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : orders_.rowCount();
}

int SavedOrdersModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kSavedOrderColumns;
}

QVariant SavedOrdersModel::data(const QModelIndex& index, int role) const {
    switch (role) {
        case Qt::DisplayRole:
            return toQt(orders_.cell(index.row(), index.column()));
        case Qt::TextAlignmentRole:
            return alignmentOf(index.column());
        case Qt::ForegroundRole:
            return index.column() == kNumberColumn ? colourOf(orders_.status(index.row()))
                                                   : QVariant();
        default:
            return {};
    }
}

QVariant SavedOrdersModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return alignmentOf(section);
    if (role == Qt::DisplayRole) return QLatin1String(kHeadings[static_cast<std::size_t>(section)]);
    return {};
}

}  // namespace bramblet
