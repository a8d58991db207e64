#include "desktop/cell_delegate.h"

#include "desktop/theme.h"

#include <QAbstractItemView>
#include <QPainter>

namespace pgbp {

CellDelegate::CellDelegate(QAbstractItemView& view, int firstColumn)
    : QStyledItemDelegate(&view), view_(view), first_(firstColumn)
{
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const bool isSelected = option.state & QStyle::State_Selected;
    const QVariant ground = index.data(Qt::BackgroundRole);
    const bool isTinted = isSelected && (!ground.isValid() || ground.value<QColor>() == Theme().computed);
    const QColor free = isTinted ? Theme().accentSoft : Theme().panel;
    painter->fillRect(option.rect, ground.isValid() && !isTinted ? ground.value<QColor>() : free);
    painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1), Theme().line);
    if (index.column() == first_ && index.row() == view_.currentIndex().row())
        painter->fillRect(QRect(option.rect.topLeft(), QSize(3, option.rect.height())), Theme().accent);
    if (marksCell && option.state & QStyle::State_HasFocus) {
        painter->setPen(Theme().accent);
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
    const QVariant font = index.data(Qt::FontRole);
    painter->setFont(font.isValid() ? font.value<QFont>() : option.font);
    const QRect inner = option.rect.adjusted(kMargin, 0, -kMargin, 0);
    const QString text = painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, inner.width());
    const QVariant color = index.data(Qt::ForegroundRole);
    const QVariant side = index.data(Qt::TextAlignmentRole);
    painter->setPen(color.isValid() ? color.value<QColor>() : Theme().text);
    painter->drawText(inner, side.isValid() ? side.toInt() : int(Qt::AlignLeft | Qt::AlignVCenter), text);
}

} // namespace pgbp
