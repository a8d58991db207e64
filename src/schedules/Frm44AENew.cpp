#include "schedules/Frm44AENew.h"

#include "law/goods_carriages.h"
#include "records/keys.h"
#include "records/lines.h"
#include "records/rows_of_type.h"
#include "records/working_copies.h"
#include "services/format.h"
#include "services/text.h"
#include "startup/status.h"
#include "store/schema.h"

#include <utility>

namespace pgbp {
namespace {

constexpr double kAnnexureOfCarriages = 112; ///< `GLwhere` while the annexure of this screen is open
constexpr const char* kPeriod = "Please Enter Period from 1 - 12 ";
constexpr std::string_view kCarriages = "44AE_N";
constexpr std::string_view kVehicles = "VEH"; ///< those of the years before this screen

/// First cells of the return's account: of a business, of a profession; receipts, gross profit, expenses, net profit.
constexpr int kFirstCells[] = {269, 1163};

bool IsPeriod(double months) { return months >= 1 && months <= kMonthsOfYear; }

} // namespace

Frm44AENew::Frm44AENew(Run& itsRun)
    : Screen(itsRun, "Frm44AENew", "COMPUTATION OF PRESUMPTIVE INCOME FROM GOODS CARRIAGES UNDER SECTION 44AE"),
      CarriageFields(static_cast<Screen&>(*this)), MSH(*this, "MSH", GridColumns(Columns())),
      entry(*this, MSH, CmdAdd, Columns()),
      partners(*this, {.bookProfit = [this](double, double) { return Val(Lbl44AD) - Val(LblIntt); },
                       .takesNothing = [] { return false; },
                       .refusesPay = [] { return false; },
                       .saved = [this] { ShowPartners(); }})
{
    LayOut();
    Wire();
}

/// The income is computed when a carriage is added.
std::vector<ItemColumn<Carriage>> Frm44AENew::Columns()
{
    using enum GridColumnKind;
    return {{.shown = {"SNO", Serial}, .member = {}},
            {.shown = {"Reg. No.", Text, 2}, .member = &Carriage::number, .field = &TxtRegNo},
            {.shown = {"Own/Lease/Hired", Text}, .member = &Carriage::holding, .field = &TxtHolding},
            {.shown = {"Capacity", Rate}, .member = &Carriage::tons, .field = &TxtCapacity},
            {.shown = {"Period", Rate}, .member = &Carriage::months, .field = &TxtPeriod, .places = 0},
            {.shown = {"Income", Amount}, .member = &Carriage::income, .places = 0}};
}

std::vector<Check> Frm44AENew::ChecksOfAdd()
{
    return {
        {[this] { return Trim(TxtRegNo.text()).empty(); }, "Please Fill Registration No.", &TxtRegNo},
        {[this] { return Val(TxtCapacity) == 0; }, "Please Fill Capacity...", &TxtCapacity},
        {[this] { return Val(TxtPeriod) == 0; }, "Please Fill Period...", &TxtPeriod},
        {[this] { return !IsPeriod(Val(TxtPeriod)); }, kPeriod, &TxtPeriod},
    };
}

void Frm44AENew::LayOut()
{
    using enum LayoutColumn;
    fratotals44ae.Lay({.columns = {Caption, LayoutColumn::Amount},
                       .rows = {{{&Lbl44ADc, &Lbl44AD}, RowStyle::Total},
                                {{&lblRemuc, &lblRemu}},
                                {{&LblInttc, &LblIntt}},
                                {{&lbl44adfinalc, &lbl44adfinal}, RowStyle::Final}}});
    FraBooks.Lay(
        {.columns = {Caption, LayoutColumn::Amount, Caption, LayoutColumn::Amount},
         .rows = {{{&lblTxt[0], &Txt[0], &lblTxt[1], &Txt[1]}}, {{&lblTxt[2], &Txt[2], &lblTxt[3], &Txt[3]}}}});
    fraHeld.Lay({.columns = {Field, Field, Field}, .rows = {{{&OptOwn, &OptLease, &OptHired}}}});
    framain.Lay({.columns = {Caption, Field, Caption, Field, Caption, Field, Button},
                 .rows = {{{&lblRegNo, &TxtRegNo, &lblHeld, &fraHeld}},
                          {{&lblCapacity, &TxtCapacity, &lblPeriod, &TxtPeriod, &lblIncome, &TxtIncome, &CmdAdd}},
                          {{&MSH}},
                          {{&fratotals44ae}},
                          {{&FraBooks}}},
                 .buttonsLeft = {&CmdPartner, &CmdF}});
    CmdSave.isDefault = true;
    bar = {&CmdSave, &CmdBack};
    const bool hasPartners = HasPartners(run.Glstatus);
    for (Control* ofPartners : std::initializer_list<Control*>{&lblRemuc, &lblRemu, &LblInttc, &LblIntt, &CmdPartner})
        ofPartners->visible = hasPartners;
}

void Frm44AENew::Wire()
{
    TxtRegNo.maxLength = ColumnWidth("company", "misc_items", "name1");
    TxtHolding.visible = TxtIncome.enabled = false;
    TxtPeriod.deci = 0;
    TxtPeriod.grouped = false;
    for (txtn& figure : Txt)
        figure.Set("0.00");

    entry.checks = ChecksOfAdd();
    entry.complete = [this](Carriage& carriage) {
        Compute();
        carriage.number = Replace(carriage.number, "'", " ");
        carriage.income = Val(TxtIncome);
    };
    entry.changed = [this] { AddUp(); };
    entry.footer = [this] {
        return std::vector<std::string>{"", "Total", "", "", Value(MonthsOfAll()).Text(), Lbl44AD.text()};
    };
    entry.given = [this](const Carriage& carriage) { TxtIncome = pgbp::Amount(carriage.income); };
    for (const auto& [option, word] : {std::pair(&OptOwn, "OWN"), {&OptLease, "LEASE"}, {&OptHired, "HIRED"}})
        option->onClick = [this, word = word] { TxtHolding = word; };
    TxtHolding.onChange = [this] { ChooseHolding(); };
    TxtCapacity.onLostFocus = [this] { Compute(); };
    TxtPeriod.onLostFocus = [this] {
        Compute();
        CheckPeriod();
    };
    for (txtn* figure : {&Txt[1], &Txt[2]})
        figure->onLostFocus = [this] { Txt[3] = SumText(Val(Txt[1]) - Val(Txt[2])); };

    CmdPartner.onClick = [this] { partners.Open(); };
    CmdF.onClick = [this] {
        run.GLwhere = kAnnexureOfCarriages;
        run.screens.Show(screens::frmfassetsNew, {.caption = "Capital Gain Annexure"});
    };
    cmdr.onClick = [this] { run.screens.ShowModal(screens::frmReminder); };
    CmdSave.onClick = [this] { Save(); };
    framain.onEscape = CmdBack.onClick = [this] { Close(); };
    framain.onUndo = [this] { entry.Undo(); };
}

void Frm44AENew::Open(const NoOpening&)
{
    run.GLwhere = 0;
    Load();
}

void Frm44AENew::Load()
{
    EmptyWorkingCopies(run);
    const Reading reading(run.company);
    const std::optional<Record> line = StoredLine();
    const std::optional<double> sno = line ? std::optional((*line)["sno"].Number()) : std::nullopt;
    annexure_.Open(sno);
    partners.ChkChange = sno && !LineDetails(run, "PARTCHANGE", *sno).Read("code").Empty();
    openedDetails_ = sno ? CopyLineToWork(run, *sno, DetailRows::All) : Recordset();
    Fill_MSH();
    ShowPartners();
    if (line) {
        Lbl44AD = Rupees((*line)["sec44"].Number());
        ShowNetProfit();
        Txt[0] = pgbp::Amount((*line)["turnover"].Number()); // where the account's cells are gone
        FillAccounts(*sno);
    }
    openedPage_.Remember(framain);
    openedPartners_.Remember(partners.frapartner);
}

void Frm44AENew::Fill_MSH()
{
    std::vector<Carriage> carriages;
    for (const Row row : MiscItems(run, kCarriages).Read())
        carriages.push_back({row["Name1"].Text(), row["Name2"].Text(), row["Amt1"].Number(), row["Amt2"].Number(),
                             row["Am3"].Number()});
    entry.Open(std::move(carriages));
}

void Frm44AENew::FillAccounts(double sno)
{
    for (const Row row : ScheduleCells(run, "NEWPL", sno).Read("amt1, name8"))
        for (const int first : kFirstCells)
            for (int i = 0; i < 4; ++i)
                if (row["amt1"].Number() == first + i)
                    Txt[i] = pgbp::Amount(ParseAmount(row["name8"].Text()));
}

void Frm44AENew::Activate()
{
    if (run.GLwhere == kAnnexureOfCarriages)
        annexure_.TakeOver();
    run.GLwhere = 0;
}

void Frm44AENew::ChooseHolding()
{
    for (const auto& [option, word] : {std::pair(&OptOwn, "OWN"), {&OptLease, "LEASE"}, {&OptHired, "HIRED"}})
        option->value = EqualsIgnoringCase(TxtHolding.text(), word);
}

void Frm44AENew::Compute() { TxtIncome = Rupees(CarriageIncome(Val(TxtCapacity), Val(TxtPeriod))); }

bool Frm44AENew::EntryIsEmpty() const
{
    return TxtRegNo.text().empty() && Val(TxtCapacity) == 0 && Val(TxtPeriod) == 0;
}

/// The field keeps the focus until the months are right. Where no carriage is being entered it lets go.
void Frm44AENew::CheckPeriod()
{
    if (EntryIsEmpty() || IsPeriod(Val(TxtPeriod)))
        return;
    run.Inform(kPeriod);
    SetFocus(TxtPeriod);
}

void Frm44AENew::AddUp()
{
    double deemed = 0;
    for (const Carriage& carriage : entry.items())
        deemed += carriage.income;
    Lbl44AD = Rupees(deemed);
    ShowNetProfit();
}

void Frm44AENew::ShowPartners()
{
    const auto sum = [this](const char* type) {
        return Rupees(
            run.qeltemp.Scalar("select sum(amt1) from {temp1} where code = ? and [Type] = ?", run.Code(), type)
                .Number());
    };
    lblRemu = sum("PARTREMU");
    LblIntt = sum("PARTINTT");
    ShowNetProfit();
}

void Frm44AENew::ShowNetProfit() { lbl44adfinal = Rupees(Val(Lbl44AD) - Val(lblRemu) - Val(LblIntt)); }

double Frm44AENew::MonthsOfAll() const
{
    double months = 0;
    for (const Carriage& carriage : entry.items())
        months += carriage.months;
    return months;
}

bool Frm44AENew::Altered() const
{
    return entry.Altered() || partners.Altered() || annexure_.Altered() || openedPage_.DifferFrom(framain) ||
           openedPartners_.DifferFrom(partners.frapartner) ||
           AsComparedText(ReadWork(run)) != AsComparedText(openedDetails_);
}

void Frm44AENew::Close()
{
    if (!MayDiscard(run, Altered()))
        return;
    run.screens.Return();
    annexure_.Drop(); // a store that is locked must not keep the preparer here; the next opening empties it too
}

void Frm44AENew::Save()
{
    if (!entry.Finish())
        return;
    if (MonthsOfAll() > kMostCarriages * kMonthsOfYear) {
        run.Inform("As per Section 44AE, nnot more than 10 vehicles are not allowed..., Please check.");
        SetFocus(MSH);
        return;
    }
    if (!Store()) {
        const std::optional<Record> line = StoredLine();
        annexure_.Open(line ? std::optional((*line)["sno"].Number()) : std::nullopt);
        return run.Inform(kAnnexureOfAnotherRun);
    }
    TellSaved("Transport Business: " + entry.Summary(), Val(lbl44adfinal));
    run.host.boxes.Show({"Saved", ""});
    Load();
}

/// False, with nothing written, when the working rows of the annexure are another run's.
bool Frm44AENew::Store()
{
    Transaction transaction({run.company, run.balance});
    StoreCarriages(transaction);
    const std::optional<double> sno = StoreLine(transaction);
    if (sno)
        StoreDetails(*sno, transaction);
    if (!annexure_.Claim(transaction)) // behind `company`, which a deletion locks first too
        return false;
    ItemsOfBalance(run, "44AE").Delete(transaction);
    if (sno) {
        ScheduleCells(run, "NEWPL", sno).Delete(transaction);
        annexure_.Store(*sno, transaction);
    }
    transaction.Commit();
    return true;
}

void Frm44AENew::StoreCarriages(const Transaction& proof) const
{
    run.company.Delete("from {business1} where code = ? and [Type] = ?", run.Code(), kVehicles);
    const RowsOfType stored = MiscItems(run, kCarriages);
    stored.Delete(proof);
    for (const Carriage& carriage : entry.items())
        stored.Add({{"Name1", carriage.number},
                    {"Name2", carriage.holding},
                    {"Amt1", carriage.tons},
                    {"Amt2", carriage.months},
                    {"Am3", carriage.income}},
                   proof);
}

std::optional<Record> Frm44AENew::StoredLine() const
{
    const Recordset line = run.company.Query("select * from {business} where code = ? and [Type] = ?" +
                                                 std::string(run.company.dialect().insertionOrder),
                                             run.Code(), TypeOf(kTransport44AE));
    return line.Empty() ? std::nullopt : std::optional(Record(line.First()));
}

/// Without a profit there is no line. Gives the number of the line, also of one that went; nothing where there was
/// none.
std::optional<double> Frm44AENew::StoreLine(const Transaction& proof) const
{
    const std::optional<Record> stored = StoredLine();
    const std::optional<double> sno = stored ? std::optional((*stored)["sno"].Number()) : std::nullopt;
    if (Val(lbl44adfinal) <= 0) {
        if (sno)
            run.company.Delete("from {business} where code = ? and sno = ?", run.Code(), *sno);
        return sno;
    }
    std::vector<Field> fields = {
        {"Type", TypeOf(kTransport44AE)}, {"name1", "Transport Business"}, {"name2", ""},
        {"turnover", Val(Txt[0])},        {"sec44", Val(Lbl44AD)},         {"net44", Val(lbl44adfinal)}};
    for (const char* none : {"PNL", "dep1", "dep2", "q10abc1", "q10abc2", "books", "NET"})
        fields.push_back({none, 0});
    if (sno) {
        UpdateLine(run, *sno, fields, proof);
        return sno;
    }
    return AddLine(run, std::move(fields), proof);
}

/// Partners are those of a line: where it went they go with it. The annexure stays, for the gains on what was sold.
void Frm44AENew::StoreDetails(double sno, const Transaction& proof) const
{
    run.company.Delete("from {business1} where code = ? and sno = ?", run.Code(), sno);
    if (Val(lbl44adfinal) > 0) {
        if (partners.ChkChange.value)
            LineDetails(run, "PARTCHANGE", sno).Add({{"amt1", 1}}, proof);
        CopyWorkToLine(
            run, sno, [](std::string_view type) { return type != kVehicles; }, Apostrophes::Keep);
    }
}

} // namespace pgbp
