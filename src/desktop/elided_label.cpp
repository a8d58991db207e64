#include "desktop/elided_label.h"

#include <QPainter>

namespace pgbp {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void ElidedLabel::Show(const QString& whole)
{
    setText(whole);
    setToolTip(whole.toHtmlEscaped());
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), static_cast<int>(alignment()), fontMetrics().elidedText(text(), Qt::ElideRight, width()));
}

} // namespace pgbp
