// The order's lines as Qt's views see them.
#pragma once

#include "orders/order.h"

#include <QAbstractTableModel>

namespace bramblet {

class OrderLinesModel : public QAbstractTableModel {
  public:
    explicit OrderLinesModel(const std::vector<OrderLine>& lines, QObject* parent = nullptr);

    /// The lines have changed.
    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const std::vector<OrderLine>& lines_;
    std::vector<OrderLine> shown_;
};

}  // namespace bramblet
