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
#include <QTextCharFormat>
#include <QToolButton>

#include <algorithm>

namespace pgbp {
namespace {

QIcon Arrow(qreal ratio)
{
    constexpr int size = 16;
    QPixmap picture(QSize(size, size) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    PaintArrow(painter, QRectF(0, 0, size, size));
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
    if (!calendar_)
        MakeCalendar();
    if (calendar_->isVisible())
        return;
    if (const DateReading reading = ReadDate(date_.text()); !reading.date.empty())
        calendar_->setSelectedDate(QDate::fromString(Text(reading.date), "dd-MM-yyyy"));
    calendar_->move(PlaceOfCalendar());
    calendar_->show();
    calendar_->raise();
}

void DateView::MakeCalendar()
{
    calendar_ = new QCalendarWidget(&form);
    calendar_->setFocusPolicy(Qt::NoFocus);
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar_->setAutoFillBackground(true);
    QTextCharFormat plain;
    plain.setForeground(Theme().text);
    calendar_->setWeekdayTextFormat(Qt::Saturday, plain);
    calendar_->setWeekdayTextFormat(Qt::Sunday, plain);
    for (const auto& [name, sign] : {std::pair("qt_calendar_prevmonth", "\u2039"), {"qt_calendar_nextmonth", "\u203A"}})
        if (auto* button = calendar_->findChild<QToolButton*>(name)) {
            button->setIcon({});
            button->setText(QString::fromUtf8(sign));
        }
    calendar_->resize(calendar_->sizeHint() + QSize(0, RowHeight()));
    QObject::connect(calendar_, &QCalendarWidget::clicked, &connections,
                     [this](QDate day) { form.Act([&] { date_.Choose(day.day(), day.month(), day.year()); }); });
}

/// Below the field, above it where the window ends.
QPoint DateView::PlaceOfCalendar() const
{
    const QRect field(line()->mapTo(&form, QPoint(0, 0)), line()->size());
    const bool fits = field.bottom() + calendar_->height() < form.height();
    return {std::min(field.left(), form.width() - calendar_->width()),
            fits ? field.bottom() + 2 : std::max(0, field.top() - 1 - calendar_->height())};
}

} // namespace pgbp
