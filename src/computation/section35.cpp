#include "computation/section35.h"

#include "entry/checks.h"
#include "entry/control_array.h"
#include "services/format.h"

namespace pgbp {
namespace {

constexpr const char* kClauses[] = {"35(1)(i)", "35(1)(ii)", "35(1)(iii)", "35(1)(iv)", "35(2AA)", "35(2AB)"};

void AddTo(Label& total, const TextControl& amount) { total = Amount(Val(total) + Val(amount)); }

} // namespace

Section35::Line::Line(Form& form, int itsIndex, const char* clause)
    : index(itsIndex), Label34(form, ArrayName("Label34", index), clause), Txt_1(form, ArrayName("Txt_1", index)),
      Txt_2(form, ArrayName("Txt_2", index)), Txt_3(form, ArrayName("Txt_3", index), "0.00", LabelLook::Amount)
{
}

Section35::Section35(Screen& form, const std::function<void()>& balance)
    : Fra35(form, "Fra35", "Deduction under Section 35 (Scientific research)"),
      lblDebited(form, "lblDebited", "Amount Debited to P && L A/c"),
      lblAllowable(form, "lblAllowable", "Amount of Deduction Allowable"),
      lblDeducted(form, "lblDeducted", "Amount of Deduction"), lblTotal35(form, "lblTotal35", "Total"),
      LblTot_1(form, "LblTot_1", "0.00", LabelLook::Amount), LblTot_2(form, "LblTot_2", "0.00", LabelLook::Amount),
      LblTot_3(form, "LblTot_3", "0.00", LabelLook::Amount), CmdSave35(form, "CmdSave35", "&Save"),
      CmdCanc35(form, "CmdCanc35", "&Cancel"), run_(form.run), form_(form)
{
    for (const char* clause : kClauses) {
        Line& line = lines.emplace_back(form, static_cast<int>(lines.size()), clause);
        line.Txt_1.onChange = line.Txt_2.onChange = [this, &line] { AddUp(line); };
    }
    LayOut();
    CmdSave35.isDefault = true;
    Fra35.onLowered = balance;
    CmdSave35.onClick = [this] { Save(); };
    CmdCanc35.onClick = [this] { Leave(); };
    Fra35.onEscape = [this] {
        if (MayDiscard(run_, Altered()))
            Leave();
    };
}

void Section35::LayOut()
{
    std::vector<LayoutRow> rows = {{{nullptr, &lblDebited, &lblAllowable, &lblDeducted}, RowStyle::Heading}};
    for (Line& line : lines)
        rows.push_back({{&line.Label34, &line.Txt_1, &line.Txt_2, &line.Txt_3}});
    rows.push_back({{&lblTotal35, &LblTot_1, &LblTot_2, &LblTot_3}, RowStyle::Total});
    Fra35.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Amount, LayoutColumn::Amount, LayoutColumn::Amount},
               .rows = std::move(rows),
               .buttonsRight = {&CmdSave35, &CmdCanc35}});
}

void Section35::Open()
{
    Fill();
    opened_.Remember(Fra35);
    form_.Raise(Fra35, lines.front().Txt_1);
}

void Section35::Fill()
{
    const Recordset stored =
        run_.qeltemp.Query("select * from {temp1} where code = ? and [Type] = '35' order by amt4", run_.Code());
    for (Line& line : lines) {
        line.Txt_1 = "0.00";
        line.Txt_2 = "0.00";
    }
    for (const Row row : stored)
        if (Line* line = LineAt(lines, row["amt4"])) {
            line->Txt_1 = Amount(row["amt1"].Number());
            line->Txt_2 = Amount(row["amt2"].Number());
        }
}

void Section35::AddUp(Line& changed)
{
    changed.Txt_3 = Amount(Val(changed.Txt_2) - Val(changed.Txt_1));
    for (Label* total : {&LblTot_1, &LblTot_2, &LblTot_3})
        total->Set("0.00");
    for (const Line& line : lines) {
        AddTo(LblTot_1, line.Txt_1);
        AddTo(LblTot_2, line.Txt_2);
        AddTo(LblTot_3, line.Txt_3);
    }
}

void Section35::Save()
{
    Transaction transaction({run_.qeltemp});
    run_.qeltemp.Delete("from {temp1} where code = ? and [Type] = '35'", run_.Code());
    for (const Line& line : lines)
        run_.qeltemp.Insert("temp1", {{"code", run_.Code()},
                                      {"Type", "35"},
                                      {"name1", line.Label34.text()},
                                      {"amt1", Val(line.Txt_1)},
                                      {"amt2", Val(line.Txt_2)},
                                      {"amt3", Val(line.Txt_3)},
                                      {"amt4", line.index}});
    transaction.Commit();
    form_.TellTakenOver(Fra35.caption.get() + ' ' + LblTot_3.text());
    Leave();
}

void Section35::Leave() { form_.Lower(Fra35); }

} // namespace pgbp
