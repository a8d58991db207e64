#include "annexure/annexure_screen.h"

#include "annexure/block_check.h"
#include "services/format.h"
#include "services/text.h"
#include "startup/shared_services.h"
#include "startup/status.h"
#include "store/files.h"
#include "store/schema.h"

#include <utility>

namespace pgbp {
namespace {

constexpr std::string_view kCapitalGainAnnexure = "Capital Gain Annexure";
constexpr std::string_view kOtherSources = "Other Sources - Depreciation Annexure";

/// First assessment year in which the part disallowed u/s 38(2) is asked for.
constexpr int kFirstYearOf382 = 2024;

std::vector<std::string> GroupsOf(const AnnexureEdition& edition)
{
    std::vector<std::string> groups(kAssetGroups.begin(), kAssetGroups.end());
    if (!edition.hasHalves)
        std::erase(groups, "Ships");
    return groups;
}

} // namespace

AnnexureScreen::AnnexureScreen(Run& itsRun, const AnnexureEdition& edition)
    : Screen(itsRun, std::string(edition.screen), "Depreciation Annexure"),
      DBGrid1(*this, "DBGrid1", GridColumns(Columns(edition))),
      MSH(*this, "MSH", {{"SNo", GridColumnKind::Serial}, {"Name"}}), entry(*this, DBGrid1, CmdAdd, Columns(edition)),
      edition_(edition)
{
    CBOGRP.SetItems(GroupsOf(edition_));
    txtname.maxLength = ColumnWidth("balance", "fassets", "f_name");
    for (const ItemColumn<AnnexureRow>& column : entry.columns())
        if (auto* amount = dynamic_cast<txtn*>(column.field))
            amount->deci = edition_.places;
    txtdeprate.deci = 2;
    txtsales.deci = TxtNetDep.deci = edition_.places;
    LayOut();
    WireFields();
    WireButtons();
}

/// The grid shows the eight columns that a preparer reads; what else a row holds is in its fields when it is taken
/// back.
std::vector<ItemColumn<AnnexureRow>> AnnexureScreen::Columns(const AnnexureEdition& edition)
{
    using enum GridColumnKind;
    const int places = edition.places;
    TextBox* const typedSales = edition.hasHalves ? nullptr : &txtsales;
    std::vector<ItemColumn<AnnexureRow>> columns = {
        {.shown = {"Name", GridColumnKind::Text, 2}, .member = &AnnexureRow::name, .field = &txtname},
        {.shown = {"Rate", Rate}, .member = &AnnexureRow::rate, .field = &txtdeprate, .places = 0},
        {.shown = {"Op.Bal", Amount}, .member = &AnnexureRow::opening, .field = &txtopbal, .places = places},
        {.shown = {"Purch 1st Half", Amount}, .member = &AnnexureRow::purchases1, .field = &txtpur1, .places = places},
        {.shown = {"Purch 2nd Half", Amount}, .member = &AnnexureRow::purchases2, .field = &txtpur2, .places = places},
        {.shown = {"Sale", Amount}, .member = &AnnexureRow::sales, .field = typedSales, .places = places},
        {.shown = {"Dep", Amount}, .member = &AnnexureRow::depreciation, .field = &txtdep, .places = places},
        {.shown = {"Cl.Bal", Amount}, .member = &AnnexureRow::closing, .places = places},
        {.member = &AnnexureRow::group, .field = &CBOGRP, .inGrid = false, .stays = true},
    };
    if (!edition.hasHalves)
        return columns;
    const std::pair<double AnnexureRow::*, txtn*> amounts[] = {
        {&AnnexureRow::sales1, &TxtSales1},      {&AnnexureRow::sales2, &TxtSales2},
        {&AnnexureRow::depreciation1, &TxtDep1}, {&AnnexureRow::depreciation2, &TxtDep2},
        {&AnnexureRow::additional1, &TxtAdd1},   {&AnnexureRow::additional2, &TxtAdd2},
        {&AnnexureRow::expenses, &TxtExps},      {&AnnexureRow::disallowed, &Txt382},
    };
    for (const auto& [member, field] : amounts)
        columns.push_back({.member = member, .field = field, .places = places, .inGrid = false});
    columns.push_back({.member = &AnnexureRow::isEmpty, .tick = &ChkEmpty, .inGrid = false});
    columns.push_back({.member = &AnnexureRow::dateOfSale, .field = &txtdate1, .inGrid = false});
    return columns;
}

void AnnexureScreen::LayOut()
{
    using enum LayoutColumn;
    Label5 = edition_.hasHalves ? "Purchase : 1st Half" : "1st Half";
    Label6 = edition_.hasHalves ? "Purchase : 2nd Half" : "2nd Half";
    Label10 = edition_.hasHalves ? "Total Sales" : "Sales";
    Label16 = edition_.hasHalves ? "Total Depreciation" : "Depreciation";
    FraDt.Lay({.columns = {Caption, Field}, .rows = {{{&Label22, &txtdate1}}}});
    framain.Lay({.columns = {Caption, Field, Caption, Field, Button},
                 .rows = edition_.hasHalves ? RowsWithHalves() : RowsWithoutHalves(),
                 .buttonsLeft = {&Command2, &Command1, &CmdImp, &CmdImportXML}});
    Frame2.Lay({.columns = {Field}, .rows = {{{&MSH}}}, .buttonsRight = {&CmdClose}});
    CmdSave.isDefault = true;
    bar = {&CmdSave, &cmdmain};
}

std::vector<LayoutRow> AnnexureScreen::RowsWithHalves()
{
    return {{{&Label1, &txtname, &Label2, &CBOGRP}},
            {{&Label20}},
            {{&Label3, &txtdeprate, &Label4, &txtopbal}},
            {{&Label5, &txtpur1, &Label6, &txtpur2}},
            {{&Label8, &TxtSales1, &Label9, &TxtSales2}},
            {{&Label7, &lblpur, &Label10, &txtsales}},
            {{&Label11, &lbltotal}},
            {{&Label12, &TxtDep1, &Label13, &TxtDep2}},
            {{&Label14, &TxtAdd1, &Label15, &TxtAdd2}},
            {{&Label16, &txtdep, &Label17, &Txt382}},
            {{&Label18, &TxtNetDep, &Label19, &lblclbal}},
            {.cells = {&ChkEmpty, nullptr, &FraDt}, .keepsPlace = true},
            {{nullptr, nullptr, &Label21, &TxtExps, &CmdAdd}},
            {{&DBGrid1}},
            {.cells = {nullptr, nullptr, &Label23, &LblTot}, .style = RowStyle::Final}};
}

std::vector<LayoutRow> AnnexureScreen::RowsWithoutHalves()
{
    return {{{&Label1, &txtname, &Label2, &CBOGRP}},
            {{&Label3, &txtdeprate, &Label4, &txtopbal}},
            {{&Label5, &txtpur1, &Label6, &txtpur2}},
            {{&Label7, &lblpur, &Label10, &txtsales}},
            {{&Label11, &lbltotal, &Label16, &txtdep, &CmdAdd}},
            {{nullptr, nullptr, &Label19, &lblclbal}},
            {{&DBGrid1}},
            {.cells = {nullptr, nullptr, &Label23, &LblTot}, .style = RowStyle::Final}};
}

void AnnexureScreen::WireFields()
{
    for (txtn* basis : {&txtdeprate, &txtopbal, &txtpur1, &txtpur2, &txtsales, &TxtSales1, &TxtSales2})
        basis->onLostFocus = [this] { Compute(CalcEntry); };
    for (txtn* part : {&TxtDep1, &TxtDep2, &TxtAdd1, &TxtAdd2})
        part->onLostFocus = [this] { Compute(CalcEntryFromParts); };
    for (txtn* total : {&txtdep, &Txt382})
        total->onLostFocus = [this] { Compute(CalcEntryFromTotal); };
    for (txtn* unsigned_ : {&txtdeprate, &txtopbal, &txtpur1, &txtpur2, &txtsales, &txtdep})
        unsigned_->onKeyPress = [](char32_t character) { return character == U'-' ? 0 : character; };
    ChkEmpty.onClick = [this] { FollowTick(); };
    FraDt.visible = false;
    txtsales.enabled = !edition_.hasHalves;
    TxtNetDep.enabled = false;
}

void AnnexureScreen::WireButtons()
{
    entry.blankRowWhenEmpty = true;
    entry.accepts = [this](const AnnexureRow& row) { return Accepts(row); };
    // a parent's annexure does not take out a row of a child
    entry.mayTakeBack = [this](const AnnexureRow& row) { return run.GLminor != 0 || row.minor == 0; };
    entry.complete = [this](AnnexureRow& row) {
        row.sales = Val(txtsales);
        row.closing = Val(lblclbal);
        row.netDepreciation = Val(TxtNetDep);
    };
    entry.given = [this](const AnnexureRow& row) {
        FraDt.visible = ChkEmpty.value.get();
        if (!ChkEmpty.value) // a block that is not empty was not sold
            txtdate1 = "";
        ShowComputed({.row = row,
                      .totalPurchases = row.purchases1 + row.purchases2,
                      .total = row.opening + row.purchases1 + row.purchases2 - row.sales});
    };
    entry.changed = [this] { LblTot = Text(TotalDepreciation(entry.items(), edition_)); };
    Command1.onClick = [this] { ImportFromPreviousYear(); };
    Command2.onClick = [this] { Recalculate(); };
    CmdImp.onClick = [this] { ImportFromBooks(); };
    CmdImportXML.onClick = [this] { ImportForm3cd(); };
    MSH.onDoubleClick = [this](int row) {
        Lower(Frame2);
        ImportLine(Val(MSH.Cell(row, 0)));
    };
    Frame2.onEscape = CmdClose.onClick = [this] { Lower(Frame2); };
    CmdSave.onClick = [this] { Save(); };
    framain.onEscape = cmdmain.onClick = [this] { Close(); };
    framain.onUndo = [this] { entry.Undo(); };
    cmdr.onClick = [this] { run.screens.ShowModal(screens::frmReminder); };
}

void AnnexureScreen::Open(const AnnexureOpening& opening)
{
    opening_ = opening;
    if (!opening.caption.empty())
        caption = opening.caption;
    const Reading reading(run.company);
    previousCode_ = PreviousYearCode(run);
    CmdImp.enabled = !previousCode_.empty();
    ShowWhatThereIs();
    entry.Open(LoadAnnexure(run.balance, Owner()));
    if (run.GLlock != 0)
        return LockAnnexure();
    linked_ = FindLinkedClient(run);
    CmdImp.enabled = CmdImp.enabled || linked_;
}

void AnnexureScreen::ShowWhatThereIs()
{
    const auto ofRates = edition_.followsTheYear ? RateNotice(run.Year()) : std::nullopt;
    Label20 = std::string(ofRates.value_or(""));
    Label20.visible = ofRates.has_value();
    Txt382.enabled = run.Year() >= kFirstYearOf382;
    Label17.visible = Txt382.visible = CmdImportXML.visible = edition_.followsTheYear;
    for (Control* ofHalves : std::initializer_list<Control*>{
             &Command1, &Command2, &Label8, &TxtSales1, &Label9, &TxtSales2, &Label12, &TxtDep1, &Label13, &TxtDep2,
             &Label14, &TxtAdd1, &Label15, &TxtAdd2, &Label18, &TxtNetDep, &Label21, &TxtExps, &ChkEmpty})
        ofHalves->visible = edition_.hasHalves;
}

/// The annexure can be read, and left.
void AnnexureScreen::LockAnnexure()
{
    for (Control* control : controls())
        if (dynamic_cast<TextBox*>(control) || dynamic_cast<PushControl*>(control))
            control->enabled = control == &cmdmain;
    entry.mayTakeBack = [](const AnnexureRow&) { return false; };
    DBGrid1.onEscape = nullptr; // there is no field to return to
}

AnnexureOwner AnnexureScreen::Owner() const
{
    return {.code = run.Glcode,
            .type = caption.get() == kOtherSources ? kOtherSourcesAnnexure : kBusinessAnnexure,
            .minor = run.GLminor,
            .year = run.Year(),
            .edition = edition_};
}

std::string AnnexureScreen::Text(double rupees) const { return edition_.places == 0 ? Rupees(rupees) : Amount(rupees); }

AnnexureEntry AnnexureScreen::Entered() const
{
    AnnexureEntry entered{.totalPurchases = Val(lblpur), .total = Val(lbltotal)};
    for (const ItemColumn<AnnexureRow>& column : entry.columns())
        column.Take(entered.row);
    entered.row.sales = Val(txtsales);
    return entered;
}

void AnnexureScreen::Compute(void (*calc)(AnnexureEntry&, const AnnexureEdition&))
{
    AnnexureEntry computed = Entered();
    calc(computed, edition_);
    const AnnexureRow& row = computed.row;
    txtdep = Text(row.depreciation);
    if (edition_.hasHalves) {
        TxtDep1 = Text(row.depreciation1);
        TxtDep2 = Text(row.depreciation2);
    }
    ShowComputed(computed);
}

/// What no field holds.
void AnnexureScreen::ShowComputed(const AnnexureEntry& computed)
{
    lblpur = Text(computed.totalPurchases);
    txtsales = Text(computed.row.sales);
    lbltotal = Text(computed.total);
    TxtNetDep = Text(computed.row.netDepreciation);
    lblclbal = Text(computed.row.closing);
}

void AnnexureScreen::FollowTick()
{
    FraDt.visible = ChkEmpty.value.get();
    Compute(CalcEntry);
}

bool AnnexureScreen::Accepts(const AnnexureRow& row)
{
    const auto refusal =
        RefusalOfRow(row, {.year = run.Year(),
                           .isCapitalGain = edition_.followsTheYear && caption.get() == kCapitalGainAnnexure,
                           .asksDateOfSale = FraDt.visible,
                           .rates = edition_.rates});
    if (refusal)
        Tell(*refusal);
    return !refusal;
}

void AnnexureScreen::Tell(const AnnexureRefusal& refusal)
{
    const bool isPlain = refusal.titleTail.empty();
    run.host.boxes.Show({refusal.message, isPlain ? "" : run.title + std::string(refusal.titleTail)});
    if (Control* field = Find(refusal.focus))
        SetFocus(*field);
}

/// With several lines of business in the preceding year the preparer chooses one.
void AnnexureScreen::ImportFromPreviousYear()
{
    std::vector<std::vector<std::string>> lines;
    for (const Row line : run.company.Query("select SNO, name1 from {business} where code = ? and [Type] = '1'" +
                                                std::string(run.company.dialect().insertionOrder),
                                            previousCode_))
        lines.push_back({line.At(0).Text(), line.At(1).Text()});
    if (lines.size() <= 1)
        return ImportLine(std::nullopt);
    MSH.SetRows(std::move(lines));
    Raise(Frame2, MSH);
}

void AnnexureScreen::ImportLine(std::optional<double> line)
{
    std::vector<AnnexureRow> rows = LoadClosingValues(run.balance, previousCode_, Owner().type, line, edition_);
    if (rows.empty())
        return run.Inform("Nothing to import....");
    entry.Replace(std::move(rows));
}

/// The books are opened anew where the link has none: the error then names the file.
void AnnexureScreen::ImportFromBooks()
{
    const std::string_view type = IsCompany(run.Glstatus) ? "I" : "G";
    const Connection books = linked_ ? linked_->books : OpenFileToRead({.path = BooksFile(run), .dsn = {}});
    entry.Replace(LoadBooks(books, linked_ ? linked_->code : "", type, edition_));
}

/// The report's blocks are added behind the rows, each through the checks of Add. Nothing is computed: that is the next
/// button's.
void AnnexureScreen::ImportForm3cd()
{
    const Form3cdSchedule schedule = ReadForm3cd(run);
    const auto added =
        std::ranges::count_if(schedule.blocks, [this](const Form3cdBlock& block) { return AddBlock(block); });
    notice = NoticeOfImport(schedule, static_cast<std::size_t>(added));
    SetFocus(Command2);
}

bool AnnexureScreen::AddBlock(const Form3cdBlock& block)
{
    AnnexureRow row = Entered().row;
    PutInto(row, block);
    entry.Enter(row);
    return entry.Add();
}

void AnnexureScreen::Recalculate()
{
    std::vector<AnnexureRow> rows = entry.items();
    RecalculateAnnexure(rows, edition_);
    entry.Replace(std::move(rows));
    Compute(CalcEntry);
}

void AnnexureScreen::Save()
{
    if (!entry.Finish())
        return;
    std::vector<AnnexureRow> rows = entry.items();
    const auto refusal = SaveAnnexure(run.company, run.balance, Owner(), rows, [this] {
        return run.Show(std::string(kBlockDifferenceQuestion), "Confirmation", Icon::Question, Buttons::YesNo,
                        Answer::No) == Answer::Yes;
    });
    const std::string what = caption.get() + ": " + entry.Summary();
    if (rows != entry.items())
        entry.Replace(std::move(rows));
    if (refusal)
        return Tell(*refusal);
    TellTakenOver(what);
    Leave();
}

void AnnexureScreen::Close()
{
    if (MayDiscard(run, entry.Altered()))
        Leave();
}

/// The line takes the depreciation of the rows as they are here, saved or not.
void AnnexureScreen::Leave()
{
    if (opening_.left && Owner().type == kBusinessAnnexure) {
        const bool hasRows =
            std::ranges::any_of(entry.items(), [](const AnnexureRow& row) { return !Trim(row.name).empty(); });
        opening_.left({Text(hasRows ? TotalDepreciation(entry.items(), edition_) : 0), hasRows});
    }
    run.screens.Return();
}

} // namespace pgbp
