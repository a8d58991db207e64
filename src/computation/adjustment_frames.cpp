#include "computation/adjustment_frames.h"

#include "services/format.h"
#include "services/text.h"
#include "store/schema.h"

#include <algorithm>

namespace pgbp {
namespace {

constexpr const char* kFillAmount = "Please fill Amount...";

/// All texts of a list end up in the detail rows of the line.
void Limit(std::initializer_list<TextBox*> fields)
{
    for (TextBox* field : fields)
        field->maxLength = ColumnWidth("company", "business1", "name1");
}

bool IsAnyOf(const TextBox& field, std::initializer_list<std::string_view> texts)
{
    return std::any_of(texts.begin(), texts.end(),
                       [&](std::string_view text) { return EqualsIgnoringCase(Trim(field.text()), text); });
}

} // namespace

DescriptionList::DescriptionList(Screen& form)
    : ListFrame(form, {"fra1", "DBGrid1", "CmdAdd", "cmdsavefra", "CmdBackFra"},
                {{"name1", txtname, "", {"Description", GridColumnKind::Text}},
                 {"amt1", txtamount, "0.00", {"Amount", GridColumnKind::Amount}},
                 {"name2", CboExType, "", {"Exemption Type", GridColumnKind::Hidden}, false}}),
      lblname(form, "lblname", "Description :"), txtname(form, "txtname", true),
      Label5(form, "Label5", "Please Fill PAN in desc. box in case of Share in Profit from AOP/BOI/Firm",
             LabelLook::Hint),
      lblExemption(form, "Label41(39)", "Exemption Type :"), CboExType(form, "CboExType"),
      ChkDiv(form, "ChkDiv", "Dividend Income"), lblamount(form, "lblamount", "Amount :"), txtamount(form, "txtamount"),
      lblpart3(form, "lblpart3", "Allowable Remuneration :"),
      lblpart3Amount(form, "lblpart3Amount", "0.00", LabelLook::Amount)
{
    panel.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Button},
               .rows = {{{&lblname, &txtname}},
                        {{nullptr, &Label5}},
                        {{&lblExemption, &CboExType}},
                        {{nullptr, &ChkDiv}},
                        {{&lblamount, &txtamount, &add}},
                        {{&rows}},
                        {{&lblpart3, &lblpart3Amount}}},
               .buttonsRight = {&save, &back}});
    Limit({&txtname});
    txtname.onKeyPress = DropQuotes;
    CboExType.SetItems({"Share from Partnership Firm", "Share from AOP/BOI", "Others"});
    ChkDiv.visible = false;
    checks = {{[this](auto) { return Val(txtamount) == 0; }, kFillAmount, &txtamount}};
}

void DescriptionList::Prepare(const AdjustmentList& list)
{
    txtname.SetItems(list.offers);
    lblExemption.visible = CboExType.visible = Label5.visible = list.asksForExemption;
    lblname = list.asksForExemption ? "Desc./PAN" : "Description :";
    rows.SetHeading(0, list.asksForExemption ? "Desc./PAN" : "Description");
    lblpart3.visible = lblpart3Amount.visible = static_cast<bool>(list.limit);
    if (list.limit)
        lblpart3Amount = list.limit();
}

SectionList::SectionList(Screen& form, const Names& names)
    : ListFrame(form, names,
                {{"name1", txtsec, "", {"Section", GridColumnKind::Text}},
                 {"name2", txtname1, "", {"Description", GridColumnKind::Text, 3}},
                 {"amt1", txtamount1, "0.00", {"Amount", GridColumnKind::Amount}}}),
      lblsec(form, "lblsec", "Sec. No. :"), txtsec(form, "txtsec"), lblname1(form, "lblname1", "Description :"),
      txtname1(form, "txtname1", true), lblamount1(form, "lblamount1", "Amount :"), txtamount1(form, "txtamount1")
{
    Limit({&txtsec, &txtname1});
}

