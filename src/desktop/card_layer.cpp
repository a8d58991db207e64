#include "desktop/card_layer.h"

#include "desktop/frame_view.h"
#include "desktop/theme.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace pgbp {
namespace {

constexpr QSize kAround(4 * kUnit, 4 * kUnit);

class Veil : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override
    {
        QColor color = Theme().window;
        color.setAlphaF(0.7F);
        QPainter(this).fillRect(rect(), color);
    }
};

} // namespace

CardLayer::CardLayer(const Form& form, QWidget* pages) : QWidget(pages), form_(form), veil_(new Veil(this))
{
    pages->installEventFilter(this);
}

void CardLayer::Add(FrameView& card) { cards_.push_back(&card); }

FrameView& CardLayer::ViewOf(const frame* card) const
{
    return **std::find_if(cards_.begin(), cards_.end(), [&](const auto* view) { return &view->control == card; });
}

void CardLayer::Arrange()
{
    setGeometry(parentWidget()->rect());
    setVisible(!form_.Cards().empty());
    if (isHidden())
        return;
    raise();
    veil_->setGeometry(rect());
    for (const frame* up : form_.Cards()) {
        const FrameView& card = ViewOf(up);
        card.widget()->setGeometry(PlaceOf(card));
        veil_->raise();
        card.widget()->raise();
    }
}

QSize CardLayer::sizeHint() const
{
    QSize room;
    for (const FrameView* card : cards_)
        room = room.expandedTo(card->widget()->sizeHint() + kAround);
    return room;
}

/// As large as its rows ask; a list or a grid takes three quarters of the room.
QRect CardLayer::PlaceOf(const FrameView& card) const
{
    const QSize room = size() - kAround;
    const QSize asked = card.widget()->sizeHint();
    const QSize wanted = card.TakesHeight() ? asked.expandedTo(room * 3 / 4) : asked;
    QRect place(QPoint(), wanted.boundedTo(room));
    place.moveCenter(rect().center());
    return place;
}

bool CardLayer::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        Arrange();
    return QWidget::eventFilter(object, event);
}

void CardLayer::mousePressEvent(QMouseEvent* event) { event->accept(); }

} // namespace pgbp
