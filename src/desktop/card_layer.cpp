#include "desktop/card_layer.h"

#include "controls/form.h"
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

CardLayer::CardLayer(const Form& form, QWidget* over, QWidget* pages)
    : QWidget(over), form_(form), pages_(pages), veil_(new Veil(this))
{
    for (QWidget* room : {over, pages})
        room->installEventFilter(this);
}

void CardLayer::Add(FrameView& card)
{
    cards_.push_back(&card);
    card.widget()->installEventFilter(this);
}

FrameView* CardLayer::ViewOf(const Frame* card) const
{
    const auto found =
        std::find_if(cards_.begin(), cards_.end(), [&](const auto* view) { return &view->control == card; });
    return found == cards_.end() ? nullptr : *found;
}

void CardLayer::Arrange()
{
    setGeometry(parentWidget()->rect());
    if (isHidden()) // from then on what belongs to a field lies above
        raise();
    setVisible(!form_.Cards().empty());
    if (isHidden())
        return;
    QRect covered = pages_->geometry();
    for (const Frame* up : form_.Cards()) {
        const FrameView* card = ViewOf(up);
        if (!card) // is drawn at the next refresh
            continue;
        const QRect place = PlaceOf(*card);
        if (!covered.contains(place))
            covered = rect();
        card->widget()->setGeometry(place);
        veil_->raise();
        card->widget()->raise();
    }
    veil_->setGeometry(covered);
    setMask(covered);
}

QSize CardLayer::sizeHint() const
{
    QSize room;
    for (const FrameView* card : cards_)
        room = room.expandedTo(card->widget()->sizeHint() + kAround);
    return room;
}

/// As large as its rows ask; with a list or a grid, which scrolls, as high as the page and three quarters as wide.
QRect CardLayer::PlaceOf(const FrameView& card) const
{
    const QRect page = pages_->geometry();
    const QSize ofPage = page.size() - kAround;
    const QSize asked = card.widget()->sizeHint();
    const QSize ofList(std::max(asked.width(), ofPage.width() * 3 / 4),
                       std::max(card.widget()->minimumSizeHint().height(), ofPage.height()));
    const QSize wanted = card.TakesHeight() ? ofList : asked;
    QRect place(QPoint(), wanted.boundedTo({ofPage.width(), height()}));
    place.moveCenter(page.center());
    const int lowest = std::max(rect().bottom() - place.height() + 1, 0);
    place.moveTop(std::clamp(place.top(), std::min(kAround.height() / 2, lowest), lowest));
    return place;
}

bool CardLayer::eventFilter(QObject* object, QEvent* event)
{
    const bool isOfRoom = object == pages_ || object == parentWidget();
    if (event->type() == (isOfRoom ? QEvent::Resize : QEvent::LayoutRequest))
        Arrange();
    return QWidget::eventFilter(object, event);
}

void CardLayer::mousePressEvent(QMouseEvent* event) { event->accept(); }

} // namespace pgbp
