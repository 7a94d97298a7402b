// The list of saved orders as Qt's views see it; a cell's text is made when it is shown.
#pragma once

#include "orders/saved_orders.h"

#include <QAbstractTableModel>

namespace bramblet {

class SavedOrdersModel : public QAbstractTableModel {
  public:
    explicit SavedOrdersModel(const SavedOrders& orders, QObject* parent = nullptr);

    /// The list has changed.
    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const SavedOrders& orders_;
};

}  // namespace bramblet
