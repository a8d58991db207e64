#pragma once

#include <QWidget>

#include <vector>

namespace pgbp {

class FrameView;

/// Lies over the main frame while a side frame is up: dims what lies below the card in front, keeps the mouse from it,
/// and shows the card in the middle.
class CardLayer : public QWidget {
  public:
    explicit CardLayer(QWidget* pages);

    void Add(FrameView& card);
    /// Shows itself while a card is up and puts the cards in their place.
    void Arrange();
    /// Room for every card, shown or not.
    QSize sizeHint() const override;

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    QRect PlaceOf(const FrameView& card) const;

    QWidget* veil_;
    std::vector<FrameView*> cards_;
};

} // namespace pgbp
