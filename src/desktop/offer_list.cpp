#include "desktop/offer_list.h"

#include "desktop/captions.h"
#include "desktop/cell_delegate.h"
#include "desktop/theme.h"

#include <algorithm>

namespace pgbp {

OfferList::OfferList(QWidget* form, QWidget& field)
    : QListWidget(form), over_(*this, field, [this](const QRect& place) { PlaceAt(place); })
{
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName("To choose from");
    setItemDelegate(new CellDelegate(*this, 0));
    setUniformItemSizes(true);
    for (const auto set : {&QListWidget::setHorizontalScrollBarPolicy, &QListWidget::setVerticalScrollBarPolicy})
        (this->*set)(Qt::ScrollBarAlwaysOff);
}

void OfferList::Show(const Offers& offers)
{
    Fill(offers);
    if (currentRow() != offers.marked())
        setCurrentRow(offers.marked());
    over_.Show();
}

void OfferList::Fill(const Offers& offers)
{
    const auto& texts = offers.shown();
    bool alike = count() == static_cast<int>(texts.size());
    for (int i = 0; alike && i < count(); ++i)
        alike = item(i)->text() == Text(texts[static_cast<std::size_t>(i)]);
    if (alike)
        return;
    clear();
    for (const std::string& text : texts)
        (new QListWidgetItem(Text(text), this))->setSizeHint({0, GridRowHeight()});
}

void OfferList::PlaceAt(const QRect& field)
{
    resize(field.width(), count() * GridRowHeight() + kUnit);
    const bool fits = field.bottom() + height() < parentWidget()->height();
    move(field.left(), fits ? field.bottom() + 2 : std::max(0, field.top() - 1 - height()));
}

} // namespace pgbp
