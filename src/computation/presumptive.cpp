#include "computation/presumptive.h"

#include "computation/line_header.h"
#include "computation/list_totals.h"
#include "records/rows_of_type.h"
#include "services/format.h"
#include "startup/status.h"

namespace pgbp {

PresumptiveFrame::PresumptiveFrame(Screen& form)
    : fra44ad(form, "fra44ad", "", FramePlace::Main), lbldescr44ad(form, "lbldescr44ad", "Description :"),
      txt44ad1(form, "txt44ad1"), txt44ad2(form, "txt44ad2"), lblrece(form, "lblrece", "Gross Receipts :"),
      txtrece(form, "txtrece"), lblper(form, "lblper", "Percentage :"), TxtPer(form, "TxtPer"),
      lblrece6(form, "lblrece6", "Gross Receipts (6%) :"), TxtRece6(form, "TxtRece6"),
      lblper6(form, "lblper6", "Percentage :"), TxtPer6(form, "TxtPer6"), lblreceoth(form, "lblreceoth", "Others :"),
      TxtReceOth(form, "TxtReceOth"), TxtNetAd{{form, "TxtNetAd(0)"},
                                               {form, "TxtNetAd(1)"},
                                               {form, "TxtNetAd(2)"},
                                               {form, "TxtNetAd(3)"}},
      Lbl44ADc(form, "Lbl44ADc", "Deemed Profit :"), Lbl44AD(form, "Lbl44AD"), cmdintt(form, "cmdintt", "&Interest"),
      lblinttc(form, "lblinttc", "Interest to partners :"), TxtIntt(form, "TxtIntt"),
      cmdremu(form, "cmdremu", "&Remuneration"), lblremuc(form, "lblremuc", "Remuneration to partners :"),
      txtremu(form, "txtremu"), lbl44adfinalc(form, "lbl44adfinalc", "Net Profit :"),
      lbl44adfinal(form, "lbl44adfinal", "0.00", LabelLook::Amount),
      chk44ad(form, "chk44ad", "Whether books of accounts have been maintained by the assessee ?"),
      FraBooks(form, "FraBooks", "For P && L (Not for Calculation)", FramePlace::Group),
      lblTxt{{form, "lblTxt1", "Gross Receipts :"},
             {form, "lblTxt2", "Gross Profit :"},
             {form, "lblTxt3", "Expenses :"},
             {form, "lblTxt4", "Net Profit :"}},
      Txt{{form, "Txt1"}, {form, "Txt2"}, {form, "Txt3"}, {form, "Txt4"}},
      CmdPart(form, "CmdPart", "Part&ner's Details"), cmdsave44ad(form, "cmdsave44ad", "&Save"),
      cmdDel1(form, "cmdDel1", "&Delete"), cmdback44ad(form, "cmdback44ad", "&Back"), run_(form.run)
{
    fra44ad.visible = false;
    for (txtn* amount : {&txtrece, &TxtPer, &TxtRece6, &TxtPer6, &TxtReceOth, &Lbl44AD, &TxtIntt, &txtremu})
        amount->Set("0.00");
    for (txtn& amount : TxtNetAd)
        amount.Set("0");
    for (txtn& amount : Txt)
        amount.Set("0.00");
    for (Control* figure : std::initializer_list<Control*>{&txt44ad1, &txt44ad2, &txtrece, &TxtPer, &TxtRece6, &TxtPer6,
                                                           &TxtReceOth, &Lbl44AD, &chk44ad, &FraBooks})
        figure->enabled = false;
    for (txtn& amount : TxtNetAd)
        amount.enabled = false;
    TxtIntt.onEnter = [this] { ReplaceList("intt", "Interest to Pertners", TxtIntt); };
    txtremu.onEnter = [this] { ReplaceList("remu", "Remuneration to partners", txtremu); };
    Screen::CloseDoor(cmdsave44ad);
    LayOut();
}

void PresumptiveFrame::LayOut()
{
    FraBooks.Lay(
        {.columns = {LayoutColumn::Caption, LayoutColumn::Amount},
         .rows = {{{&lblTxt[0], &Txt[0]}}, {{&lblTxt[1], &Txt[1]}}, {{&lblTxt[2], &Txt[2]}}, {{&lblTxt[3], &Txt[3]}}}});
    fra44ad.Lay({.columns = {LayoutColumn::Button, LayoutColumn::Caption, LayoutColumn::Amount, LayoutColumn::Caption,
                             LayoutColumn::Amount, LayoutColumn::Amount},
                 .rows = {{{&lbldescr44ad, &txt44ad1}},
                          {{nullptr, &txt44ad2}},
                          {{nullptr, &lblrece, &txtrece, &lblper, &TxtPer, &TxtNetAd[0]}},
                          {{nullptr, &lblrece6, &TxtRece6, &lblper6, &TxtPer6, &TxtNetAd[1]}},
                          {{nullptr, &lblreceoth, &TxtReceOth, nullptr, &TxtNetAd[2], &TxtNetAd[3]}},
                          {{nullptr, &Lbl44ADc, &Lbl44AD}, RowStyle::Total},
                          {{&cmdintt, &lblinttc, &TxtIntt}},
                          {{&cmdremu, &lblremuc, &txtremu}},
                          {{nullptr, &lbl44adfinalc, &lbl44adfinal}, RowStyle::Final},
                          {{&chk44ad}},
                          {{&FraBooks}}},
                 .buttonsLeft = {&CmdPart},
                 .buttonsRight = {&cmdsave44ad, &cmdDel1, &cmdback44ad}});
}

void PresumptiveFrame::Fill(const LineHeader& line)
{
    txt44ad1 = line.Stored("name1").Text();
    txt44ad2 = line.Stored("name2").Text();
    chk44ad = line.Stored("books").Flag();
    txtrece = Amount(line.Stored("turnover").Number());
    if (Line() == kProfession44ADA || Line() == kPresumptive44AD)
        FillReceipts(Line() == kProfession44ADA ? "PGBPA" : "PGBP3");
    Lbl44AD = Amount(line.Stored("sec44").Number());
    lbl44adfinal = Amount(line.Stored("net44").Number());
    if (Line() == kPresumptive44AD || Line() == kRetail44AF)
        FillRate(line.Sno());
    if (!RulesOf(run_).IsNormal())
        FillAccounts(line.Sno());
}

void PresumptiveFrame::FillReceipts(std::string_view type)
{
    const Recordset stored = MiscItems(run_, type).Read("Am3, am4, amt1, amt2, intt, tds, sur, cess, penal");
    if (stored.Empty() || stored.First()["amt2"].Number() == 0)
        return;
    const Row row = stored.First();
    const std::pair<std::string_view, txtn*> amounts[] = {
        {"Am3", &txtrece}, {"am4", &TxtRece6}, {"amt1", &TxtPer}, {"intt", &TxtReceOth}, {"amt2", &TxtPer6}};
    for (const auto& [column, field] : amounts)
        *field = Amount(row[column].Number());
    TxtNetAd[0] = Rupees(row["tds"].Number());
    TxtNetAd[1] = Rupees(row["sur"].Number());
    if (Line() == kPresumptive44AD) {
        TxtNetAd[2] = Rupees(row["cess"].Number());
        TxtNetAd[3] = Rupees(row["penal"].Number());
    }
}

void PresumptiveFrame::FillRate(double sno)
{
    const Value rate = FirstField(MiscItems(run_, "PGBP" + std::string(TypeOf(Line())), sno).Read("amt1"));
    if (!rate.IsNull())
        TxtPer = Amount(rate.Number());
}

void PresumptiveFrame::FillAccounts(double sno)
{
    constexpr int kFirstCells[] = {269, 1163}; // of a business, of a profession; the others follow
    for (const Row row : ScheduleCells(run_, "NEWPL", sno).Read("amt1, name8"))
        for (const int first : kFirstCells)
            for (int i = 0; i < 4; ++i)
                if (row["amt1"].Number() == first + i)
                    Txt[i] = Amount(ParseAmount(row["name8"].Text()));
}

void PresumptiveFrame::CalBalance1(const ListTotals& totals)
{
    txtremu = Amount(totals.Amt1("remu"));
    TxtIntt = Amount(totals.Amt1("intt"));
    lbl44adfinal = Amount(Val(Lbl44AD) - Val(TxtIntt) - Val(txtremu));
}

void PresumptiveFrame::ApplyStatus()
{
    if (!RulesOf(run_).ShowsPartners() || (Line() != kRetail44AF && DeductsNothing()))
        HideDeductions();
    CmdPart.visible = RulesOf(run_).PartnersOfDeemedIncome();
    FraBooks.visible = RulesOf(run_).ShowsAccountOfReturn();
}

void PresumptiveFrame::HideDeductions()
{
    for (Control* control :
         std::initializer_list<Control*>{&cmdintt, &lblinttc, &TxtIntt, &cmdremu, &lblremuc, &txtremu})
        control->visible = false;
}

/// One amount typed takes the place of the whole list. Walking through the field leaves the list alone.
void PresumptiveFrame::ReplaceList(std::string_view type, std::string_view name, const txtn& amount)
{
    const Value listed =
        run_.qeltemp.Scalar("select sum(amt1) from {temp1} where code = ? and [Type] = ?", run_.Code(), type);
    if (Amount(listed.Number()) == Amount(Val(amount)))
        return;
    Transaction transaction({run_.qeltemp});
    run_.qeltemp.Delete("from {temp1} where code = ? and [Type] = ?", run_.Code(), type);
    run_.qeltemp.Insert("temp1", {{"code", run_.Code()}, {"Type", type}, {"name1", name}, {"amt1", Val(amount)}});
    transaction.Commit();
    listReplaced();
}

} // namespace pgbp
