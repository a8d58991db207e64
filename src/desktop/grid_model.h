#pragma once

#include "controls/grid.h"

#include <QAbstractTableModel>

namespace pgbp {

/// A cell as it is drawn; row 0 gives the heading.
QString DrawnText(const Grid& grid, int row, int column);

/// What Qt's table asks of a grid: reads it in place.
class GridModel : public QAbstractTableModel {
  public:
    explicit GridModel(const Grid& itsGrid) : grid_(itsGrid) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void Reload();
    void Update(int row, int column);

  private:
    QVariant CellData(int row, int column, int role) const;

    const Grid& grid_;
    int shownRows_ = 0;
};

} // namespace pgbp
