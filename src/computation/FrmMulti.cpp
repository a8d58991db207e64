#include "computation/FrmMulti.h"

#include "law/presumptive_income.h"
#include "store/schema.h"

namespace pgbp {

FrmMulti::FrmMulti(Run& itsRun)
    : Screen(itsRun, "FrmMulti", "Multiple Business u/s 44AD"), BusinessFields(static_cast<Screen&>(*this)),
      MSH(*this, "MSH", GridColumns(Columns())), entry(*this, MSH, cmdaddveh, Columns())
{
    LayOut();
    txtDesc.maxLength = ColumnWidth("company", "business1", "name1");
    txtrece.onChange = [this] {
        if (Val(txtrece) > 0)
            Deem();
    };
    TxtPer.onChange = [this] { Deem(); };
    entry.blankRowWhenEmpty = true;
    entry.checks = {
        {[this] { return txtDesc.text().empty(); }, "Please fill the Decription....", &txtDesc},
        {[this] { return Val(txtrece) <= 0; }, "Please fill the Gross Receipt....", &txtrece},
        {[this] { return Val(Txt44AD) <= 0; }, "Please fill the Gross Receipt....", &Txt44AD},
    };
    entry.complete = [this](BusinessPart&) { percent_ = TxtPer.text(); };
    entry.given = [this](const BusinessPart& business) {
        if (business == BusinessPart())
            TxtPer.Set(percent_, Notify::No);
    };
    entry.changed = [this] { CalcTot(); };
    entry.footer = [this] {
        return std::vector<std::string>{"", "Total", TxtBal1.text(), TxtBal2.text(), TxtBal3.text()};
    };
    CmdBack.isDefault = true;
    CmdBack.onClick = [this] { Back(); };
    framain.onEscape = [this] { Close(); };
    framain.onUndo = [this] { entry.Undo(); };
}

/// The deemed profit last: what is typed of it stays when a business is taken back into the fields.
std::vector<ItemColumn<BusinessPart>> FrmMulti::Columns()
{
    using enum GridColumnKind;
    return {{.shown = {"Sno", Serial}, .member = {}},
            {.shown = {"Description", Text}, .member = &BusinessPart::description, .field = &txtDesc},
            {.shown = {"Gross Receipt", Amount}, .member = &BusinessPart::receipts, .field = &txtrece},
            {.shown = {"Percentage", Rate}, .member = &BusinessPart::percent, .field = &TxtPer},
            {.shown = {"Deemed Profit", Amount}, .member = &BusinessPart::deemed, .field = &Txt44AD}};
}

void FrmMulti::LayOut()
{
    framain.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Button},
                 .rows = {{{&lblDesc, &txtDesc}},
                          {{&lblrece, &txtrece}},
                          {{&lblPer, &TxtPer}},
                          {{&lbl44AD, &Txt44AD, &cmdaddveh}},
                          {{&MSH}}}});
    bar = {&CmdBack};
}

void FrmMulti::Open(const BusinessesOpening& opening)
{
    opening_ = opening;
    entry.Open(opening.businesses);
}

void FrmMulti::Deem() { Txt44AD = Rupees(ProfitAt(Val(TxtPer), Val(txtrece))); }

/// The percentage of all is that of the sums.
void FrmMulti::CalcTot()
{
    double receipts = 0;
    double deemed = 0;
    for (const BusinessPart& business : entry.items()) {
        receipts += business.receipts;
        deemed += business.deemed;
    }
    TxtBal1 = SumText(receipts);
    TxtBal2 = receipts == 0 ? "0.00" : SumText(deemed / receipts * 100);
    TxtBal3 = SumText(deemed);
}

void FrmMulti::Back()
{
    if (!entry.Finish())
        return;
    opening_.taken(entry.items());
    run.screens.Return();
}

void FrmMulti::Close()
{
    if (MayDiscard(run, entry.Altered()))
        run.screens.Return();
}

} // namespace pgbp
