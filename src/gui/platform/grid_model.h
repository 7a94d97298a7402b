// The model behind the program's grids: the core's list gives each cell's text when it is shown.
#pragma once

#include <QAbstractTableModel>

namespace bramblet {

class Table;

/// The role under which a heading gives the widest text of its column.
inline constexpr int kWidestTextRole = Qt::UserRole;

class GridModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    GridModel(const Table& table, QObject* parent);

    /// The rows have changed, and the columns perhaps as well.
    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QVariant alignment(int column) const;
    QVariant colour(int row) const;

    const Table& table_;
    int rows_ = 0;
    int columns_ = 0;
};

}  // namespace bramblet
