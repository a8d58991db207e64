#include "desktop/over_field.h"

#include <QEvent>
#include <QWidget>

namespace pgbp {

OverField::OverField(QWidget& widget, QWidget& field, std::function<void(const QRect& field)> place)
    : QObject(&widget), widget_(widget), field_(field), place_(std::move(place))
{
    for (QWidget* around = &field; around; around = around->parentWidget()) {
        around->installEventFilter(this);
        if (around == widget.parentWidget())
            break;
    }
}

void OverField::Show()
{
    Place();
    widget_.show();
}

void OverField::Place()
{
    place_(QRect(field_.mapTo(widget_.parentWidget(), QPoint()), field_.size()));
    widget_.raise();
}

bool OverField::eventFilter(QObject* object, QEvent* event)
{
    if (widget_.isVisible() && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
        Place();
    return QObject::eventFilter(object, event);
}

} // namespace pgbp
