#include "income/shares.h"

#include "records/keys.h"
#include "records/rows_of_type.h"
#include "services/format.h"
#include "services/text.h"
#include "store/schema.h"

#include <utility>

namespace pgbp {
namespace {

constexpr const char* kFillAmount = "Please fill Amount...";

/// Whose an amount is, in words.
std::string ChildInWords(const std::string& minor) { return minor == "0" ? "" : "minor " + minor; }

} // namespace

ProfitFields::ProfitFields(Screen& form)
    : lblDescProfit(form, "lblDescProfit", "Description :"), TxtDescProfit(form, "TxtDescProfit"),
      lblAmtProfit(form, "lblAmtProfit", "Amount :"), TxtAmtProfit(form, "TxtAmtProfit")
{
    TxtDescProfit.onKeyPress = DropQuotes;
    TxtDescProfit.maxLength = ColumnWidth("company", "misc_items", "name1");
}

ProfitList::ProfitList(Screen& form)
    : ProfitFields(form),
      EntryFrame(form, {"FraShare", "DBProfit", "CmdAddProfit", "CmdSaveProfit", "CmdCancProfit"},
                 {{.shown = {"Description"}, .member = &ProfitItem::name, .field = &TxtDescProfit, .tellsApart = true},
                  {.shown = {"Amount", GridColumnKind::Amount},
                   .member = &ProfitItem::amount,
                   .field = &TxtAmtProfit,
                   .tellsApart = true}})
{
    panel.caption = "Share in Profit";
    panel.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Button},
               .rows = {{{&lblDescProfit, &TxtDescProfit}}, {{&lblAmtProfit, &TxtAmtProfit, &add}}, {{&rows}}},
               .buttonsRight = {&save, &back}});
    entry.checks = {{[this] { return Val(TxtAmtProfit) == 0; }, kFillAmount, &TxtAmtProfit}};
    entry.complete = [](ProfitItem& share) { share.name = Trim(share.name); };
}

void ProfitList::Open()
{
    std::vector<ProfitItem> shares;
    for (const Row row : MiscItems(screen.run, "SPRO").Read())
        shares.push_back({Trim(row["name1"].Text()), row["amt1"].Number(), row["name2"].Text()});
    Raise(std::move(shares));
    entry.Append(brought_);
}

void ProfitList::Add(const ProfitItem& share, const Transaction& transaction) const
{
    MiscItems(screen.run, "SPRO")
        .Add({{"name1", share.name},
              {"name2", share.name2.empty() ? Value() : Value(share.name2)},
              {"amt1", share.amount}},
             transaction);
}

void ProfitList::StoreBrought(const Transaction& transaction) const
{
    for (const ProfitItem& share : brought_)
        Add(share, transaction);
}

void ProfitList::Store()
{
    Transaction transaction({screen.run.company});
    MiscItems(screen.run, "SPRO").Delete(transaction);
    double total = 0;
    for (const ProfitItem& share : entry.items()) {
        Add(share, transaction);
        total += share.amount;
    }
    transaction.Commit();
    ForgetBrought();
    screen.TellSaved(panel.caption.get() + ": " + entry.Summary(), total);
}

AopProfit::AopProfit(Screen& form)
    : FraAOP(form, "FraAOP", "Profit Share from AOP/BOI"), lblAopS(form, "lblAopS", "Exempt Profit Share :"),
      TXTAopS(form, "TXTAopS"), CmdSaveAOP(form, "CmdSaveAOP", "&Save"), CmdBackAOP(form, "CmdBackAOP", "&Cancel"),
      form_(form)
{
    FraAOP.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Amount},
                .rows = {{{&lblAopS, &TXTAopS}}},
                .buttonsRight = {&CmdSaveAOP, &CmdBackAOP}});
    CmdSaveAOP.isDefault = true;
    CmdSaveAOP.onClick = [this] { Save(); };
    CmdBackAOP.onClick = [this] { form_.Lower(FraAOP); };
    FraAOP.onEscape = [this] {
        if (MayDiscard(form_.run, Altered()))
            form_.Lower(FraAOP);
    };
}

