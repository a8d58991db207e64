#pragma once

#include <QWidget>

#include <vector>

namespace pgbp {

class Form;
class FrameView;
class Frame;

/// Lies over the main frame while a side frame is up: dims what lies below the card in front, keeps the mouse from it,
/// and shows the card in the middle. The form's order of its cards is what is drawn. A card that asks for more height
/// takes that of the buttons below the page, too.
class CardLayer : public QWidget {
  public:
    /// `over` is what it may cover, `pages` a part of that.
    CardLayer(const Form& form, QWidget* over, QWidget* pages);

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

    FrameView* ViewOf(const Frame* card) const;

    const Form& form_;
    QWidget* pages_;
    QWidget* veil_;
    std::vector<FrameView*> cards_;
};

} // namespace pgbp
