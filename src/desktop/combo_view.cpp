#include "desktop/combo_view.h"

#include "desktop/captions.h"
#include "desktop/form_view.h"
#include "desktop/theme.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace pgbp {
namespace {

constexpr int kMostInSight = 16; ///< entries; of more the list scrolls

/// The style sheet takes the style's own arrow away.
class DropBox : public QComboBox {
  public:
    using QComboBox::QComboBox;

    /// Begins with the first entry where none is chosen.
    void showPopup() override
    {
        QComboBox::showPopup();
        if (currentIndex() < 0 && count() > 0) {
            view()->setCurrentIndex(model()->index(0, modelColumn(), rootModelIndex()));
            view()->scrollToTop();
        }
    }

  protected:
    void paintEvent(QPaintEvent* event) override
    {
        QComboBox::paintEvent(event);
        QPainter painter(this);
        PaintArrow(painter, QRect(width() - 22, 0, 16, height()));
    }
};

} // namespace

ComboView::ComboView(combo& itsCombo, FormView& itsForm, const Place& place)
    : ControlView(itsCombo, itsForm), combo_(itsCombo), box_(new DropBox(place.parent))
{
    box_->setProperty("cell", place.inCell);
    if (!place.inCell) {
        box_->setFixedHeight(RowHeight());
        box_->setMinimumWidth(30 * kUnit);
    }
    box_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed); // as wide as a field of text
    box_->setEditable(combo_.editable);
    box_->setMaxVisibleItems(kMostInSight);
    box_->setInsertPolicy(QComboBox::NoInsert);
    box_->setFocusPolicy(Qt::TabFocus);
    if (combo_.editable) {
        box_->setCompleter(nullptr);
        box_->lineEdit()->setFocusPolicy(Qt::TabFocus);
        typing_ = std::make_unique<TextSync>(combo_, form, MakeEditor(*box_->lineEdit()));
        form.Watch(box_->lineEdit(), *this);
    }
    form.Watch(box_, *this);
    QObject::connect(box_, &QComboBox::activated, &connections,
                     [this](int item) { form.Act([&] { combo_.Choose(item); }); });
    Shows(box_);
}

QComboBox* MakeDropBox(QWidget* parent) { return new DropBox(parent); }

QWidget* ComboView::keyboard() const { return typing_ ? static_cast<QWidget*>(box_->lineEdit()) : box_; }

void ComboView::FromModel()
{
    ControlView::FromModel();
    ShowItems();
    if (box_->currentIndex() != combo_.Chosen())
        box_->setCurrentIndex(combo_.Chosen());
    if (typing_)
        typing_->FromModel();
}

void ComboView::Forget()
{
    if (typing_)
        typing_->Forget();
}

void ComboView::ShowItems()
{
    const auto& items = combo_.items();
    const auto same = [&](int i) { return box_->itemText(i) == Text(items[static_cast<std::size_t>(i)]); };
    bool alike = box_->count() == static_cast<int>(items.size());
    for (int i = 0; alike && i < box_->count(); ++i)
        alike = same(i);
    if (alike)
        return;
    box_->clear();
    for (const auto& item : items)
        box_->addItem(Text(item));
}

bool ComboView::KeyPressed(const QKeyEvent& event)
{
    const bool dropsDown =
        event.key() == Qt::Key_F4 || (event.key() == Qt::Key_Down && event.modifiers() & Qt::AltModifier);
    if (dropsDown) {
        box_->showPopup();
        return true;
    }
    if (typing_ && typing_->KeyPressed(event))
        return true;
    const std::u32string typed = typing_ ? std::u32string() : TypedText(event);
    for (const char32_t character : typed)
        form.Act([&] { form.form.Type(character); });
    return !typed.empty() || ControlView::KeyPressed(event);
}

/// A turn of the wheel scrolls the page; it would change the choice unseen.
bool ComboView::Noticed(QEvent& event)
{
    if (event.type() == QEvent::Wheel)
        event.ignore();
    return event.type() == QEvent::Wheel || (typing_ && typing_->Noticed(event));
}

} // namespace pgbp
