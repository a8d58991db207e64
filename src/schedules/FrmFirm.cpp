#include "schedules/FrmFirm.h"

#include "records/keys.h"
#include "records/rows_of_type.h"
#include "services/format.h"
#include "services/tax_numbers.h"
#include "services/text.h"
#include "startup/shared_services.h"
#include "store/schema.h"

#include <algorithm>
#include <utility>

namespace pgbp {
namespace {

constexpr int kNoneIncludedSince = 2016; ///< the profit and loss account takes nothing in from this year on
constexpr int kCellsSince = 2007;

/// Where the amounts of a firm are stored.
constexpr std::pair<const char*, double FirmShare::*> kStored[] = {
    {"amt1", &FirmShare::share},    {"amt2", &FirmShare::profit},   {"amt3", &FirmShare::remuneration},
    {"amt4", &FirmShare::interest}, {"amt5", &FirmShare::expenses}, {"amt6", &FirmShare::balance},
    {"amt7", &FirmShare::net},
};

/// Lines of the profit and loss account that an income beside the account goes through, from other income to the
/// balance carried over.
constexpr int kCells[] = {184, 185, 187, 252, 255, 258, 260, 262};

double NetIncome(const FirmShare& share) { return share.remuneration + share.interest - share.expenses; }

std::string AuditInWords(const std::string& liable) { return liable == "1" ? "Yes" : ""; }

Recordset StoredFirms(const Run& run, const std::string& code)
{
    return run.balance.Query("select * from {qelgeneral} where [Type] = 'FIRM' and code = ? order by Amt10", code);
}

} // namespace

FrmFirm::FrmFirm(Run& itsRun)
    : Screen(itsRun, "FrmFirm", std::string(kFirmShares.caption)), MSH(*this, "MSH", GridColumns(Columns())),
      entry(*this, MSH, CmdAdd, Columns()), lists(*this, UseOfLists())
{
    LayOut();
    Wire();
    if (run.GLlock != 0)
        Lock();
}

std::vector<ItemColumn<FirmShare>> FrmFirm::Columns()
{
    using enum GridColumnKind;
    return {
        {.shown = {"Name of Firm", Text, 3}, .member = &FirmShare::name, .field = &txtname},
        {.shown = {"PAN of Firm", Text}, .member = &FirmShare::pan, .field = &TxtPan},
        {.shown = {"% Share", Rate}, .member = &FirmShare::share, .field = &TxtShare},
        {.shown = {"Profit Amount", Amount}, .member = &FirmShare::profit, .field = &TxtProfit},
        {.shown = {"Remuneration", Amount}, .member = &FirmShare::remuneration, .field = &TxtRem},
        {.shown = {"Interest", Amount}, .member = &FirmShare::interest, .field = &TxtIntt},
        {.shown = {"Expenses", Amount}, .member = &FirmShare::expenses, .field = &TxtExps},
        {.shown = {"Cl. Balance", Amount}, .member = &FirmShare::balance, .field = &TxtClos},
        {.shown = {"Net Income", Amount}, .member = &FirmShare::net},
        {.shown = {"Audit Case", Text, 1, AuditInWords}, .member = &FirmShare::audit, .tick = &ChkAudit},
    };
}

/// What the firm may deduct, as it counts here.
FirmListsUse FrmFirm::UseOfLists()
{
    using enum GridColumnKind;
    return {.back = "Command1",
            .backCaption = "Back",
            .firmHeading = "Name of Firm",
            .partnerColumns = {{"Partner's Name", Text},
                               {"Ratio", Rate},
                               {"Interest", Amount},
                               {"Remuneration", Amount},
                               {"Share", Amount}},
            .cells =
                [](const PartnerShare& partner) {
                    return std::vector{partner.name, pgbp::Amount(partner.ratio),
                                       pgbp::Amount(partner.allowableInterest),
                                       pgbp::Amount(partner.deductedRemuneration), pgbp::Amount(partner.profit)};
                },
            .chosen = [this](const FirmReturn& firm, const PartnerShare& partner) { Take(firm, partner); }};
}

void FrmFirm::LayOut()
{
    using enum LayoutColumn;
    // in columns of its own: a long caption does not part those above from their fields
    franote.Lay({.columns = {Caption, Button}, .rows = {{{&ChkA, &ImgPL}}, {{&lblnote}}}});
    framain.Lay({.columns = {Caption, Field, Button, Caption, Field, Button},
                 .rows = {{{&lblname, &txtname, &ImgHelp, &lblpan, &TxtPan, &ImgPan}},
                          {{&lblshare, &TxtShare, nullptr, &lblprofit, &TxtProfit}},
                          {{&lblrem, &TxtRem, nullptr, &lblintt, &TxtIntt}},
                          {{&lblexps, &TxtExps, nullptr, &lblclos, &TxtClos}},
                          {{&lblnet, &TxtNet, nullptr, nullptr, &ChkAudit, &CmdAdd}},
                          {{&MSH}},
                          {{&franote}}},
                 .buttonsLeft = {&CmdImpYear, &cmdImport, &ChkAll}});
    ChkA.visible = ImgPL.visible = run.Year() < kNoneIncludedSince;
    CmdSave.isDefault = true;
    bar = {&CmdSave, &CmdBack};
}

void FrmFirm::Wire()
{
    txtname.maxLength = TxtPan.maxLength = ColumnWidth("balance", "qelgeneral", "name1");
    TxtPan.onKeyPress = InCapitals;
    TxtPan.onLostFocus = [this] { TellFaultOfPan(); };
    TxtRem.onKeyPress = [this](char32_t character) {
        if (character == U'-')
            run.Inform("Remuneration can not be negative...");
        return character == U'-' ? 0 : character;
    };
    TxtIntt.onKeyPress = [](char32_t character) { return character == U'-' ? 0 : character; };
    TxtRem.onChange = TxtIntt.onChange = TxtExps.onChange = [this] { ShowNet(); };
    TxtNet.enabled = false;
    entry.blankRowWhenEmpty = true;
    entry.complete = [](FirmShare& share) {
        share.name = Trim(Replace(share.name, "'", " "));
        share.pan = Trim(share.pan);
        share.net = NetIncome(share);
    };
    entry.given = [this](const FirmShare&) { TxtRem.toolTip = TxtIntt.toolTip = ""; };
    const auto explain = [this](const Image& image) {
        return [this, &image] { run.screens.ShowModal(screens::FrmHelp, {image.toolTip.get()}); };
    };
    ImgHelp.onClick = explain(ImgHelp);
    ImgPL.onClick = explain(ImgPL);
    ImgPan.onClick = [this] { CheckPAN(*this, TxtPan.text()); };
    CmdImpYear.onClick = [this] { ImportLastYear(); };
    cmdImport.onClick = [this] { ImportFromFirm(); };
    ChkAll.onClick = [this] { lists.Close(); };
    CmdSave.onClick = [this] { Save(); };
    framain.onEscape = CmdBack.onClick = [this] { Close(); };
    framain.onUndo = [this] { entry.Undo(); };
}

/// In a locked year the firms can be read.
void FrmFirm::Lock()
{
    entry.Lock();
    ChkA.enabled = ChkAll.enabled = CmdImpYear.enabled = cmdImport.enabled = CmdSave.enabled = false;
}

void FrmFirm::Open(const MembershipOpening& opening)
{
    share_ = opening.isOfAssociations ? &kAopShares : &kFirmShares;
    caption = std::string(share_->caption);
    std::vector<FirmShare> firms;
    for (const Row row : StoredFirms(run, run.Code())) {
        FirmShare& firm = firms.emplace_back(FirmShare{.name = row["name1"].Text(), .pan = row["name2"].Text()});
        for (const auto& [column, member] : kStored)
            firm.*member = row[column].Number();
        firm.audit = Val(row["name3"].Text()) == 1;
    }
    entry.Open(std::move(firms));
    ChkA.value = FirstField(LineDetails(run, "PFIRM").Read("amt1")).Number() == 1;
    includedBefore_ = ChkA.value;
}

void FrmFirm::ShowNet() { TxtNet = Amount(Val(TxtRem) + Val(TxtIntt) - Val(TxtExps)); }

void FrmFirm::TellFaultOfPan()
{
    if (const std::string pan = Trim(TxtPan.text()); !pan.empty() && !IsPan(pan))
        notice = pan + " is not built as a PAN is.";
}

void FrmFirm::ImportLastYear()
{
    std::vector<FirmShare> firms;
    for (const Row row : StoredFirms(run, PreviousYearCode(run)))
        firms.push_back({.name = row["name1"].Text(), .pan = row["name2"].Text(), .share = row["amt1"].Number()});
    if (firms.empty())
        return;
    entry.Replace(std::move(firms));
    run.Inform("Details Imported...Plesae fill Current yesr figures...");
}

void FrmFirm::ImportFromFirm()
{
    const std::string pan = Trim(run.company.Scalar("select pan from {assessee1} where code = ?", run.Code()).Text());
    const std::vector<std::string> codes = pan.empty() ? std::vector<std::string>() : ReturnsWithPartner(run, pan);
    if (codes.empty() && !ChkAll.value)
        return run.Inform("No Partnership firm is found with the assessee as partner...");
    std::vector<FirmReturn> firms = ChkAll.value ? FirmsOfTheYear(run) : FirmsAmong(run, codes);
    if (firms.empty() && !HasAnyFirm(run))
        return run.Inform("There is no partnership firm...");
    lists.Open(std::move(firms));
}

/// What the firm paid stands in the tips: the amounts are those that it may deduct.
void FrmFirm::Take(const FirmReturn& firm, const PartnerShare& partner)
{
    entry.Enter({.name = firm.name,
                 .pan = firm.pan,
                 .share = partner.ratio,
                 .profit = partner.profit,
                 .remuneration = partner.deductedRemuneration,
                 .interest = partner.allowableInterest});
    const auto paid = [](double rupees) { return "Paid: " + FormatAmountIndian(Amount(rupees), kIndianGrouping); };
    TxtRem.toolTip = paid(partner.remuneration);
    TxtIntt.toolTip = paid(partner.interest);
    SetFocus(txtname);
}

void FrmFirm::Save()
{
    if (!entry.Finish())
        return;
    const double net = Store();
    const auto nameless = std::ranges::count(entry.items(), "", &FirmShare::name);
    TellSaved(caption.get() + ": " + entry.Summary() +
                  (nameless == 0 ? "" : ", " + std::to_string(nameless) + " without a name left out,"),
              net);
    run.screens.Return();
}

/// Gives the net income of all firms.
double FrmFirm::Store()
{
    if (run.Year() >= kNoneIncludedSince)
        ChkA.value = false;
    Transaction transaction({run.company, run.balance});
    LineDetails(run, "PFIRM").Replace({{"amt1", ChkA.value ? 1 : 0}}, transaction);
    const double sno = NextSno(run, transaction); // before the old line goes, so that its number does not come again
    DeleteStored(transaction);
    double net = 0;
    double profit = 0;
    int number = 0;
    for (const FirmShare& firm : entry.items()) {
        if (firm.name.empty())
            continue;
        StoreShare(firm, ++number, sno, transaction);
        net = Val(SumText(net + firm.net));
        profit = Val(SumText(profit + firm.profit));
    }
    if (net != 0)
        AddShareLine(run, *share_, sno, net, transaction);
    if (run.Year() >= kCellsSince && ChkA.value)
        StoreCells(net + profit, transaction);
    transaction.Commit();
    return net;
}

/// Shares of a save whose net income was 0 have no line that leads to them: those of the assessee-year go.
void FrmFirm::DeleteStored(const Transaction& transaction) const
{
    ScheduleCells(run, "FIRM").Delete(transaction);
    MiscItems(run, "SPRO").Delete(transaction);
    ScheduleCells(run, "NEWPL", kFirmCells).Delete(transaction);
    LineDetails(run, share_->detail).Delete(transaction);
    run.company.Delete("from {business} where code = ? and [Type] = ?", run.Code(), TypeOf(share_->kind));
}

void FrmFirm::StoreShare(const FirmShare& share, int number, double sno, const Transaction& transaction) const
{
    std::vector<Field> fields{{"name1", share.name},
                              {"name2", share.pan},
                              {"name3", share.audit.value_or(false) ? "1" : "0"},
                              {"amt8", share.remuneration + share.interest},
                              {"Amt10", number}};
    for (const auto& [column, member] : kStored)
        fields.push_back({column, share.*member});
    ScheduleCells(run, "FIRM").Add(std::move(fields), transaction);
    AddShare(run, *share_, sno, share.name, share.net, transaction);
    if (share.profit != 0)
        MiscItems(run, "SPRO").Add({{"name1", share.name}, {"name2", share.pan}, {"amt1", share.profit}}, transaction);
}

void FrmFirm::StoreCells(double rupees, const Transaction& transaction) const
{
    const RowsOfType cells = ScheduleCells(run, "NEWPL", kFirmCells);
    for (const int cell : kCells)
        cells.Add({{"amt1", cell}, {"name8", Rupees(rupees)}, {"name9", "ASdf"}}, transaction);
}

void FrmFirm::Close()
{
    if (MayDiscard(run, entry.Altered() || ChkA.value != includedBefore_))
        run.screens.Return();
}

} // namespace pgbp
