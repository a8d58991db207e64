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

DescriptionFields::DescriptionFields(Screen& form)
    : lblname(form, "lblname", "Description :"), txtname(form, "txtname", true),
      Label5(form, "Label5", "Please Fill PAN in desc. box in case of Share in Profit from AOP/BOI/Firm",
             LabelLook::Hint),
      lblExemption(form, "Label41(39)", "Exemption Type :"), CboExType(form, "CboExType"),
      ChkDiv(form, "ChkDiv", "Dividend Income"), lblamount(form, "lblamount", "Amount :"), txtamount(form, "txtamount"),
      lblpart3(form, "lblpart3", "Allowable Remuneration :"),
      lblpart3Amount(form, "lblpart3Amount", "0.00", LabelLook::Amount)
{
    Limit({&txtname});
    txtname.onKeyPress = DropQuotes;
    CboExType.SetItems({"Share from Partnership Firm", "Share from AOP/BOI", "Others"});
    ChkDiv.visible = false;
}

DescriptionList::DescriptionList(Screen& form)
    : DescriptionFields(form),
      ListFrame(
          form, {"fra1", "DBGrid1", "CmdAdd", "cmdsavefra", "CmdBackFra"},
          {{.shown = {"Description"}, .member = &WorkItem::name1, .field = &txtname, .tellsApart = true},
           {.shown = {"Amount", GridColumnKind::Amount},
            .member = &WorkItem::amt1,
            .field = &txtamount,
            .tellsApart = true},
           {.shown = {"Exemption Type", GridColumnKind::Hidden}, .member = &WorkItem::name2, .field = &CboExType}})
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
    entry.checks = {{[this] { return Val(txtamount) == 0; }, kFillAmount, &txtamount}};
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

SectionFields::SectionFields(Screen& form)
    : lblsec(form, "lblsec", "Sec. No. :"), txtsec(form, "txtsec"), lblname1(form, "lblname1", "Description :"),
      txtname1(form, "txtname1", true), lblamount1(form, "lblamount1", "Amount :"), txtamount1(form, "txtamount1")
{
    Limit({&txtsec, &txtname1});
}

SectionList::SectionList(Screen& form, const Names& names)
    : SectionFields(form),
      ListFrame(form, names,
                {{.shown = {"Section"}, .member = &WorkItem::name1, .field = &txtsec, .tellsApart = true},
                 {.shown = {"Description", GridColumnKind::Text, 3},
                  .member = &WorkItem::name2,
                  .field = &txtname1,
                  .tellsApart = true},
                 {.shown = {"Amount", GridColumnKind::Amount},
                  .member = &WorkItem::amt1,
                  .field = &txtamount1,
                  .tellsApart = true}})
{
}

void SectionList::LayOut(const std::vector<Control*>& atSection, const std::vector<Control*>& atAmount)
{
    LayoutRow section{{&lblsec, &txtsec}};
    section.cells.insert(section.cells.end(), atSection.begin(), atSection.end());
    LayoutRow amount{{&lblamount1, &txtamount1, &add}};
    amount.cells.insert(amount.cells.end(), atAmount.begin(), atAmount.end());
    panel.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Button, LayoutColumn::Button},
               .rows = {section, {{&lblname1, &txtname1}}, amount, {{&rows}}},
               .buttonsRight = {&save, &back}});
}

void SectionList::Prepare(const AdjustmentList& list) { txtname1.SetItems(list.offers); }

AllowanceFields::AllowanceFields(Screen& form)
    : lblseca(form, "lblseca", "Sec. No. :"), txtseca(form, "txtseca"), lblnamea(form, "lblnamea", "Description :"),
      txtnamea(form, "txtnamea"), lblamt1(form, "lblamt1", "Year No. :"), txtamt1(form, "txtamt1"),
      lblamt2(form, "Label41(24)", "Instalment :"), txtamt2(form, "txtamt2"), lblamt3(form, "lblamt3", "Allowable :"),
      txtamt3(form, "txtamt3")
{
    Limit({&txtseca, &txtnamea});
    txtamt1.deci = 0;
    txtamt1.grouped = false;
}

AllowanceList::AllowanceList(Screen& form)
    : AllowanceFields(form),
      ListFrame(form, {"fra4", "DbGrid3", "cmdadd33ab", "cmdsave33ab", "cmdback33ab"},
                {{.shown = {"Section"}, .member = &WorkItem::name1, .field = &txtseca, .tellsApart = true},
                 {.shown = {"Description", GridColumnKind::Text, 3},
                  .member = &WorkItem::name2,
                  .field = &txtnamea,
                  .tellsApart = true},
                 {.shown = {"Year", GridColumnKind::Rate},
                  .member = &WorkItem::amt1,
                  .field = &txtamt1,
                  .places = 0,
                  .tellsApart = true},
                 {.shown = {"Installment", GridColumnKind::Amount},
                  .member = &WorkItem::amt2,
                  .field = &txtamt2,
                  .tellsApart = true},
                 {.shown = {"Allowable", GridColumnKind::Amount},
                  .member = &WorkItem::amt3,
                  .field = &txtamt3,
                  .tellsApart = true}})
{
    panel.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Button},
               .rows = {{{&lblseca, &txtseca}},
                        {{&lblnamea, &txtnamea}},
                        {{&lblamt1, &txtamt1}},
                        {{&lblamt2, &txtamt2}},
                        {{&lblamt3, &txtamt3, &add}},
                        {{&rows}}},
               .buttonsRight = {&save, &back}});
    txtseca.onLostFocus = [this] { NameInstalment(); };
    const auto not35AC = [this] { return !IsAnyOf(txtseca, {"35AC"}); };
    const auto neither35A = [this] { return !IsAnyOf(txtseca, {"35A", "35AC"}); };
    entry.checks = {
        {[=, this] { return Val(txtamt1) <= 0 && not35AC(); }, "Please fill year no...", &txtamt1},
        {[=, this] { return txtamt3.visible && Val(txtamt2) == 0 && neither35A(); }, "Please fill Instalment...",
         &txtamt2},
        {[=, this] { return txtamt3.visible && Val(txtamt3) == 0 && not35AC(); }, "Please fill Allowable Amount...",
         &txtamt3},
        {[=, this] { return Val(txtamt2) == 0 && neither35A(); }, kFillAmount, &txtamt2},
    };
    entry.complete = [](WorkItem& item) { item.amt4 = item.amt3.value_or(0) - item.amt2.value_or(0); };
}

void AllowanceList::Prepare(const AdjustmentList& list)
{
    if (!list.amountAlone)
        return;
    lblamt3.visible = txtamt3.visible = false;
    rows.SetHeading(3, "Amount");
    lblamt2 = "Amount :";
}

void AllowanceList::Restore()
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
