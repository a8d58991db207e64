#include "desktop/label_view.h"

#include "desktop/captions.h"
#include "desktop/elided_label.h"
#include "desktop/form_view.h"
#include "desktop/theme.h"
#include "services/format.h"

#include <QStyle>
#include <QVariant>

namespace pgbp {
namespace {

constexpr int kAmountMargin = 2 * kUnit;
constexpr int kLeastCaption = 50 * kUnit; ///< narrower, and the page scrolls

Type TypeOf(const label& label, const Place& place)
{
    if (place.style == RowStyle::Final)
        return Type::Final;
    if (place.style == RowStyle::Total || place.style == RowStyle::Heading || label.look == LabelLook::Heading)
        return Type::Total;
    return Type::Base;
}

QString Sign(const std::string& amount)
{
    if (Val(amount) < 0)
        return "negative";
    const bool isNumber = amount.find_first_not_of("0123456789.,- ") == std::string::npos;
    return isNumber ? "" : "words";
}

} // namespace

void MarkSign(QWidget& widget, const std::string& amount)
{
    const QString sign = Sign(amount);
    if (widget.property("sign").toString() == sign)
        return;
    widget.setProperty("sign", sign);
    widget.style()->polish(&widget);
}

LabelView::LabelView(label& itsLabel, FormView& itsForm, const Place& place)
    : ControlView(itsLabel, itsForm), label_(itsLabel), text_(new ElidedLabel(place.parent))
{
    text_->setFont(FontOf(TypeOf(label_, place)));
    text_->setMinimumHeight(RowHeight());
    text_->setProperty("previous", place.column == LayoutColumn::Previous);
    if (place.OfAmounts()) {
        text_->setMinimumWidth(AmountWidth());
        text_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (label_.look == LabelLook::Amount)
        text_->setProperty("look", "amount");
    else if (label_.look == LabelLook::Hint || place.style == RowStyle::Heading)
        text_->setProperty("look", "hint");
    if (place.OfAmounts() || label_.look == LabelLook::Amount)
        text_->SetMargin(kAmountMargin); // an amount is never cut: its column grows
    else
        text_->GiveWay(kLeastCaption);
    Shows(text_);
}

void LabelView::FromModel()
{
    ControlView::FromModel();
    const QString plain = PlainCaption(label_.text());
    text_->Show(plain, Text(label_.toolTip));
    if (QWidget* field = text_->buddy())
        field->setAccessibleName(plain);
    if (label_.look == LabelLook::Amount)
        MarkSign(*text_, label_.text());
}

void LabelView::SetBuddy(QWidget* field) { text_->setBuddy(field); }

} // namespace pgbp