void AopProfit::Open()
{
    TXTAopS = Amount(FirstField(MiscItems(form_.run, "SAOP").Read("amt1")).Number());
    opened_.Remember(FraAOP);
    form_.Raise(FraAOP, TXTAopS);
}

void AopProfit::Save()
{
    const RowsOfType stored = MiscItems(form_.run, "SAOP");
    Transaction transaction({form_.run.company});
    stored.Delete(transaction);
    if (Val(TXTAopS) != 0)
        stored.Add({{"amt1", Val(TXTAopS)}}, transaction);
    transaction.Commit();
    form_.TellSaved(FraAOP.caption, Val(TXTAopS));
    form_.Lower(FraAOP);
}

ShareFields::ShareFields(Screen& form)
    : lblsharename(form, "lblsharename", "Description :"), txtname(form, "txtname"),
      lblshareamount(form, "lblshareamount", "Amount :"), txtamount(form, "txtamount")
{
    txtname.onKeyPress = DropQuotes;
    txtname.maxLength = ColumnWidth("company", "business1", "name1");
}

Shares::Shares(Screen& summary, SharesUse use)
    : ShareFields(summary), EntryFrame(summary, {"fra2", "DbGrid2", "Command1", "cmdsavefra", "CmdBackFra"}, Columns()),
      cmdImport(summary, "cmdImport", "Import from Firm's Return"), CmdPro(summary, "CmdPro", "Share in Profit"),
      CmdAOP(summary, "CmdAOP", "Profit Share"), profits(summary), aopProfit(summary),
      firms(summary, {.back = "cmdcanctemp",
                      .backCaption = "Cancel",
                      .firmHeading = "Choose Firm",
                      .partnerColumns = {{"Partner's Name", GridColumnKind::Text},
                                         {"Rato", GridColumnKind::Rate},
                                         {"Interest", GridColumnKind::Amount},
                                         {"Remuneration", GridColumnKind::Amount}},
                      .cells =
                          [](const PartnerShare& partner) {
                              return std::vector{partner.name, Amount(partner.ratio), Amount(partner.interest),
                                                 Amount(partner.remuneration)};
                          },
                      .chosen = [this](const FirmReturn& firm, const PartnerShare& partner) { Take(firm, partner); }}),
      use_(std::move(use))
{
    LayOut();
    Wire();
}

std::vector<ItemColumn<ShareItem>> Shares::Columns()
{
    return {{.shown = {"Description", GridColumnKind::Text, 3},
             .member = &ShareItem::name,
             .field = &txtname,
             .tellsApart = true},
            {.shown = {"Amount", GridColumnKind::Amount},
             .member = &ShareItem::amount,
             .field = &txtamount,
             .tellsApart = true},
            {.shown = {"Flag", GridColumnKind::Text, 1, ChildInWords},
             .member = &ShareItem::minor,
             .places = 0,
             .tellsApart = true}};
}

void Shares::LayOut()
{
    panel.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Button},
               .rows = {{{&lblsharename, &txtname}}, {{&lblshareamount, &txtamount, &add}}, {{&rows}}},
               .buttonsLeft = {&cmdImport, &CmdPro, &CmdAOP},
               .buttonsRight = {&save, &back}});
}

void Shares::Wire()
{
    entry.checks = {{[this] { return Val(txtamount) == 0; }, kFillAmount, &txtamount}};
    entry.mayTakeBack = [this](const ShareItem& item) {
        if (item.minor != 0)
            screen.run.Inform("This item belongs to minor & can not be changed from here.");
        return item.minor == 0;
    };
    cmdImport.onClick = [this] { firms.Open(FirmsOfTheYear(screen.run)); };
    CmdPro.onClick = [this] { profits.Open(); };
    CmdAOP.onClick = [this] { aopProfit.Open(); };
}

