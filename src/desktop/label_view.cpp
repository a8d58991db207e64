#include "desktop/label_view.h"

#include "desktop/captions.h"
#include "desktop/elided_label.h"
#include "desktop/form_view.h"
#include "desktop/theme.h"
#include "services/amount_text.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace pgbp {
namespace {

constexpr int kAmountMargin = 2 * kUnit;
constexpr int kLeastCaption = 30 * kUnit; ///< narrower, and the page scrolls

Type TypeOf(const Label& label, const Place& place)
{
    if (place.style == RowStyle::Final)
        return Type::Final;
    if (place.style == RowStyle::Total || place.style == RowStyle::Heading || label.look == LabelLook::Heading)
        return Type::Total;
    return Type::Base;
}

bool IsNumber(const std::string& text) { return text.find_first_not_of("0123456789.,- ") == std::string::npos; }

} // namespace

LabelView::LabelView(Label& itsLabel, FormView& itsForm, const Place& place)
    : ControlView(itsLabel, itsForm), label_(itsLabel), text_(new ElidedLabel(place.parent))
{
    if (const Type type = TypeOf(label_, place); type != Type::Base)
        text_->setFont(FontOf(type));
    text_->setMinimumHeight(RowHeight());
    const bool standsAmongFields = label_.look == LabelLook::Amount && place.column == LayoutColumn::Field;
    if (place.OfAmounts() || standsAmongFields) {
        text_->Ask(AmountWidth(), LeastAmount());
        text_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (standsAmongFields) // as wide as they are
        text_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    if (label_.look == LabelLook::Amount)
        text_->SetBackground(Theme().computed);
    isMuted_ =
        place.column == LayoutColumn::Previous || place.style == RowStyle::Heading || label_.look == LabelLook::Hint;
    if (place.OfAmounts() || label_.look == LabelLook::Amount)
        text_->SetMargin(kAmountMargin); // an amount is never cut: its column grows
    else
        text_->GiveWay(kLeastCaption);
    if (place.OfAmounts() && place.style == RowStyle::Heading)
        text_->Wrap(LeastAmount());
    Shows(text_);
    if (label_.onClick)
        text_->BecomeLink();
    if (label_.onClick || label_.look == LabelLook::Amount)
        form.Watch(text_, *this);
}

void LabelView::FromModel()
{
    ControlView::FromModel();
    const QString plain =
        label_.look == LabelLook::Amount ? Text(GroupedAmount(label_.text())) : PlainCaption(label_.text());
    text_->Show(plain, Text(label_.toolTip));
    text_->SetColor(Color());
}

/// Amounts below zero stand out; what stands in an amount's place without being one ("Not Allowed") steps back.
QColor LabelView::Color() const
{
    const bool isAmount = label_.look == LabelLook::Amount;
    if (label_.onClick)
        return label_.enabled ? Theme().accent : Theme().muted;
    if (isAmount && Val(label_) < 0)
        return Theme().negative;
    return isMuted_ || (isAmount && !IsNumber(label_.text())) ? Theme().muted : Theme().text;
}

bool LabelView::KeyPressed(const QKeyEvent& event)
{
    if (event.key() != Qt::Key_Space)
        return ControlView::KeyPressed(event);
    form.Act([this] { form.form.Type(U' '); });
    return true;
}

bool LabelView::Noticed(QEvent& event)
{
    const bool isClick = label_.onClick && event.type() == QEvent::MouseButtonRelease &&
                         text_->rect().contains(static_cast<QMouseEvent&>(event).position().toPoint());
    if (isClick)
        form.Act([this] { form.form.Click(label_); });
    return isClick;
}

QString LabelView::Copied() const
{
    return label_.look == LabelLook::Amount ? Text(UngroupedAmount(label_.text())) : QString();
}

void LabelView::ShowMarked(bool marked) { text_->SetMarked(marked); }

void LabelView::SetBuddy(QWidget* field) { text_->setBuddy(field); }

} // namespace pgbp
