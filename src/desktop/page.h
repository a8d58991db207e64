#pragma once

#include <QScrollArea>

#include <functional>

class QBoxLayout;
class QHBoxLayout;

namespace pgbp {

/// Scrolls its content when there is less room than it asks for. The content is made with the viewport as its parent:
/// a widget that changes parents is dressed by the style sheet twice.
class Page : public QScrollArea {
  public:
    explicit Page(QWidget* parent);

    /// Rows of the content that are seen at the foot of the page as long as they are scrolled out of sight; `rows`
    /// gives their place in the content, empty when there are none.
    void KeepInSight(std::function<QRect()> rows);
    /// Makes the foot like the content.
    void RefreshFoot();
    /// Scrolls so far that this part of the content is seen.
    void ScrollTo(const QRect& part);

    /// Called with the height there is whenever it or the content changes.
    std::function<void(int height)> onRoom;

    QSize sizeHint() const override { return widget()->sizeHint(); }
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    std::function<QRect()> rowsOfFoot_;
    QWidget* foot_ = nullptr;
};

/// One row of buttons: ways to other places at the left, Save, Cancel and Back at the right.
struct ButtonRow {
    QHBoxLayout* left;
    QHBoxLayout* right;
};
ButtonRow AddButtonRow(QBoxLayout& box);

} // namespace pgbp
