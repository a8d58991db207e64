#include "computation/Frm10ABC.h"

#include "services/format.h"
#include "services/text.h"
#include "store/schema.h"

namespace pgbp {
namespace {

enum ItemColumn { kSerial, kHead, kSection, kDescription, kAmount };

} // namespace

Frm10ABC::Frm10ABC(Run& itsRun)
    : Screen(itsRun, "Frm10ABC", "Deduction u/s 10A/10B/10C"), MSH(*this, "MSH",
                                                                   {{"SNO", GridColumnKind::Serial},
                                                                    {"Head", GridColumnKind::Text, 2},
                                                                    {"Section", GridColumnKind::Text},
                                                                    {"Description", GridColumnKind::Text, 2},
                                                                    {"Amount", GridColumnKind::Amount}})
{
    LayOut();
    LBLSNO.visible = false;
    TxtDescr.maxLength = ColumnWidth("company", "business1", "name2");
    ClearFields();
    CmdAdd.onClick = [this] { Add(); };
    MSH.onDoubleClick = [this](int row) { TakeBack(row); };
    CmdSave.onClick = [this] { Save(); };
    framain.onEscape = CmdBack.onClick = [this] { Close(); };
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

void Frm10ABC::Open(const Opening& opening)
{
    section_ = opening.subject;
    LBLSNO = std::to_string(section_.index);
    LblSec = Replace(section_.section, "&", "&&");
    LblDescr = Replace(section_.description, "&", "&&");
    for (const Row row : run.qeltemp.Query("select * from {temp1} where code = ? and [Type] = '10ABC' and amt4 = ?" +
                                               std::string(run.qeltemp.dialect().insertionOrder),
                                           run.Code(), section_.index))
        items_.push_back({row["amt4"].Text(), section_.description, row["name1"].Text(), row["name2"].Text(),
                          Amount(row["amt2"].Number())});
    ShowItems();
}

/// An empty grid keeps one blank row.
void Frm10ABC::ShowItems() { MSH.SetRows(items_.empty() ? std::vector<std::vector<std::string>>(1) : items_); }

void Frm10ABC::ClearFields()
{
    TxtDescr = "";
    TxtAmt = "0.00";
}

void Frm10ABC::Add()
{
    if (Val(TxtAmt) <= 0) {
        run.Inform("Please fill Amount...");
        SetFocus(TxtAmt);
        return;
    }
    items_.push_back({LBLSNO.text(), section_.description, section_.section, TxtDescr.text(), Amount(Val(TxtAmt))});
    ShowItems();
    ClearFields();
    SetFocus(TxtDescr);
}

void Frm10ABC::TakeBack(int row)
{
    if (items_.empty())
        return;
    const auto taken = items_.begin() + row - 1;
    TxtDescr = (*taken)[kDescription];
    TxtAmt = (*taken)[kAmount];
    items_.erase(taken);
    ShowItems();
    SetFocus(TxtDescr);
}

void Frm10ABC::Save()
{
    Transaction transaction({run.qeltemp});
    run.qeltemp.Delete("from {temp1} where code = ? and [Type] = '10ABC' and amt4 = ?", run.Code(), section_.index);
    for (const auto& item : items_)
        run.qeltemp.Insert("temp1", {{"code", run.Code()},
                                     {"Type", "10ABC"},
                                     {"name1", item[kSection]},
                                     {"name2", item[kDescription]},
                                     {"amt2", Val(item[kAmount])},
                                     {"amt4", Val(item[kSerial])}});
    transaction.Commit();
    Close();
}

} // namespace pgbp
