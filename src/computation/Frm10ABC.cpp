#include "computation/Frm10ABC.h"

#include "services/format.h"
#include "services/text.h"
#include "store/schema.h"

namespace pgbp {

Frm10ABC::Frm10ABC(Run& itsRun)
    : Screen(itsRun, "Frm10ABC", "Deduction u/s 10A/10B/10C"), MSH(*this, "MSH", GridColumns(Columns())),
      entry(*this, MSH, CmdAdd, Columns())
{
    LayOut();
    LBLSNO.visible = false;
    TxtDescr.maxLength = ColumnWidth("company", "business1", "name2");
    entry.blankRowWhenEmpty = true;
    entry.checks = {{[this] { return Val(TxtAmt) <= 0; }, "Please fill Amount...", &TxtAmt}};
    entry.complete = [this](ClaimedItem& item) {
        item.serial = LBLSNO.text();
        item.head = section_.description;
        item.section = section_.section;
    };
    CmdSave.onClick = [this] { Save(); };
    framain.onEscape = CmdBack.onClick = [this] { Close(); };
    framain.onUndo = [this] { entry.Undo(); };
}

std::vector<ItemColumn<ClaimedItem>> Frm10ABC::Columns()
{
    using enum GridColumnKind;
    return {{.shown = {"SNO", Serial}, .member = &ClaimedItem::serial},
            {.shown = {"Head", Text, 2}, .member = &ClaimedItem::head},
            {.shown = {"Section", Text}, .member = &ClaimedItem::section},
            {.shown = {"Description", Text, 2}, .member = &ClaimedItem::description, .field = &TxtDescr},
            {.shown = {"Amount", Amount}, .member = &ClaimedItem::amount, .field = &TxtAmt}};
}

void Frm10ABC::LayOut()
{
    framain.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Button},
                 .rows = {{{&lblsecc, &LblSec}},
                          {{&lblheadc, &LblDescr}},
                          {{&lbldescrc, &TxtDescr}},
                          {{&lblamtc, &TxtAmt, &CmdAdd}},
                          {{&MSH}}}});
    CmdSave.isDefault = true;
    bar = {&CmdSave, &CmdBack};
}

void Frm10ABC::Open(const SectionOpening& opening)
{
    section_ = opening;
    caption = "Deduction u/s " + section_.section + '-' + section_.description;
    LBLSNO = std::to_string(section_.index);
    LblSec.ShowData(section_.section);
    LblDescr.ShowData(section_.description);
    std::vector<ClaimedItem> items;
    for (const Row row : run.qeltemp.Query("select * from {temp1} where code = ? and [Type] = '10ABC' and amt4 = ?" +
                                               std::string(run.qeltemp.dialect().insertionOrder),
                                           run.Code(), section_.index))
        items.push_back(
            {row["amt4"].Text(), section_.description, row["name1"].Text(), row["name2"].Text(), row["amt2"].Number()});
    entry.Open(std::move(items));
}

void Frm10ABC::Close()
{
    if (MayDiscard(run, entry.Altered()))
        run.screens.Return();
}

void Frm10ABC::Save()
{
    if (!entry.Finish())
        return;
    Transaction transaction({run.qeltemp});
    run.qeltemp.Delete("from {temp1} where code = ? and [Type] = '10ABC' and amt4 = ?", run.Code(), section_.index);
    for (const ClaimedItem& item : entry.items())
        run.qeltemp.Insert("temp1", {{"code", run.Code()},
                                     {"Type", "10ABC"},
                                     {"name1", item.section},
                                     {"name2", item.description},
                                     {"amt2", item.amount},
                                     {"amt4", Val(item.serial)}});
    transaction.Commit();
    TellTakenOver(caption.get() + ": " + entry.Summary());
    run.screens.Return();
}

} // namespace pgbp
