// The model behind the program's grids: the core provides each cell's text when it is shown.
#pragma once

#include <QAbstractTableModel>
#include <QColor>

#include <functional>
#include <string>
#include <vector>

namespace bramblet {

/// One column of a grid.
struct GridHeading {
    QString text;
    bool amount = false;   ///< right-aligned
    bool centred = false;  ///< kept clear of an amount before it
};

/// Where a grid's cells come from.
struct GridSource {
    std::function<int()> rows;
    std::function<std::string(int row, int column)> cell;
    /// A cell's own text colour, or an invalid one for the grid's. Optional.
    std::function<QColor(int row, int column)> colour = nullptr;
    /// The widest text of a column whose texts must never be cut short; empty for other columns.
    /// Optional.
    std::function<std::string(int column)> widest = nullptr;
};

/// The role under which a heading gives the widest text of its column.
inline constexpr int kWidestTextRole = Qt::UserRole;

class GridModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    GridModel(std::vector<GridHeading> headings, GridSource source, QObject* parent);

    /// The rows have changed.
    void refresh();
    /// The columns have changed, and the rows with them.
    void refresh(std::vector<GridHeading> headings);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QVariant alignment(int column) const;

    std::vector<GridHeading> headings_;
    GridSource source_;
    int rows_ = 0;
};

}  // namespace bramblet
