#include "entry/list_frame.h"

#include "records/used_texts.h"
#include "services/text.h"

namespace pgbp {

ListFrame::ListFrame(Screen& form, const Names& names, std::vector<ItemColumn<WorkItem>> columns)
    : panel(form, names.panel), rows(form, names.rows, GridColumns(columns)), add(form, names.add, "&Add"),
      save(form, names.save, "&Save"), back(form, names.back, "&Cancel"), entry(form, rows, add, std::move(columns)),
      form_(form)
{
    save.isDefault = true;
    entry.changed = [this] { WriteWorkList(form_.run, entry.items()); };
    save.onClick = [this] { Save(); };
    back.onClick = [this] { Leave(); };
    panel.onUndo = [this] { entry.Undo(); };
    panel.onEscape = [this] {
        if (MayDiscard(form_.run, Altered()))
            Leave();
    };
}

void ListFrame::Open(const AdjustmentList& list)
{
    list_ = &list;
    panel.caption = list.caption.text();
    Prepare(list);
    OfferUsedTexts();
    entry.Open(ReadWorkList(form_.run, list.type));
    form_.Raise(panel, entry.FirstField());
}

void ListFrame::OfferUsedTexts()
{
    const UsedTexts used = TextsUsedInLists(form_.run, list_->type);
    for (const ItemColumn<WorkItem>& column : entry.columns()) {
        const auto* text = std::get_if<std::string WorkItem::*>(&column.member);
        if (text && column.field && *text == &WorkItem::name1)
            column.field->SetOffers(used.name1);
        if (text && column.field && *text == &WorkItem::name2)
            column.field->SetOffers(used.name2);
    }
}

bool ListFrame::Altered() const { return list_ && (entry.Altered() || (list_->alteredAlong && list_->alteredAlong())); }

void ListFrame::Save()
{
    if (!entry.Finish())
        return;
    const Run& run = form_.run;
    Transaction transaction = list_->storeAlong ? Transaction({run.balance, run.qeltemp}) : Transaction({run.qeltemp});
    SaveWorkList(run, list_->type);
    if (list_->storeAlong)
        list_->storeAlong(transaction);
    transaction.Commit();
    form_.TellTakenOver(Replace(panel.caption.get(), "&&", "&") + ' ' + entry.Summary());
    Leave();
}

void ListFrame::Leave()
{
    DropWorkList(form_.run);
    entry.Close();
    list_ = nullptr;
    Restore();
    form_.Lower(panel);
}

} // namespace pgbp
