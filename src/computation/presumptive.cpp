#include "computation/presumptive.h"

#include "computation/line_header.h"
#include "computation/list_totals.h"
#include "records/limits.h"
#include "services/format.h"
#include "store/schema.h"

#include <numeric>

namespace pgbp {
namespace {

constexpr const char* kFortyLakhs = "Value exceeding Rs. 40,00,000 not allowed...";

void Show(bool shows, std::initializer_list<Control*> controls)
{
    for (Control* control : controls)
        control->visible = shows;
}

/// The limit of receipts as table `system` names it.
const char* LimitOf(DeemingSection section)
{
    switch (section) {
    case DeemingSection::k44ADA:
        return "44ADA";
    case DeemingSection::k44AE:
        return "44AE";
    case DeemingSection::k44AF:
        return "44AF";
    default:
        return "44AD";
    }
}

} // namespace

PresumptiveFrame::PresumptiveFrame(Screen& form, const ListTotals& deducted)
    : PresumptiveFields(form), vehicles(form, [this](double income) { SetDeemed(SumText(income)); }), run_(form.run),
      deducted_(deducted), rated_{{txtrece, TxtPer, TxtNetAd[0]},
                                  {TxtRece6, TxtPer6, TxtNetAd[1]},
                                  {TxtReceOth, TxtNetAd[2], TxtNetAd[3]}}
{
    fra44ad.visible = false;
    for (txtn* amount : {&txtrece, &TxtPer, &TxtRece6, &TxtPer6, &TxtReceOth, &Lbl44AD, &TxtIntt, &txtremu})
        amount->Set("0.00");
    for (txtn& amount : TxtNetAd)
        amount.Set("0");
    for (txtn& amount : Txt)
        amount.Set("0.00");
    txt44ad1.maxLength = ColumnWidth("company", "business", "name1");
    txt44ad2.maxLength = ColumnWidth("company", "business", "name2");
    LayOut();
    Wire();
}

void PresumptiveFrame::LayOut()
{
    using enum LayoutColumn;
    fra441.Lay({.columns = {Caption, Amount, Caption, Amount, Caption, Amount, Button, Button},
                .rows = {{{&lblrece, &txtrece, &lblper, &TxtPer, &lblprofit[0], &TxtNetAd[0]}},
                         {{&lblrece6, &TxtRece6, &lblper6, &TxtPer6, &lblprofit[1], &TxtNetAd[1]}},
                         {{&lblreceoth, &TxtReceOth, &lblperoth, &TxtNetAd[2], &lblprofit[2], &TxtNetAd[3]}},
                         {{nullptr, nullptr, nullptr, nullptr, &Lbl44ADc, &Lbl44AD, &Image1, &vehicles.Cmd44AEDet},
                          RowStyle::Total},
                         {{nullptr, nullptr, nullptr, nullptr, &lblinttc, &TxtIntt, &cmdintt}},
                         {{nullptr, nullptr, nullptr, nullptr, &lblremuc, &txtremu, &cmdremu}},
                         {{nullptr, nullptr, nullptr, nullptr, &lbl44adfinalc, &lbl44adfinal}, RowStyle::Final}}});
    FraBooks.Lay(
        {.columns = {Caption, Amount, Caption, Amount},
         .rows = {{{&lblTxt[0], &Txt[0], &lblTxt[1], &Txt[1]}}, {{&lblTxt[2], &Txt[2], &lblTxt[3], &Txt[3]}}}});
    fra44ad.Lay({.columns = {Caption, Field},
                 .rows = {{{&lbldescr44ad, &txt44ad1}},
                          {{nullptr, &txt44ad2}},
                          {{&vehicles.fra442}},
                          {{&fra441}},
                          {{&chk44ad}},
                          {{&FraBooks}}},
                 .buttonsLeft = {&CmdPart, &CmdMulti},
                 .buttonsRight = {&cmdsave44ad, &cmdDel1, &cmdback44ad}});
    cmdsave44ad.isDefault = true;
}

void PresumptiveFrame::Wire()
{
    for (txtn* figure : {&txtrece, &TxtRece6, &TxtReceOth, &TxtPer, &TxtPer6, &TxtNetAd[2]})
        figure->onChange = [this] { ChangeReceipts(); };
    for (const Rated& rated : rated_)
        rated.profit.onChange = [this, &rated] { TypeProfit(rated); };
    Lbl44AD.onChange = [this] { TypeDeemed(); };
    lbl44adfinal.onChange = [this] { ShowNetProfit(); };
    Txt[2].onChange = [this] { Txt[3] = SumText(Val(Txt[1]) - Val(Txt[2])); };
    TxtIntt.onEnter = [this] { ReplaceList("intt", "Interest to Pertners", TxtIntt); };
    txtremu.onEnter = [this] { ReplaceList("remu", "Remuneration to partners", txtremu); };
    chk44ad.onClick = [this] { cmdsave44ad.caption = chk44ad.value ? "Continued" : "&Save"; };
    CmdMulti.onClick = [this] { OpenBusinesses(); };
    fra44ad.onUndo = [this] { vehicles.entry.Undo(); };
    Image1.onClick = [this] { run_.screens.ShowModal(screens::FrmHelp, {Image1.toolTip.get()}); };
}

void PresumptiveFrame::Open(const LineHeader& line)
{
    const LineRules rules = RulesOf(run_);
    limit_ = YearLimit(run_, LimitOf(rules.Section()));
    ShowReceipts();
    ProposeRates(!line.IsEdit());
    CmdMulti.visible = rules.HasSeveralBusinesses();
    Show(rules.CountsVehicles(), {&vehicles.fra442, &vehicles.dbveh, &vehicles.Cmd44AEDet});
    if (rules.CountsVehicles())
        vehicles.Open();
}

void PresumptiveFrame::ShowReceipts()
{
    const LineRules rules = RulesOf(run_);
    Show(rules.DeemsAtRate(), {&lblper, &TxtPer});
    Show(rules.TakesBankReceipts(), {&lblrece6, &TxtRece6});
    Show(rules.TakesOtherReceipts(), {&lblreceoth, &TxtReceOth});
    Show(rules.DeemsByReceipts(), {&lblper6, &TxtPer6, &lblprofit[0], &TxtNetAd[0], &lblprofit[1], &TxtNetAd[1]});
    Show(rules.DeemsByReceipts() && rules.TakesOtherReceipts(),
         {&lblperoth, &TxtNetAd[2], &lblprofit[2], &TxtNetAd[3]});
    if (rules.DeemsByReceipts()) {
        lblrece = "Cash Receipts (8%) :";
        lblrece6 = "Bank Receipts (6%) :";
    } else if (rules.NamesCashAndBank()) {
        lblrece = "Gross Receipts (Cash) :";
        lblrece6 = "Gross Receipts (Bank) :";
    }
    Lbl44AD.enabled = !rules.DeemsByReceipts();
}

void PresumptiveFrame::ProposeRates(bool isNew)
{
    const auto propose = [](txtn& rate, const char* percent) {
        if (Val(rate) == 0)
            rate.Set(percent, Notify::No);
    };
    propose(TxtPer, Line() == kPresumptive44AD ? "8.00" : "5.00");
    if (isNew && TxtPer6.visible)
        propose(TxtPer6, "6.00");
    if (isNew && TxtNetAd[2].visible)
        propose(TxtNetAd[2], "8.00");
}

void PresumptiveFrame::ApplyStatus()
{
    const LineRules rules = RulesOf(run_);
    if (!rules.ShowsPartners() || (Line() != kRetail44AF && DeductsNothing()))
        HideDeductions();
    lbl44adfinal.enabled = rules.ShowsPartners();
    CmdPart.visible = rules.PartnersOfDeemedIncome();
    FraBooks.visible = rules.ShowsAccountOfReturn();
}

void PresumptiveFrame::HideDeductions() { Show(false, {&cmdintt, &lblinttc, &TxtIntt, &cmdremu, &lblremuc, &txtremu}); }

Receipts PresumptiveFrame::Entered() const { return {Val(txtrece), Val(TxtRece6), Val(TxtReceOth)}; }

double PresumptiveFrame::ProfitOfReceipts() const
{
    return std::accumulate(std::begin(rated_), std::end(rated_), 0.0,
                           [](double sum, const Rated& rated) { return sum + Val(rated.profit); });
}

/// Receipts or a rate have changed: profit by profit, then all that follows from them. A limit that is passed leaves
/// the figures as they were; that of a profession is looked at when the line is saved.
void PresumptiveFrame::ChangeReceipts()
{
    const LineRules rules = RulesOf(run_);
    const bool isProfession = rules.Section() == DeemingSection::k44ADA;
    if (const auto message = isProfession ? std::nullopt : TooHigh())
        return run_.Inform(*message);
    if (rules.DeemsByReceipts()) {
        for (const Rated& rated : rated_)
            rated.profit.Set(Rupees(ProfitAt(Val(rated.rate), Val(rated.receipts))), Notify::No);
        SetDeemed(Rupees(ProfitOfReceipts()));
    } else if (rules.DeemsAtRate()) {
        SetDeemed(Rupees(ProfitAt(Val(TxtPer), Val(txtrece))));
    } else if (isProfession) {
        SetDeemed(Rupees(DeemedFloor(rules.Section(), run_.Year(), Entered())));
    }
    Txt[0] = SumText(Entered().Total());
}

/// A profit typed over the computed one: the rate on its receipts follows.
void PresumptiveFrame::TypeProfit(const Rated& typed)
{
    if (!TxtPer6.visible)
        return;
    if (Val(typed.receipts) > 0)
        typed.rate.Set(SumText(Val(typed.profit) / Val(typed.receipts) * 100), Notify::No);
    SetDeemed(Rupees(ProfitOfReceipts()));
}

void PresumptiveFrame::TypeDeemed()
{
    if (Lbl44AD.enabled && RulesOf(run_).DeemsAtRate() && Val(txtrece) > 0)
        TxtPer.Set(SumText(Val(Lbl44AD) / Val(txtrece) * 100), Notify::No);
    CalBalance1();
}

void PresumptiveFrame::SetDeemed(const std::string& profit)
{
    Lbl44AD.Set(profit, Notify::No);
    CalBalance1();
}

void PresumptiveFrame::CalBalance1()
{
    txtremu = Amount(deducted_.Amt1("remu"));
    TxtIntt = Amount(deducted_.Amt1("intt"));
    lbl44adfinal = SumText(Val(Lbl44AD) - Val(TxtIntt) - Val(txtremu));
}

void PresumptiveFrame::ShowNetProfit()
{
    Txt[1] = SumText(Val(lbl44adfinal) + Val(Txt[2]));
    Txt[3] = lbl44adfinal.text();
}

std::optional<std::string> PresumptiveFrame::TooHigh() const
{
    if (!ReceiptsAreTooHigh(RulesOf(run_).Section(), limit_, Entered()))
        return std::nullopt;
    return limit_ ? "Value exceeding Rs. " + Amount(*limit_) + " not allowed..." : kFortyLakhs;
}

bool PresumptiveFrame::MayGoOn()
{
    const bool isAdded = !RulesOf(run_).CountsVehicles() || vehicles.Finish();
    return isAdded && PassesAll(screen, ChecksOfAccount()) && PassesAll(screen, ChecksOfLaw());
}

/// The figures of the return's account; in the years that do not ask for them nobody could mend them.
std::vector<Check> PresumptiveFrame::ChecksOfAccount()
{
    if (!FraBooks.visible)
        return {};
    return {
        {[this] { return Val(Txt[3]) != 0 && Amount(Val(Txt[3])) != Amount(Val(lbl44adfinal)); },
         "Please check the Net Profit as Net Profit as per P & L account can not be other than Profit as per Business "
         "Income..",
         &Txt[3]},
        {[this] { return Amount(Val(Txt[1]) - Val(Txt[2])) != Amount(Val(Txt[3])); },
         "Please check the Gross Profit, Expense and New Profit", &Txt[1]},
    };
}

std::vector<Check> PresumptiveFrame::ChecksOfLaw()
{
    const LineRules rules = RulesOf(run_);
    const DeemingSection section = rules.Section();
    const std::string fiftyLakhs = rules.NamesCashAndBank() ? "Value exceeding Rs. 50,00,000 not allowed in cash..."
                                                            : "Value exceeding Rs. 50,00,000 not allowed...";
    const std::string percent = Rupees(RateOf(section, run_.Year()));
    txtn& profit = rules.DeemsByReceipts() ? TxtNetAd[0] : Lbl44AD;
    return {
        {[this] { return TooHigh().has_value(); }, TooHigh().value_or(""), &txtrece},
        {[=, this] { return CashIsTooHigh(section, run_.Year(), Val(txtrece)); }, fiftyLakhs, &txtrece},
        {[=, this] { return IsBelowFloor(section, run_.Year(), Entered(), Val(Lbl44AD)); },
         "Deemed profit can not be less than " + percent + "% of Gross Receipts..., Please check...", &profit},
    };
}

bool PresumptiveFrame::MayBeStored()
{
    if (LacksDescription(screen, txt44ad1, txt44ad2))
        return false;
    const double ofBusinesses = DeemedOfBusinesses();
    if (ofBusinesses != 0 && Amount(ofBusinesses) != Amount(Val(Lbl44AD))) {
        run_.Inform("Please correct the deemed profit in Multiple Business option as the same is different in above "
                    "box...");
        screen.SetFocus(CmdMulti);
        return false;
    }
    if (RulesOf(run_).CountsVehicles() && Amount(vehicles.DeemedByKind()) != Amount(Val(Lbl44AD))) {
        run_.Inform("Please fill the details of deemed income as per vehicle type.\n"
                    "There is some difference in Details of vehicles and deemed profit claimed..");
        vehicles.ShowByKind();
        return false;
    }
    return true;
}

void PresumptiveFrame::OpenBusinesses()
{
    run_.screens.ShowModal(screens::FrmMulti,
                           {.businesses = businesses_, .taken = [this](const auto& taken) { TakeBusinesses(taken); }});
}

/// Businesses below 8 % have their receipts through a bank. What they deem takes the place of what the rates give, and
/// the rates follow.
void PresumptiveFrame::TakeBusinesses(const std::vector<BusinessPart>& businesses)
{
    businesses_ = businesses;
    txt44ad1 = "Various Business";
    Receipts receipts;
    double first = 0;
    double second = 0;
    for (const BusinessPart& business : businesses_) {
        const bool isFirst = business.percent >= RateOf(DeemingSection::k44AD, run_.Year());
        (isFirst ? receipts.cash : receipts.bank) += business.receipts;
        (isFirst ? first : second) += business.deemed;
    }
    txtrece.Set(SumText(receipts.cash), Notify::No);
    TxtRece6.Set(SumText(receipts.bank), Notify::No);
    ChangeReceipts();
    TxtNetAd[0] = Rupees(first);
    TxtNetAd[1] = Rupees(second);
    Lbl44AD = SumText(DeemedOfBusinesses());
}

double PresumptiveFrame::DeemedOfBusinesses() const
{
    return std::accumulate(businesses_.begin(), businesses_.end(), 0.0,
                           [](double sum, const BusinessPart& business) { return sum + business.deemed; });
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