void SectionList::LayOut(const std::vector<Control*>& beside)
{
    LayoutRow amount{{&lblamount1, &txtamount1, &add}};
    amount.cells.insert(amount.cells.end(), beside.begin(), beside.end());
    panel.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Button, LayoutColumn::Button,
                           LayoutColumn::Button},
               .rows = {{{&lblsec, &txtsec}}, {{&lblname1, &txtname1}}, amount, {{&rows}}},
               .buttonsRight = {&save, &back}});
}

void SectionList::Prepare(const AdjustmentList& list) { txtname1.SetItems(list.offers); }

AllowanceList::AllowanceList(Screen& form)
    : ListFrame(form, {"fra4", "DbGrid3", "cmdadd33ab", "cmdsave33ab", "cmdback33ab"},
                {{"name1", txtseca, "", {"Section", GridColumnKind::Text}},
                 {"name2", txtnamea, "", {"Description", GridColumnKind::Text, 3}},
                 {"amt1", txtamt1, "0", {"Year", GridColumnKind::Rate}},
                 {"amt2", txtamt2, "0.00", {"Installment", GridColumnKind::Amount}},
                 {"amt3", txtamt3, "0.00", {"Allowable", GridColumnKind::Amount}}}),
      lblseca(form, "lblseca", "Sec. No. :"), txtseca(form, "txtseca"), lblnamea(form, "lblnamea", "Description :"),
      txtnamea(form, "txtnamea"), lblamt1(form, "lblamt1", "Year No. :"), txtamt1(form, "txtamt1"),
      lblamt2(form, "Label41(24)", "Instalment :"), txtamt2(form, "txtamt2"), lblamt3(form, "lblamt3", "Allowable :"),
      txtamt3(form, "txtamt3")
{
    panel.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Button},
               .rows = {{{&lblseca, &txtseca}},
                        {{&lblnamea, &txtnamea}},
                        {{&lblamt1, &txtamt1}},
                        {{&lblamt2, &txtamt2}},
                        {{&lblamt3, &txtamt3, &add}},
                        {{&rows}}},
               .buttonsRight = {&save, &back}});
    Limit({&txtseca, &txtnamea});
    txtamt1.deci = 0;
    txtseca.onLostFocus = [this] { NameInstalment(); };
    const auto not35AC = [this] { return !IsAnyOf(txtseca, {"35AC"}); };
    const auto neither35A = [this] { return !IsAnyOf(txtseca, {"35A", "35AC"}); };
    checks = {
        {[=, this](auto) { return Val(txtamt1) <= 0 && not35AC(); }, "Please fill year no...", &txtamt1},
        {[=, this](auto) { return txtamt3.visible && Val(txtamt2) == 0 && neither35A(); }, "Please fill Instalment...",
         &txtamt2},
        {[=, this](auto) { return txtamt3.visible && Val(txtamt3) == 0 && not35AC(); },
         "Please fill Allowable Amount...", &txtamt3},
        {[=, this](auto) { return Val(txtamt2) == 0 && neither35A(); }, kFillAmount, &txtamt2},
    };
    computed = [this]() -> std::vector<Field> { return {{"amt4", Val(txtamt3) - Val(txtamt2)}}; };
}

void AllowanceList::Prepare(const AdjustmentList& list)
{
    if (!list.amountAlone)
        return;
    lblamt3.visible = txtamt3.visible = false;
    rows.SetHeading(3, "Amount");
    lblamt2 = "Amount :";
}

void AllowanceList::RestoreCaptions()
{
    lblamt3.visible = txtamt3.visible = true;
    rows.SetHeading(3, "Installment");
    lblamt2 = "Installment :";
}

/// Expenditure on an eligible project (section 35AC) is not spread: what the accounts were debited with is its place.
void AllowanceList::NameInstalment()
{
    if (txtamt3.visible)
        lblamt2 = IsAnyOf(txtseca, {"35AC"}) ? "Dr. in P && L" : "Instalment :";
}

} // namespace pgbp