bool Shares::Altered() const
{
    return EntryFrame::Altered() || profits.Altered() || profits.HasBrought() || aopProfit.Altered();
}

void Shares::Open(const KindOfShare& share)
{
    share_ = &share;
    panel.caption = std::string(share.caption);
    const bool isOfFirms = share.kind == kFirmIncome;
    cmdImport.enabled = CmdPro.enabled = isOfFirms;
    CmdAOP.enabled = !isOfFirms;
    Raise(Read());
}

/// Whose an amount is, its line says.
std::vector<ShareItem> Shares::Read() const
{
    const Run& run = screen.run;
    std::vector<ShareItem> items;
    for (const Row line : QueryOfMinor(run, "select SNO, minor from {business} where code = ? and [Type] = ?",
                                       {run.Glcode, TypeOf(share_->kind)}, run.company.dialect().insertionOrder)) {
        const double minor = run.GLminor == 0 ? line["minor"].Number() : 0;
        for (const Row row : LineDetails(run, share_->detail, line["SNO"].Number()).Read("name1, amt1"))
            items.push_back({row["name1"].Text(), row["amt1"].Number(), minor});
    }
    return items;
}

/// Brings in what the partner got, or as much of it as his firm deducts, and his share of the profit.
void Shares::Take(const FirmReturn& firm, const PartnerShare& partner)
{
    const bool isAllowedAlone = screen.run.Show("Import allowable portion only....", "Question", Icon::Question,
                                                Buttons::YesNo, Answer::Yes) == Answer::Yes;
    const std::pair<const char*, double> amounts[] = {
        {"Interest - ", isAllowedAlone ? partner.deductedInterest : partner.interest},
        {"Remuneration - ", isAllowedAlone ? partner.deductedRemuneration : partner.remuneration}};
    const auto inPaise = [](double rupees) { return Val(Amount(rupees)); };
    std::vector<ShareItem> items;
    for (const auto& [what, rupees] : amounts)
        if (inPaise(rupees) != 0)
            items.push_back({what + firm.name, inPaise(rupees)});
    entry.Append(items);
    if (inPaise(partner.profit) != 0)
        profits.Bring({"Profit Share from " + firm.name, inPaise(partner.profit)});
}

void Shares::Store()
{
    const Run& run = screen.run;
    double net = 0;
    bool hasOwn = false;
    for (const ShareItem& item : entry.items())
        if (item.minor == 0) {
            net = Val(SumText(net + item.amount));
            hasOwn = true;
        }
    Transaction transaction({run.company});
    const double sno = NextSno(run, transaction); // before the old line goes, so that its number does not come again
    DeleteOwn(transaction);
    if (hasOwn)
        AddShareLine(run, *share_, sno, net, transaction);
    for (const ShareItem& item : entry.items())
        if (item.minor == 0)
            AddShare(run, *share_, sno, item.name, item.amount, transaction);
    profits.StoreBrought(transaction);
    transaction.Commit();
    screen.TellSaved(panel.caption.get() + ": " + entry.Summary(), net);
}

/// The rows of the run's own minor: nobody else's.
void Shares::DeleteOwn(const Transaction& transaction) const
{
    const Run& run = screen.run;
    std::string own = "from {business} where code = ? and [Type] = ? and ";
    std::vector<Value> values{run.Code(), TypeOf(share_->kind)};
    if (run.GLminor != 0) {
        own += "minor = ?";
        values.emplace_back(run.GLminor);
    } else {
        own += run.company.dialect().noMinorOrZeroUnparsed;
    }
    for (const Row line : run.company.QueryBound("select SNO " + own, values))
        LineDetails(run, share_->detail, line.At(0).Number()).Delete(transaction);
    run.company.ExecuteBound(std::string(run.company.dialect().DeleteWord) + own, values);
}

void Shares::Left()
{
    CmdAOP.enabled = false;
    profits.ForgetBrought();
    use_.recompute();
    screen.SetFocus(use_.buttonOf(share_->kind));
}

} // namespace pgbp
