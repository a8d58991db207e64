#include "desktop/caption_line.h"

#include "desktop/cell_delegate.h"
#include "desktop/theme.h"

#include <QPainter>

namespace pgbp {

void CaptionLine::Show(const QString& caption)
{
    if (accessibleName() == caption)
        return;
    setAccessibleName(caption);
    update();
}

int CaptionLine::HeightFor(const QString& caption, int width) const
{
    const QRect room(0, 0, width - 2 * CellDelegate::kMargin, 3 * fontMetrics().lineSpacing());
    const int height = fontMetrics().boundingRect(room, Qt::TextWordWrap, caption).height();
    return std::min(height, room.height()) + 2 * kUnit;
}

void CaptionLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(Theme().muted);
    const QRect inner = rect().adjusted(CellDelegate::kMargin, kUnit, -CellDelegate::kMargin, 0);
    painter.drawText(inner, Qt::TextWordWrap, accessibleName());
}

} // namespace pgbp
