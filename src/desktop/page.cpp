#include "desktop/page.h"

#include "desktop/theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QScrollBar>

#include <utility>

namespace pgbp {
namespace {

/// A picture of rows of the page, as they stand there.
class Foot : public QWidget {
  public:
    Foot(Page& page, const std::function<QRect()>& rows) : QWidget(&page), page_(page), rows_(rows) {}

  protected:
    void paintEvent(QPaintEvent*) override
    {
        const QRect shown(QPoint(page_.horizontalScrollBar()->value(), rows_().top()), size());
        QPainter(this).drawPixmap(0, 0, page_.widget()->grab(shown));
    }

  private:
    Page& page_;
    const std::function<QRect()>& rows_;
};

} // namespace

Page::Page(QWidget* parent) : QScrollArea(parent)
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
}

void Page::KeepInSight(std::function<QRect()> rows)
{
    rowsOfFoot_ = std::move(rows);
    foot_ = new Foot(*this, rowsOfFoot_);
    foot_->setAttribute(Qt::WA_TransparentForMouseEvents);
    for (const QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
        QObject::connect(bar, &QScrollBar::valueChanged, foot_, [this] { RefreshFoot(); });
}

void Page::RefreshFoot()
{
    if (!foot_)
        return;
    const QRect rows = rowsOfFoot_();
    const int below = verticalScrollBar()->value() + viewport()->height();
    foot_->setVisible(rows.isValid() && rows.bottom() > below);
    foot_->setGeometry(0, viewport()->height() - rows.height(), viewport()->width(), rows.height());
    foot_->update();
}

void Page::ScrollTo(const QRect& part)
{
    const int foot = foot_ ? foot_->height() : 0;
    const QPoint middle = part.center();
    ensureVisible(middle.x(), middle.y(), part.width() / 2 + kPadding, part.height() / 2 + kPadding + foot);
}

void Page::resizeEvent(QResizeEvent* event)
{
    if (onRoom)
        onRoom(height());
    QScrollArea::resizeEvent(event);
    RefreshFoot();
}

/// What the page stands in learns that the content asks for another size.
bool Page::eventFilter(QObject* object, QEvent* event)
{
    if (object != widget() || event->type() != QEvent::LayoutRequest)
        return QScrollArea::eventFilter(object, event);
    widget()->layout()->activate();
    if (onRoom)
        onRoom(height());
    updateGeometry();
    const bool isDone = QScrollArea::eventFilter(object, event);
    RefreshFoot();
    return isDone;
}

QSize Page::minimumSizeHint() const { return QSize(60 * kUnit, 20 * kUnit).boundedTo(sizeHint()); }

ButtonRow AddButtonRow(QBoxLayout& box)
{
    auto* row = new QHBoxLayout;
    box.addLayout(row);
    const ButtonRow buttons{new QHBoxLayout, new QHBoxLayout};
    row->addLayout(buttons.left);
    row->addStretch(1);
    row->addLayout(buttons.right);
    for (QHBoxLayout* side : {buttons.left, buttons.right})
        side->setSpacing(2 * kUnit);
    return buttons;
}

} // namespace pgbp
