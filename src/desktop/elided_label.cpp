#include "desktop/elided_label.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>

namespace pgbp {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void ElidedLabel::Show(const QString& whole, const QString& tip)
{
    tip_ = tip;
    whole_ = whole;
    ShowTip();
    // for screen readers; with a buddy the toolkit would take "&" for a short-cut of its own
    setText(buddy() ? QString(whole).replace('&', "&&") : whole);
}

/// The whole text where it is cut and the tip is nothing else.
void ElidedLabel::ShowTip() { setToolTip(tip_.isEmpty() && Fitting() != whole_ ? whole_ : tip_); }

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    ShowTip();
}

void ElidedLabel::SetMargin(int margin) { margin_ = margin; }

QSize ElidedLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(whole_) + 2 * margin_ + 1, fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    const QSize whole = sizeHint();
    return least_ < 0 ? whole : QSize(std::min(least_, whole.width()), whole.height());
}

QString ElidedLabel::Fitting() const { return fontMetrics().elidedText(whole_, Qt::ElideRight, width() - 2 * margin_); }

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect().adjusted(margin_, 0, -margin_, 0), static_cast<int>(alignment()), Fitting());
}

} // namespace pgbp
