#pragma once

#include <QStyledItemDelegate>

class QAbstractItemView;

namespace pgbp {

/// Draws the rows of grids and lists as a ledger has them: a hairline below each, the selected ones tinted, the current
/// one marked at its left edge; a text that does not fit ends in dots.
class CellDelegate : public QStyledItemDelegate {
  public:
    static constexpr int kMargin = 8; ///< beside the text

    CellDelegate(QAbstractItemView& view, int firstColumn);

    bool marksCell = false; ///< the keys go from cell to cell: the current one has a frame

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    const QAbstractItemView& view_;
    const int first_;
};

} // namespace pgbp
