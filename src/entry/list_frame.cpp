#include "entry/list_frame.h"

#include "records/used_texts.h"
#include "services/text.h"

namespace pgbp {

ListFrame::ListFrame(Screen& itsScreen, const Names& names, std::vector<ItemColumn<WorkItem>> columns)
    : EntryFrame(itsScreen, names, std::move(columns))
{
    entry.changed = [this] { WriteWorkList(screen.run, entry.items()); };
}

void ListFrame::Open(const AdjustmentList& list)
{
    list_ = &list;
    panel.caption = list.caption.text();
    Prepare(list);
    OfferUsedTexts();
    Raise(ReadWorkList(screen.run, list.type));
}

void ListFrame::OfferUsedTexts()
{
    const UsedTexts used = TextsUsedInLists(screen.run, list_->type);
    for (const ItemColumn<WorkItem>& column : entry.columns()) {
        const auto* text = std::get_if<std::string WorkItem::*>(&column.member);
        if (text && column.field && *text == &WorkItem::name1)
            column.field->SetOffers(used.name1);
        if (text && column.field && *text == &WorkItem::name2)
            column.field->SetOffers(used.name2);
    }
}

bool ListFrame::Altered() const { return list_ && (entry.Altered() || (list_->alteredAlong && list_->alteredAlong())); }

void ListFrame::Store()
{
    const Run& run = screen.run;
    Transaction transaction = list_->storeAlong ? Transaction({run.balance, run.qeltemp}) : Transaction({run.qeltemp});
    SaveWorkList(run, list_->type);
    if (list_->storeAlong)
        list_->storeAlong(transaction);
    transaction.Commit();
    screen.TellTakenOver(Replace(panel.caption.get(), "&&", "&") + ' ' + entry.Summary());
}

void ListFrame::Leaving()
{
    DropWorkList(screen.run);
    list_ = nullptr;
    Restore();
}

} // namespace pgbp
