#include "desktop/grid_foot.h"

#include "controls/grid.h"
#include "desktop/captions.h"
#include "desktop/cell_delegate.h"
#include "desktop/theme.h"
#include "services/format.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QTableView>

namespace pgbp {

GridFoot::GridFoot(const Grid& itsGrid, QTableView& table, QWidget* parent)
    : QWidget(parent), grid_(itsGrid), table_(table)
{
    setFont(FontOf(Type::Total));
    setFixedHeight(GridRowHeight() + kUnit);
    connect(table.horizontalScrollBar(), &QScrollBar::valueChanged, this, qOverload<>(&QWidget::update));
    connect(table.horizontalHeader(), &QHeaderView::sectionResized, this, qOverload<>(&QWidget::update));
}

int GridFoot::WidthFor(int column) const
{
    const std::string& text = grid_.footer()[static_cast<std::size_t>(column)];
    return text.empty() ? 0 : fontMetrics().horizontalAdvance(Drawn(column)) + 3 * CellDelegate::kMargin;
}

/// A caption stays as it is where the cells above it are codes that are drawn in words.
QString GridFoot::Drawn(int column) const
{
    const auto at = static_cast<std::size_t>(column);
    const GridColumn& its = grid_.columns()[at];
    return Text(its.IsNumber() ? its.Drawn(grid_.footer()[at]) : grid_.footer()[at]);
}

void GridFoot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (int column = 0; column < static_cast<int>(grid_.footer().size()); ++column)
        if (!table_.isColumnHidden(column))
            PaintCell(painter, column);
}

/// A text runs on over the columns to its right where they have no total of their own.
void GridFoot::PaintCell(QPainter& painter, int column) const
{
    const auto at = static_cast<std::size_t>(column);
    const auto& texts = grid_.footer();
    const bool isNumber = grid_.columns()[at].IsNumber();
    int width = table_.columnWidth(column);
    for (auto next = at + 1; !isNumber && next < texts.size() && texts[next].empty(); ++next)
        width += table_.columnWidth(static_cast<int>(next)); // 0 for a hidden one
    const int left = table_.viewport()->mapTo(parentWidget(), QPoint()).x() + table_.columnViewportPosition(column);
    const QRect cell = QRect(left, 0, width, height()).adjusted(CellDelegate::kMargin, 0, -CellDelegate::kMargin, 0);
    painter.setPen(isNumber && Val(texts[at]) < 0 ? Theme().negative : Theme().text);
    painter.drawText(cell, static_cast<int>((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter),
                     fontMetrics().elidedText(Drawn(column), Qt::ElideRight, cell.width()));
}

} // namespace pgbp
