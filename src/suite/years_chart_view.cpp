#include "suite/years_chart_view.h"

#include "desktop/captions.h"
#include "desktop/theme.h"

#include <QAccessibleWidget>
#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace pgbp {
namespace {

/// Readers take a plain widget for mere decoration.
QAccessibleInterface* ChartForReaders(const QString&, QObject* object)
{
    auto* view = dynamic_cast<YearsChartView*>(object);
    return view ? new QAccessibleWidget(view, QAccessible::Chart) : nullptr;
}

void InstallForReaders()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(ChartForReaders);
        return true;
    }();
    Q_UNUSED(isInstalled);
}

QRectF Between(double left, double top, double right, double bottom)
{
    return {QPointF(left, top), QPointF(right, bottom)};
}

void Write(QPainter& painter, const QRectF& room, Qt::Alignment alignment, const QColor& color, const QString& text)
{
    painter.setPen(color);
    painter.drawText(room, static_cast<int>(alignment | Qt::TextDontClip | Qt::TextSingleLine), text);
}

/// Of a bar: a loss, the marked year, the others.
const QColor& ColorOf(const ClientYear& year, bool isMarked)
{
    if (*year.head < 0)
        return Theme().negative;
    return isMarked ? Theme().accent : Theme().edge;
}

} // namespace

YearsChartView::YearsChartView(QWidget* parent) : QWidget(parent)
{
    InstallForReaders();
    setObjectName("years");
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void YearsChartView::Show(const QString& client, std::vector<ClientYear> years, std::size_t marked)
{
    client_ = client;
    years_ = std::move(years);
    marked_ = marked;
    setAccessibleDescription(Text(InWords(years_)));
    TellOf(marked);
}

void YearsChartView::TellOf(std::size_t place)
{
    told_ = place;
    update();
    if (years_.empty()) {
        setAccessibleName("Head of income over the years");
        return;
    }
    const ClientYear& year = years_[place];
    setAccessibleName("Head of income of " + client_ + ", " + Text(InWords({&year, 1})));
    if (tells)
        tells(year);
}

QSize YearsChartView::sizeHint() const { return {80 * kUnit, 8 * fontMetrics().height()}; }

YearsChart YearsChartView::Chart() const
{
    const QFontMetricsF metrics(font());
    const QRectF inner = QRectF(rect()).adjusted(kUnit, kUnit, -kUnit, -kUnit);
    return LayOut(years_, marked_, inner.width(), inner.height(),
                  {[&](const std::string& text) { return metrics.horizontalAdvance(Text(text)); }, metrics.height()});
}

bool YearsChartView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const YearsChart chart = Chart();
    const auto place = chart.ColumnAt(help->pos().x() - kUnit);
    if (!place) {
        QToolTip::hideText();
        event->ignore();
        return true;
    }
    const YearsChart::Column& column = chart.columns[*place];
    const QRect area(static_cast<int>(column.left) + kUnit, 0, static_cast<int>(column.right - column.left), height());
    QToolTip::showText(help->globalPos(), Text(InWords({&years_[*place], 1})), this, area);
    return true;
}

void YearsChartView::keyPressEvent(QKeyEvent* event)
{
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (event->matches(QKeySequence::Copy))
        QGuiApplication::clipboard()->setText(accessibleDescription());
    else if (const auto place = PlaceAfter(event->key()); place && isPlain)
        TellOf(*place);
    else
        event->ignore();
}

std::optional<std::size_t> YearsChartView::PlaceAfter(int key) const
{
    const std::size_t last = years_.empty() ? 0 : years_.size() - 1;
    switch (key) {
    case Qt::Key_Left:
        return told_ - (told_ > 0);
    case Qt::Key_Right:
        return std::min(told_ + 1, last);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    default:
        return std::nullopt;
    }
}

void YearsChartView::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void YearsChartView::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    TellOf(marked_);
}

void YearsChartView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (hasFocus()) {
        painter.setPen(QPen(Theme().accent, 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    }
    painter.translate(kUnit, kUnit);
    const YearsChart chart = Chart();
    PaintGround(painter, chart);
    for (std::size_t place = 0; place < years_.size(); ++place)
        PaintColumn(painter, chart, place);
}

/// What lies behind the bars: the marked year's column and the lines of round amounts.
void YearsChartView::PaintGround(QPainter& painter, const YearsChart& chart) const
{
    const double line = QFontMetricsF(font()).height();
    for (std::size_t place = 0; place < years_.size(); ++place)
        if (place == marked_)
            painter.fillRect(Between(chart.columns[place].left, 0, chart.columns[place].right, chart.labels + line),
                             Theme().accentSoft);
    for (const YearsChart::Tick& tick : chart.ticks) {
        painter.setPen(Theme().line);
        painter.drawLine(QPointF(chart.left, tick.y), QPointF(chart.right, tick.y));
        Write(painter, Between(0, tick.y - line / 2, chart.left - line / 2, tick.y + line / 2),
              Qt::AlignRight | Qt::AlignVCenter, Theme().muted, Text(tick.text));
    }
}

void YearsChartView::PaintColumn(QPainter& painter, const YearsChart& chart, std::size_t place) const
{
    const YearsChart::Column& column = chart.columns[place];
    const ClientYear& year = years_[place];
    const double line = QFontMetricsF(font()).height();
    const bool isLoss = year.head.value_or(0) < 0;

    painter.setPen(Theme().muted);
    painter.drawLine(QPointF(column.left, chart.zero), QPointF(column.right, chart.zero));
    if (column.followsGap)
        Write(painter, Between(column.left - line, chart.labels, column.left, chart.labels + line), Qt::AlignCenter,
              Theme().muted, "…");
    if (column.hasBar) { // a child's figure has the ground of its row in the list
        const QColor& color = ColorOf(year, place == marked_);
        const double least = column.top == column.bottom ? 1 : 0; // an amount of 0 is a thick line
        painter.setPen(color);
        painter.setBrush(year.writtenFor == 0 ? color : Theme().mark);
        painter.drawRect(Between(column.barLeft, column.top - least, column.barRight, column.bottom + least));
    }
    if (chart.hasFigures) {
        const QString figure = Text(year.head ? ExactFigure(*year.head) : HeadInWords(year));
        const double top = isLoss ? column.bottom : column.top - line;
        const double middle = (column.left + column.right) / 2;
        const double half = QFontMetricsF(font()).horizontalAdvance(figure) / 2;
        const QRectF room = Between(middle - half, top + 1, middle + half, top + line - 1);
        painter.fillRect(room, place == marked_ ? Theme().accentSoft : Theme().panel); // no line through its digits
        Write(painter, room, Qt::AlignCenter,
              !year.head ? Theme().muted
              : isLoss   ? Theme().negative
                         : Theme().text,
              figure);
    }
    if (column.isLabelled)
        Write(painter, Between(column.left, chart.labels, column.right, chart.labels + line), Qt::AlignCenter,
              place == marked_ ? Theme().text : Theme().muted, Text(year.year));
    if (hasFocus() && place == told_) {
        painter.setPen(Theme().accent);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(Between(column.left, 0, column.right, chart.labels + line));
    }
}

} // namespace pgbp
