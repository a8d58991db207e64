#include "computation/frmbusinesscal1.h"

#include "computation/statement_figures.h"
#include "records/working_copies.h"
#include "services/format.h"

namespace pgbp {

frmbusinesscal1::frmbusinesscal1(Run& itsRun) : Screen(itsRun, "frmbusinesscal1", "Speculation Business")
{
    LayOut();
    Wire();
}

void frmbusinesscal1::LayOut()
{
    fra2.LayOut({}, {});
    framain.Lay({.columns = {LayoutColumn::Button, LayoutColumn::Caption, LayoutColumn::Amount},
                 .rows = {{{&header.lbldescr, &header.txtdescr1}},
                          {{nullptr, &header.txtdescr2}},
                          {{&header.CmdPNL, &header.lblpnl, &header.txtpnl}},
                          {{nullptr, &lbladd}},
                          {{&cmd28a, &lbl28ac, &lbl28a}},
                          {{nullptr, &lbltot1c, &lbltot1}, RowStyle::Total},
                          {{nullptr, &lbldeduct}},
                          {{&cmd28l, &lbl28lc, &lbl28l}},
                          {{nullptr, &lblincomec, &lblincome}, RowStyle::Final}},
                 .buttonsRight = {&header.CmdSave, &header.CmdDel}});
    bar = {&header.CmdBack};
}

void frmbusinesscal1::Wire()
{
    header.txtpnl.onChange = [this] { CalBalance(); };
    for (const AdjustmentList* list : {&added_, &deducted_})
        list->button.onClick = [this, list] { fra2.Open(*list); };
    fra2.panel.onLowered = [this] { RefreshTotals(); };
    fra2.entry.checks = {{[this] { return Val(fra2.txtamount1) == 0; }, "Please fill Amount...", &fra2.txtamount1}};
    header.CmdSave.onClick = [this] { Save(); };
    header.CmdDel.onClick = [this] { Delete(); };
    framain.onEscape = header.CmdBack.onClick = [this] { Back(); };
}

void frmbusinesscal1::Open(const LineOpening& opening)
{
    EmptyWorkingCopies(run);
    header.Open(opening);
    header.ShowWayToStatement();
    if (header.IsEdit())
        header.TakeLists(CopyLineToWork(run, header.Sno(), DetailRows::WithFirstAmount));
    RefreshTotals();
}

void frmbusinesscal1::Activate()
{
    if (header.ProfitIsOfStatement() && header.IsEdit())
        header.txtpnl = Amount(ReadPlainNetProfit(run, header.Sno()));
    header.Opened({&framain});
}

void frmbusinesscal1::RefreshTotals()
{
    totals_.Read(run);
    CalBalance();
}

void frmbusinesscal1::CalBalance()
{
    lbl28a = SumText(totals_.Amt1("28a"));
    lbl28l = SumText(totals_.Amt1("28l"));
    lbltot1 = SumText(Val(header.txtpnl) + Val(lbl28a));
    lblincome = SumText(Val(lbltot1) - Val(lbl28l));
}

void frmbusinesscal1::Save()
{
    if (header.RefusesSave(Val(header.txtpnl) == 0 && Val(lbl28a) == 0 && Val(lbl28l) == 0))
        return;
    // A new specified line is stored without a kind, which the summary does not list; a stored one keeps its own.
    const auto type = run.GlBusinessKind == kSpecified ? std::nullopt : std::optional(TypeOf(kSpeculation));
    Transaction transaction({run.company});
    const double sno =
        header.WriteRow(type, {{"PNL", Val(header.txtpnl)}, {"NET", Val(lblincome)}, {"dep1", 0}}, transaction);
    CopyWorkToLine(
        run, sno, [](std::string_view) { return true; }, Apostrophes::Keep);
    transaction.Commit();
    TellSaved(header.Name(), Val(lblincome));
    run.screens.Return();
}

void frmbusinesscal1::Delete()
{
    if (header.Delete())
        run.screens.Return();
}

void frmbusinesscal1::Back()
{
    if (Frame* card = Card())
        return card->onEscape();
    Close();
}

void frmbusinesscal1::Close()
{
    if (MayDiscard(run, header.Altered() || fra2.Altered()))
        run.screens.Return();
}

} // namespace pgbp
