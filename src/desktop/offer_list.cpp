#include "desktop/offer_list.h"

#include "desktop/captions.h"
#include "desktop/cell_delegate.h"
#include "desktop/theme.h"

#include <algorithm>

namespace pgbp {

OfferList::OfferList(QWidget* form) : QListWidget(form)
{
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName("Used before");
    setItemDelegate(new CellDelegate(*this, 0));
    setUniformItemSizes(true);
    for (const auto set : {&QListWidget::setHorizontalScrollBarPolicy, &QListWidget::setVerticalScrollBarPolicy})
        (this->*set)(Qt::ScrollBarAlwaysOff);
}

void OfferList::ShowFor(const QWidget& field, const Offers& offers)
{
    Fill(offers);
    if (currentRow() != offers.marked())
        setCurrentRow(offers.marked());
    PlaceAt(field);
    show();
    raise();
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

void OfferList::PlaceAt(const QWidget& field)
{
    const QRect over(field.mapTo(parentWidget(), QPoint()), field.size());
    resize(over.width(), count() * GridRowHeight() + 2 * kUnit);
    const bool fits = over.bottom() + height() < parentWidget()->height();
    move(over.left(), fits ? over.bottom() + 2 : std::max(0, over.top() - 1 - height()));
}

} // namespace pgbp
