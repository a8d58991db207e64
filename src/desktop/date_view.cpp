#include "desktop/date_view.h"

#include "desktop/captions.h"
#include "desktop/form_view.h"
#include "desktop/theme.h"

#include <QAction>
#include <QCalendarWidget>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>

namespace pgbp {
namespace {

QIcon Arrow(qreal ratio)
{
    constexpr int size = 16;
    QPixmap picture(QSize(size, size) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme().muted, 1.5));
    const QPointF arrow[] = {{4, 6.5}, {8, 10.5}, {12, 6.5}};
    painter.drawPolyline(arrow, 3);
    return QIcon(picture);
}

} // namespace

DateView::DateView(txtdate& itsDate, FormView& itsForm, const Place& place)
    : TextView(itsDate, itsForm, place), date_(itsDate)
{
    line()->setFixedWidth(line()->fontMetrics().horizontalAdvance("00-00-0000") + 12 * kUnit);
    auto* drop = line()->addAction(Arrow(line()->devicePixelRatio()), QLineEdit::TrailingPosition);
    QObject::connect(drop, &QAction::triggered, &connections, [this] {
        form.Act([this] {
            if (form.form.SetFocus(date_))
                Toggle();
        });
    });
}

void DateView::FromModel()
{
    TextView::FromModel();
    if (date_.calendarShown && date_.Shown())
        DropDown();
    else if (calendar_)
        calendar_->hide();
}

void DateView::Toggle() { date_.calendarShown = !date_.calendarShown; }

bool DateView::KeyPressed(const QKeyEvent& event)
{
    const bool opens =
        event.key() == Qt::Key_F4 || (event.key() == Qt::Key_Down && event.modifiers() == Qt::AltModifier);
    const bool closes = event.key() == Qt::Key_Escape && date_.calendarShown;
    if (!opens && !closes)
        return TextView::KeyPressed(event);
    form.Act([this] { Toggle(); });
    return true;
}

bool DateView::Noticed(QEvent& event)
{
    if (event.type() != QEvent::MouseButtonDblClick)
        return TextView::Noticed(event);
    form.Act([this] { Toggle(); });
    return true;
}

void DateView::DropDown()
{
    if (!calendar_) {
        calendar_ = new QCalendarWidget(&form);
        calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
        calendar_->setAutoFillBackground(true);
        QObject::connect(calendar_, &QCalendarWidget::clicked, &connections,
                         [this](QDate day) { form.Act([&] { date_.Choose(day.day(), day.month(), day.year()); }); });
    }
    if (calendar_->isVisible())
        return;
    if (const DateReading reading = ReadDate(date_.text()); !reading.date.empty())
        calendar_->setSelectedDate(QDate::fromString(Text(reading.date), "dd-MM-yyyy"));
    calendar_->adjustSize();
    const QPoint below = line()->mapTo(&form, QPoint(0, line()->height() + 1));
    const int lowest = form.height() - calendar_->height();
    calendar_->move(std::min(below.x(), form.width() - calendar_->width()),
                    below.y() <= lowest ? below.y()
                                        : std::max(0, below.y() - line()->height() - 2 - calendar_->height()));
    calendar_->show();
    calendar_->raise();
}

} // namespace pgbp
