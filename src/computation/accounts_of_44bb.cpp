#include "computation/accounts_of_44bb.h"

#include "computation/line_rules.h"
#include "records/rows_of_type.h"
#include "services/format.h"

#include <algorithm>

namespace pgbp {

AccountsOf44BB::AccountsOf44BB(Screen& form)
    : Command3(form, "Command3", "&No Books"), Frame1(form, "Frame1", "For P && L (Not for Calculation)"),
      lblreceipts(form, "lblreceipts", "Gross Receipts :"), txtn2(form, "txtn2"),
      lblgross(form, "lblgross", "Gross Profit :"), txtn3(form, "txtn3"),
      lblexpenses(form, "lblexpenses", "Expenses :"), txtn4(form, "txtn4"), lblnet(form, "lblnet", "Net Profit :"),
      txtn5(form, "txtn5"), CmdBFrame1(form, "CmdBFrame1", "&Back"), run_(form.run),
      form_(form), cells_{{269, txtn2}, {270, txtn3}, {271, txtn4}, {272, txtn5}}
{
    Frame1.Lay(
        {.columns = {LayoutColumn::Caption, LayoutColumn::Amount},
         .rows = {{{&lblreceipts, &txtn2}}, {{&lblgross, &txtn3}}, {{&lblexpenses, &txtn4}}, {{&lblnet, &txtn5}}},
         .buttonsRight = {&CmdBFrame1}});
    for (const Cell& cell : cells_)
        cell.field.Set("0.00");
    stored_.Remember(Frame1);
    Command3.onClick = [this] { Open(); };
    Frame1.onEscape = CmdBFrame1.onClick = [this] { form_.Lower(Frame1); };
}

void AccountsOf44BB::Fill()
{
    for (const Row row : ScheduleCells(run_, "NEWPLA").Read("amt1, name8"))
        for (const Cell& cell : cells_)
            if (row["amt1"].Number() == cell.number)
                cell.field.Set(Amount(ParseAmount(row["name8"].Text())));
    stored_.Remember(Frame1);
}

void AccountsOf44BB::Store(const Transaction& proof)
{
    ScheduleCells(run_, "NEWPLA").Delete(proof);
    if (std::any_of(cells_.begin(), cells_.end(), [](const Cell& cell) { return Val(cell.field) != 0; })) {
        for (const Cell& cell : cells_)
            AddCell(cell.number, cell.field, proof);
        constexpr int kNetProfitFrom2017 = 1167;
        if (RulesOf(run_).AddsProfessionWithoutBooks())
            AddCell(kNetProfitFrom2017, txtn5, proof);
    }
    stored_.Remember(Frame1);
}

void AccountsOf44BB::AddCell(int number, const txtn& field, const Transaction& proof) const
{
    ScheduleCells(run_, "NEWPLA").Add({{"name9", "ASdf"}, {"name8", Rupees(Val(field))}, {"amt1", number}}, proof);
}

void AccountsOf44BB::Open()
{
    run_.Inform("Fill Information in this option only in case of 44BB");
    form_.Raise(Frame1, txtn2);
}

} // namespace pgbp
