#pragma once

#include <QWidget>

class QTableView;

namespace pgbp {

class Grid;

/// The totals of a grid under their columns: they stay where they are while the rows scroll.
class GridFoot : public QWidget {
  public:
    GridFoot(const Grid& itsGrid, QTableView& table, QWidget* parent);

    /// The width a column needs for its total; 0 for one without.
    int WidthFor(int column) const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString Drawn(int column) const;
    void PaintCell(QPainter& painter, int column) const;

    const Grid& grid_;
    const QTableView& table_;
};

} // namespace pgbp
