#include "desktop/label_view.h"

#include "desktop/captions.h"
#include "desktop/form_view.h"
#include "desktop/theme.h"
#include "services/format.h"

#include <QLabel>
#include <QStyle>
#include <QVariant>

namespace pgbp {
namespace {

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
    : ControlView(itsLabel, itsForm), label_(itsLabel), text_(new QLabel(place.parent))
{
    const bool isAmount = label_.look == LabelLook::Amount;
    text_->setFont(FontOf(TypeOf(label_, place)));
    text_->setTextFormat(Qt::PlainText);
    text_->setMinimumHeight(RowHeight());
    if (place.column == LayoutColumn::Amount) {
        text_->setFixedWidth(AmountWidth());
        text_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (!isAmount)
            text_->setContentsMargins(0, 0, 8, 0);
    }
    if (isAmount)
        text_->setProperty("look", "amount");
    else if (label_.look == LabelLook::Hint || place.style == RowStyle::Heading)
        text_->setProperty("look", "hint");
    Shows(text_);
}

void LabelView::FromModel()
{
    ControlView::FromModel();
    const QString plain = PlainCaption(label_.text());
    QWidget* field = text_->buddy();
    // with a buddy the toolkit would read "&" as a short-cut of its own
    text_->setText(field ? QString(plain).replace('&', "&&") : plain);
    if (field)
        field->setAccessibleName(plain);
    if (label_.look == LabelLook::Amount)
        MarkSign(*text_, label_.text());
}

void LabelView::SetBuddy(QWidget* field) { text_->setBuddy(field); }

} // namespace pgbp
