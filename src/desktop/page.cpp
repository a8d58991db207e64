#include "desktop/page.h"

#include "desktop/theme.h"

#include <QHBoxLayout>

namespace pgbp {

Page::Page(QWidget* parent) : QScrollArea(parent)
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
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
