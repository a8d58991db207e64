#pragma once

#include <QScrollArea>

class QBoxLayout;
class QHBoxLayout;

namespace pgbp {

/// Scrolls its content when there is less room than it asks for. The content is made with the viewport as its parent:
/// a widget that changes parents is dressed by the style sheet twice.
class Page : public QScrollArea {
  public:
    explicit Page(QWidget* parent);

    QSize sizeHint() const override { return widget()->sizeHint(); }
    QSize minimumSizeHint() const override;
};

/// One row of buttons: ways to other places at the left, Save, Cancel and Back at the right.
struct ButtonRow {
    QHBoxLayout* left;
    QHBoxLayout* right;
};
ButtonRow AddButtonRow(QBoxLayout& box);

} // namespace pgbp
