#include "desktop/elided_label.h"

#include "desktop/theme.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace pgbp {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent), color_(Theme().text) {}

void ElidedLabel::Show(const QString& whole, const QString& tip)
{
    tip_ = tip;
    if (whole == whole_)
        return;
    const std::pair asked(sizeHint(), minimumSizeHint());
    whole_ = whole;
    width_ = -1;
    setAccessibleName(whole); // not the text: the toolkit would take "&" for a short-cut of its own
    if (asked != std::pair(sizeHint(), minimumSizeHint()))
        updateGeometry(); // a layout goes up to the window
    update();
}

/// A text that is cut shows whole in its tip, where it has no other one.
bool ElidedLabel::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        setToolTip(tip_.isEmpty() && Fitting() != whole_ ? whole_ : tip_);
    return QLabel::event(event);
}

void ElidedLabel::SetColor(const QColor& text)
{
    if (color_ == text)
        return;
    color_ = text;
    update();
}

void ElidedLabel::SetMarked(bool marked)
{
    marked_ = marked;
    update();
}

void ElidedLabel::BecomeLink()
{
    QFont underlined = font();
    underlined.setUnderline(true);
    setFont(underlined);
    SetMargin(kUnit); // for the ring of the focus
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
}

int ElidedLabel::TextWidth() const
{
    if (width_ < 0)
        width_ = fontMetrics().horizontalAdvance(whole_) + 1;
    return width_;
}

void ElidedLabel::Wrap(int least)
{
    wraps_ = true;
    GiveWay(least);
}

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    if (!wraps_)
        return;
    const QRect column(0, 0, width() - 2 * margin_, QWIDGETSIZE_MAX);
    setMinimumHeight(std::max(RowHeight(), fontMetrics().boundingRect(column, Qt::TextWordWrap, whole_).height()));
}

void ElidedLabel::Ask(int wanted, int least)
{
    wanted_ = wanted;
    blank_ = least;
}

QSize ElidedLabel::sizeHint() const { return {std::max(wanted_, TextWidth() + 2 * margin_), fontMetrics().height()}; }

QSize ElidedLabel::minimumSizeHint() const
{
    const int whole = TextWidth() + 2 * margin_;
    return {std::max(blank_, least_ < 0 ? whole : std::min(least_, whole)), fontMetrics().height()};
}

QString ElidedLabel::Fitting() const
{
    const int room = width() - 2 * margin_;
    return TextWidth() <= room ? whole_ : fontMetrics().elidedText(whole_, Qt::ElideRight, room);
}

void ElidedLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        width_ = -1;
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (marked_ || background_.isValid()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(marked_ ? Theme().accent : background_);
        painter.drawRoundedRect(rect(), 3, 3);
    }
    if (hasFocus()) {
        painter.setPen(QPen(Theme().accent, 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
    painter.setPen(marked_ ? Theme().panel : color_);
    const QRect inner = rect().adjusted(margin_, 0, -margin_, 0);
    if (wraps_)
        painter.drawText(inner, static_cast<int>(alignment() | Qt::TextWordWrap), whole_);
    else
        painter.drawText(inner, static_cast<int>(alignment()), Fitting());
}

} // namespace pgbp
