#include "desktop/page.h"

#include "desktop/theme.h"

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

void Page::ScrollTo(QWidget& field)
{
    const int foot = foot_ ? foot_->height() : 0;
    ensureWidgetVisible(&field, kPadding, kPadding + foot);
}

void Page::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    RefreshFoot();
}

QSize Page::minimumSizeHint() const { return {60 * kUnit, 20 * kUnit}; }

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
