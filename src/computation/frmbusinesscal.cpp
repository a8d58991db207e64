#include "computation/frmbusinesscal.h"

#include "computation/statement_figures.h"
#include "law/book_profit.h"
#include "law/remuneration_limit.h"
#include "records/keys.h"
#include "records/limits.h"
#include "records/rows_of_type.h"
#include "records/working_copies.h"
#include "services/format.h"
#include "services/text.h"
#include "startup/shared_services.h"
#include "startup/status.h"

#include <algorithm>
#include <utility>

namespace pgbp {
namespace {

constexpr double kAnnexureOfComputation = 111; ///< `GLwhere` while the annexure of this screen is open

/// Details that the presumptive frame stores itself: the businesses of a line u/s 44AD.
constexpr std::string_view kBusinesses = "44AD";

/// The heads of income to which an adjustment may belong.
std::vector<std::string> OtherHeads(const Run& run)
{
    std::vector<std::string> heads;
    if (IsIndividual(run.Glstatus))
        heads.emplace_back("Salaries");
    heads.insert(heads.end(), {"House Property", "Capital Gains", "Other Sources"});
    return heads;
}

std::vector<std::string> HeadsOfDeductions(const Run& run)
{
    auto heads = OtherHeads(run);
    if (RulesOf(run).DeductsOtherHeadsOfVDA())
        heads.emplace_back("VDA");
    return heads;
}

std::vector<std::string> HeadsOfAdditions(const Run& run)
{
    auto heads = OtherHeads(run);
    heads.insert(heads.begin(), "");
    return heads;
}

} // namespace

frmbusinesscal::frmbusinesscal(Run& itsRun)
    : Screen(itsRun, "frmbusinesscal", "Normal Business"),
      other(*this,
            {.openList = [this](std::string_view type) { OpenList(type); }, .balance = [this] { RefreshTotals(); }}),
      partners(*this, {.bookProfit = [this](double interest,
                                            double remuneration) { return BookProfit(interest, remuneration); },
                       .takesNothing = [this] { return Kind(Line()).isDeemed && presumptive.DeductsNothing(); },
                       .refusesPay = [this] { return Kind(Line()).refusesPay; },
                       .saved = [this] { RefreshTotals(); }}),
      lists_(MakeLists())
{
    for (txtn* amount : {&txtadddep, &TxtOth, &txtlessdep, &txtlesspart1, &txtlesspart2})
        amount->Set("0.00");
    LayOut();
    Wire();
}

std::vector<AdjustmentList> frmbusinesscal::MakeLists()
{
    const auto limit = [this] { return Amount(RemunerationLimit(BookProfit(0, 0), run.Year(), run.Glstatus)); };
    return {
        {.type = "511", .button = cmd511, .caption = lbl511c, .keptIn = fra1, .total = &lbl511},
        {.type = "544",
         .button = cmd17,
         .caption = lbl17c,
         .keptIn = fra1,
         .total = &lbl17,
         .asksForExemption = RulesOf(run).AsksForExemption()},
        {.type = "less",
         .button = cmdless,
         .caption = lbllessc,
         .keptIn = fra1,
         .total = &lblless,
         .offers = HeadsOfDeductions(run)},
        {.type = "intt",
         .button = presumptive.cmdintt,
         .caption = presumptive.lblinttc,
         .keptIn = fra1,
         .limit = limit},
        {.type = "remu",
         .button = presumptive.cmdremu,
         .caption = presumptive.lblremuc,
         .keptIn = fra1,
         .limit = limit},
        {.type = "560", .button = cmd560, .caption = lbl560c, .keptIn = fra2, .total = &lbl560},
        {.type = "23a",
         .button = cmd23a,
         .caption = lbl23ac,
         .keptIn = fra2,
         .total = &lbl23a,
         .offers = HeadsOfAdditions(run)},
        {.type = "23l", .button = cmd23l, .caption = lbl23lc, .keptIn = fra2, .total = &lbl23l},
        {.type = "564",
         .button = other.cmd564,
         .caption = other.lbl564c,
         .keptIn = fra2,
         .total = &other.lbl564,
         .isOther = true},
        {.type = "570",
         .button = other.cmd570,
         .caption = other.lbl570c,
         .keptIn = fra2,
         .total = &other.lbl570,
         .isOther = true,
         .storeAlong = [this](const Transaction& proof) { accounts.Store(proof); },
         .alteredAlong = [this] { return accounts.Altered(); }},
        {.type = "568",
         .button = other.cmd568,
         .caption = other.lbl568c,
         .keptIn = fra4,
         .total = &other.lbl568,
         .sum = ItemSum::Amt3LessAmt2,
         .isOther = true},
        {.type = "10abc", // up to 2006; later its items stand under the sections of a frame of their own
         .button = other.section10abc.cmd10abc,
         .caption = other.section10abc.lbl10abcc,
         .keptIn = fra4,
         .isOther = true,
         .amountAlone = true},
    };
}

void frmbusinesscal::LayOut()
{
    fra2.LayOut({&Image3}, {&accounts.Command3});
    framain.Lay({.columns = {LayoutColumn::Button, LayoutColumn::Caption, LayoutColumn::Amount, LayoutColumn::Button},
                 .rows = {{{&header.lbldescr, &header.txtdescr1}},
                          {{nullptr, &header.txtdescr2}},
                          {{&header.CmdPNL, &header.lblpnl, &header.txtpnl, &import.cmdovpnl}},
                          {{&cmd511, &lbl511c, &lbl511}},
                          {{&cmd560, &lbl560c, &lbl560}},
                          {{&CmdReDep, &lbladddep, &txtadddep, &import.cmdovdep}},
                          {{&cmd23a, &lbl23ac, &lbl23a, &import.cmdovadd}},
                          {{nullptr, &lblOth, &TxtOth}},
                          {{&CmdPartner, &lblpart1, &lbladdintt}},
                          {{nullptr, &lblpart2, &lbladdremu}},
                          {{nullptr, &lbltot1c, &lbltot1}, RowStyle::Total},
                          {{&cmd17, &lbl17c, &lbl17}},
                          {{&cmdless, &lbllessc, &lblless}},
                          {{&CmdDep, &lbllessdep, &txtlessdep}},
                          {{&cmd23l, &lbl23lc, &lbl23l, &import.cmdovless}},
                          {{&cmdpartner1, &lbllesspart1, &txtlesspart1}},
                          {{nullptr, &lbllesspart2, &txtlesspart2}},
                          {{nullptr, &lbltot2c, &lbltot2}, RowStyle::Total},
                          {{&cmdother, &lblotherc, &lblother}},
                          {{nullptr, &lblincomec, &lblincome}, RowStyle::Final}},
                 .buttonsLeft = {&CmdF, &Command1},
                 .buttonsRight = {&header.CmdSave, &header.CmdDel}});
    bar = {&header.CmdBack};
}

void frmbusinesscal::Wire()
{
    for (txtn* amount : {&header.txtpnl, &txtadddep, &txtlessdep, &txtlesspart1, &txtlesspart2, &TxtOth})
        amount->onChange = [this] { CalBalance(); };
    for (const AdjustmentList& list : lists_)
        if (!list.isOther) // those of the other adjustments are opened by their own frame
            list.button.onClick = [this, &list] { OpenList(list.type); };
    for (ListFrame* list : std::initializer_list<ListFrame*>{&fra1, &fra2, &fra4})
        list->panel.onLowered = [this] { RefreshTotals(); };
    fra2.entry.checks = ChecksOfSections();
    Image3.onClick = [this] { run.screens.ShowModal(screens::FrmHelp, {Image3.toolTip.get()}); };
    for (cmd* button : {&CmdPartner, &cmdpartner1, &Command1, &presumptive.CmdPart})
        button->onClick = [this] { partners.Open(); };
    partners.frapartner.onLowered = [this] { LeavePartners(); };
    cmdother.onClick = [this] { other.Open(); };
    CmdReDep.onClick = [this] { txtadddep = Amount(ReadStatement(run, header.Sno()).depreciation); };
    const auto depreciation = RulesOf(run).HasOldAnnexure() ? screens::frmfassets : screens::frmfassetsNew;
    CmdDep.onClick = [this, depreciation] { OpenAnnexure(depreciation, "Depreciation Annexure"); };
    CmdF.onClick = [this] { OpenAnnexure(screens::frmfassetsNew, "Capital Gain Annexure"); };
    presumptive.listReplaced = [this] { RefreshTotals(); };
    presumptive.cmdsave44ad.onClick = [this] { SaveDeemed(); };
    framain.onEscape = presumptive.fra44ad.onEscape = [this] { Back(); };
    presumptive.cmdback44ad.onClick = header.CmdBack.onClick = [this] { Back(); };
    header.CmdSave.onClick = [this] { Save(); };
    header.CmdDel.onClick = presumptive.cmdDel1.onClick = [this] { Delete(); };
}

std::vector<Check> frmbusinesscal::ChecksOfSections()
{
    const auto section = [this] { return Upper(Trim(fra2.txtsec.text())); };
    const auto isOfNonResidents = [section] {
        const std::string_view kSections[] = {"44BB", "44BBA", "44BBB", "12G"};
        return std::find(std::begin(kSections), std::end(kSections), section()) != std::end(kSections);
    };
    return {
        {[section] { return section() == "32"; },
         "In case of profit on sale of fixed asset, leave section field blank.\n"
         "Section 32 is allowed only in case of power generation usit, Please check",
         &fra2.txtsec},
        {[this] { return Val(fra2.txtamount1) <= 0; }, "Please fill Amount...", &fra2.txtamount1},
        {[this, isOfNonResidents] { return fra2.type() == "570" && !isOfNonResidents(); },
         "In this option, Section can not be other than 44BB, 44BBA, 44BBB and 12G, Plesae check", &fra2.txtsec},
    };
}

void frmbusinesscal::OpenList(std::string_view type)
{
    const auto list = std::find_if(lists_.begin(), lists_.end(), [&](const auto& each) { return each.type == type; });
    accounts.Command3.visible = static_cast<bool>(list->storeAlong);
    list->keptIn.Open(*list);
}

void frmbusinesscal::LeavePartners()
{
    if (!RulesOf(run).IsNormal() && partners.DrawNothing())
        presumptive.HideDeductions();
}

void frmbusinesscal::Open(const LineOpening& opening)
{
    EmptyWorkingCopies(run);
    const Reading reading(run.company);
    PlantLimits2024(run);
    run.GLwhere = 0;
    header.Open(opening);
    annexure_.Open(header.IsEdit() ? std::optional(header.Sno()) : std::nullopt);
    if (header.IsEdit())
        BusinessFill();
    if (!RulesOf(run).IsNormal())
        presumptive.Open(header);
    RefreshTotals();
    ApplyYearAndStatus();
}

void frmbusinesscal::BusinessFill()
{
    txtadddep = Amount(header.Stored("dep1").Number());
    txtlessdep = Amount(header.Stored("dep2").Number());
    other.section10abc.chk10abc1 = header.Stored("q10abc1").Flag();
    other.section10abc.chk10abc2 = header.Stored("q10abc2").Flag();
    presumptive.Fill(header);
    TxtOth = Amount(FirstField(MiscItems(run, "BusOth", header.Sno()).Read("amt1")).Number());
    partners.ChkChange = !LineDetails(run, "PARTCHANGE", header.Sno()).Read("code").Empty();
    header.TakeLists(CopyLineToWork(run, header.Sno(), DetailRows::All));
    accounts.Fill();
}

void frmbusinesscal::ApplyYearAndStatus()
{
    const LineRules rules = RulesOf(run);
    const bool isNormal = rules.IsNormal();
    framain.visible = header.CmdBack.visible = isNormal;
    presumptive.fra44ad.visible = !isNormal;
    if (isNormal)
        header.ShowWayToStatement();
    lblOth.visible = TxtOth.visible = rules.TakesOtherIncome();
    CmdReDep.visible = rules.OffersStatementsDepreciation() && header.IsEdit();
    for (Control* ofPartners :
         std::initializer_list<Control*>{&CmdPartner, &cmdpartner1, &lblpart1, &lblpart2, &lbladdintt, &lbladdremu,
                                         &lbllesspart1, &lbllesspart2, &txtlesspart1, &txtlesspart2})
        ofPartners->visible = rules.ShowsPartners();
    constexpr int kFormOfFirms = 5;
    Command1.visible = run.GlITR == kFormOfFirms;
    presumptive.ApplyStatus();
    presumptive.cmdDel1.enabled = header.IsEdit();
}

/// The working rows of the annexure are those of the line until the annexure changes them.
void frmbusinesscal::Activate()
{
    if (run.GLwhere == kAnnexureOfComputation)
        annexure_.TakeOver();
    const auto annexure = annexure_.Depreciation();
    const bool takesStored = RulesOf(run).IsNormal() && header.ProfitIsOfStatement() && header.IsEdit();
    if (takesStored)
        ReadStatementFigures();
    if (run.GLwhere != kAnnexureOfComputation) {
        if (takesStored && annexure)
            txtlessdep = Amount(*annexure);
        txtlessdep.enabled = !annexure;
    }
    run.GLwhere = 0;
    import.Set_Import();
    CalBalance();
    header.Opened({&framain, &presumptive.fra44ad, &presumptive.vehicles.Fr44AE, &other.fra3, &partners.frapartner});
}

void frmbusinesscal::ReadStatementFigures()
{
    const StatementFigures figures = ReadStatement(run, header.Sno());
    header.txtpnl = Amount(figures.netProfit);
    txtadddep = Amount(figures.depreciation);
}

void frmbusinesscal::OpenAnnexure(ScreenName<AnnexureOpening> screen, const char* annexure)
{
    run.GLwhere = kAnnexureOfComputation;
    run.screens.Show(screen, {.caption = annexure, .left = [this](const AnnexureTotal& total) {
                                  txtlessdep = total.rupees;
                                  txtlessdep.enabled = !total.isOfRows;
                              }});
}

void frmbusinesscal::RefreshTotals()
{
    totals_.Read(run);
    ShowListTotals();
    CalBalance();
    presumptive.CalBalance1();
}

void frmbusinesscal::ShowListTotals()
{
    for (const AdjustmentList& list : lists_)
        if (list.total)
            *list.total =
                SumText(list.sum == ItemSum::Amt1 ? totals_.Amt1(list.type) : totals_.Amt3LessAmt2(list.type));
    other.Lbl35 = SumText(totals_.Amt3("35"));
    lbladdintt = SumText(totals_.Amt1("PARTINTT"));
    lbladdremu = SumText(totals_.Amt1("PARTREMU"));
    other.section10abc.lbl10abc = SumText(other.section10abc.Counted(totals_.Amt2("10abc")));
}

/// The sums of the lists stand as they are between two changes of a list: a key in an amount asks the store nothing.
void frmbusinesscal::CalBalance()
{
    lbltot1 = SumText(Val(header.txtpnl) + Val(lbl511) + Val(lbl560) + Val(txtadddep) + Val(lbl23a) + Val(TxtOth) +
                      Val(lbladdintt) + Val(lbladdremu));
    lbltot2 = SumText(Val(lbltot1) - Val(lbl17) - Val(lblless) - Val(txtlessdep) - Val(lbl23l) - Val(txtlesspart1) -
                      Val(txtlesspart2));
    lblother = SumText(Val(other.lbl564) + Val(other.lbl570) - Val(other.lbl568) - Val(other.Lbl35) -
                       Val(other.section10abc.lbl10abc));
    lblincome = SumText(Val(lbltot2) + Val(lblother));
}

double frmbusinesscal::BookProfit(double interest, double remuneration) const
{
    if (!RulesOf(run).IsNormal())
        return Val(presumptive.Lbl44AD) - Val(presumptive.TxtIntt);
    const double audit =
        run.company.Scalar("select sum(net) from {business} where code = ? and [Type] = '9'", run.Glcode).Number();
    return BookProfitBase({.year = run.Year(),
                           .netIncome = Val(lblincome),
                           .otherHeads = Val(lblless),
                           .exemptIncome = Val(lbl17),
                           .auditAdjustment = audit,
                           .interestOnScreen = Val(lbladdintt),
                           .remunerationOnScreen = Val(lbladdremu),
                           .interest = interest,
                           .remuneration = remuneration,
                           .interestDeducted = Val(txtlesspart1),
                           .remunerationDeducted = Val(txtlesspart2)});
}

bool frmbusinesscal::NothingEntered() const
{
    const TextControl* const entered[] = {&header.txtpnl, &lbl511, &lbl560,  &txtadddep,  &lbl23a, &lbladdintt,
                                          &lbladdremu,    &lbl17,  &lblless, &txtlessdep, &lbl23l, &lblother};
    return std::all_of(std::begin(entered), std::end(entered), [](const auto* amount) { return Val(*amount) == 0; }) &&
           !totals_.Has("PARTREMU") && !totals_.Has("PARTINTT");
}

/// What is in a list or among the partners counts too, saved there or not.
bool frmbusinesscal::Altered() const
{
    return header.Altered() || annexure_.Altered() || fra1.Altered() || fra2.Altered() || fra4.Altered() ||
           partners.Altered() || presumptive.Altered() || other.section35.Altered() || accounts.Altered() ||
           import.Altered();
}

void frmbusinesscal::Save()
{
    if (!header.RefusesSave(NothingEntered()))
        StoreAndLeave(lblincome);
}

/// `cmdsave44ad`: with books the computation goes on from the accounts, without them the deemed profit is stored.
void frmbusinesscal::SaveDeemed()
{
    if (!presumptive.MayGoOn())
        return;
    if (presumptive.chk44ad.value)
        return Continue();
    if (!presumptive.MayBeStored())
        return;
    TakeDescriptions();
    StoreAndLeave(presumptive.lbl44adfinal);
}

void frmbusinesscal::TakeDescriptions()
{
    header.txtdescr1 = presumptive.txt44ad1.text();
    header.txtdescr2 = presumptive.txt44ad2.text();
}

void frmbusinesscal::Continue()
{
    TakeDescriptions();
    presumptive.fra44ad.visible = false;
    framain.visible = header.CmdBack.visible = true;
    SetFocus(header.txtdescr1);
}

void frmbusinesscal::StoreAndLeave(const TextControl& income)
{
    if (!Store())
        return ReadAnnexureAnew();
    TellSaved(header.Name(), Val(income));
    run.screens.Return();
}

/// False, with nothing written, when the working rows of the annexure are another run's.
bool frmbusinesscal::Store()
{
    Transaction transaction({run.company, run.balance});
    const double sno = header.WriteRow(TypeOf(Line()), BusinessColumns(), transaction);
    if (framain.visible)
        StoreOther(sno, transaction);
    if (!RulesOf(run).IsNormal())
        presumptive.Store(sno, transaction);
    if (partners.ChkChange.value)
        LineDetails(run, "PARTCHANGE", sno).Add({{"amt1", 1}}, transaction);
    CopyWorkToLine(
        run, sno, [this](std::string_view type) { return GoesAlong(type); }, Apostrophes::Blank);
    if (!annexure_.Claim(transaction)) // behind `company`, which a deletion locks first too
        return false;
    annexure_.Store(sno, transaction);
    transaction.Commit();
    return true;
}

bool frmbusinesscal::GoesAlong(std::string_view type) const
{
    if (type == "10abc")
        return other.section10abc.IsClaimed();
    return !RulesOf(run).HasSeveralBusinesses() || !EqualsIgnoringCase(type, kBusinesses);
}

void frmbusinesscal::ReadAnnexureAnew()
{
    annexure_.Open(header.IsEdit() ? std::optional(header.Sno()) : std::nullopt);
    if (const auto depreciation = annexure_.Depreciation())
        txtlessdep = Amount(*depreciation);
    txtlessdep.enabled = !annexure_.Depreciation();
    run.Inform(kAnnexureOfAnotherRun);
}

std::vector<Field> frmbusinesscal::BusinessColumns() const
{
    const bool isDeemed = presumptive.fra44ad.visible || (Kind(Line()).isDeemed && !presumptive.chk44ad.value);
    const auto computed = [&](const TextControl& amount) { return isDeemed ? 0 : Val(amount); };
    const auto& claims = other.section10abc;
    return {{"PNL", computed(header.txtpnl)},
            {"dep1", computed(txtadddep)},
            {"dep2", computed(txtlessdep)},
            {"q10abc1", !isDeemed && claims.chk10abc1.value},
            {"q10abc2", !isDeemed && claims.chk10abc2.value},
            {"NET", computed(lblincome)},
            {"books", presumptive.chk44ad.value.get()},
            {"turnover", presumptive.Entered().Total()},
            {"sec44", Val(presumptive.Lbl44AD)},
            {"net44", Val(presumptive.lbl44adfinal)}};
}

void frmbusinesscal::StoreOther(double sno, const Transaction& proof) const
{
    const RowsOfType stored = MiscItems(run, "BusOth", sno);
    stored.Delete(proof);
    if (Val(TxtOth) != 0)
        stored.Add({{"amt1", Val(TxtOth)}}, proof);
}

void frmbusinesscal::Delete()
{
    if (header.Delete())
        Leave();
}

/// With a side frame up, that alone is left; from the computation of a presumptive line the way goes back over its own
/// frame.
void frmbusinesscal::Back()
{
    if (Frame* card = Card())
        return card->onEscape();
    if (RulesOf(run).IsNormal() || presumptive.fra44ad.visible)
        return Close();
    framain.visible = header.CmdBack.visible = false;
    presumptive.fra44ad.visible = true;
}

void frmbusinesscal::Close()
{
    if (MayDiscard(run, Altered()))
        Leave();
}

void frmbusinesscal::Leave()
{
    run.screens.Return();
    annexure_.Drop(); // a store that is locked must not keep the preparer here; the next opening empties it too
}

} // namespace pgbp
