#include "orders/order_lines_model.h"

#include "platform/qt_text.h"

namespace bramblet {
namespace {

constexpr std::array<const char*, kOrderColumns> kHeadings{
    "Quant", "", "", "Unit", "Description", "Unit Cost", "Total", "File Number"};

QVariant alignmentOf(int column) {
    const bool amount = column == kUnitCost || column == kLineTotal || column == kQuantity;
    return QVariant::fromValue(Qt::AlignVCenter | (amount ? Qt::AlignRight : Qt::AlignLeft));
}

}  // namespace

OrderLinesModel::OrderLinesModel(const std::vector<OrderLine>& lines, QObject* parent)
    : QAbstractTableModel(parent), lines_(lines) {}

void OrderLinesModel::refresh() {
    if (shown_ == lines_) return;
    beginResetModel();
    shown_ = lines_;
    endResetModel();
}

int OrderLinesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int OrderLinesModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(kOrderColumns);
}

QVariant OrderLinesModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::TextAlignmentRole) return alignmentOf(index.column());
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    if (role == Qt::ToolTipRole && index.column() != kDescription) return {};
    const OrderLine& line = shown_[static_cast<std::size_t>(index.row())];
    return toQt(line[static_cast<std::size_t>(index.column())]);
}

QVariant OrderLinesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return alignmentOf(section);
    if (role == Qt::DisplayRole) return QLatin1String(kHeadings[static_cast<std::size_t>(section)]);
    return {};
}

}  // namespace bramblet
