#include "statements/statement_screen.h"

#include "records/keys.h"
#include "records/lines.h"
#include "services/format.h"
#include "services/ini_file.h"
#include "services/text.h"
#include "statements/net_profit_line.h"
#include "statements/no_books.h"
#include "statements/template_store.h"
#include "store/schema.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pgbp {
namespace {

constexpr int kFormOfCompanies = 6;

constexpr const char* kWorkbooks = "Excel file(*.xls)|*.xls";

/// Lines that the line of business takes its figures from.
constexpr int kNetProfit = 255;
constexpr int kDepreciation = 254;
constexpr int kIndNetProfit = 7149;
constexpr int kIndDepreciation = 8015;

std::vector<GridColumn> Columns()
{
    using enum GridColumnKind;
    return {{"Serial", Serial},
            {"Description", Text},
            {"Amount", Amount},
            {"Type", Hidden},
            {"SLNO", Hidden},
            {.heading = "Prev. Year", .kind = Amount, .muted = true, .visible = false},
            {.heading = "Detail", .kind = Mark, .visible = false},
            {"Blank Description", Hidden}};
}

/// A statement's form while its screen is open.
StatementForm FormOf(const Run& run)
{
    return OpenStatementForm(run.Year(), static_cast<int>(run.GlITR), StatementKindOf(run.GLrep));
}

IndStatement IndStatementOf(StatementKind kind)
{
    return kind == StatementKind::BalanceSheet ? IndStatement::INDBS : IndStatement::INDPNL;
}

std::string TemplateOf(const StatementKeeping& keeping, const StatementForm& form)
{
    return keeping.isIndAS ? std::string(IndTemplateName(IndStatementOf(form.kind))) : TemplateName(form);
}

std::vector<StatementRow> LoadRows(const Run& run, const StatementKeeping& keeping, const StatementForm& form)
{
    std::vector<StatementRow> rows = LoadTemplate(run.tax, keeping.templates, TemplateOf(keeping, form));
    if (!keeping.ownDescriptions)
        for (StatementRow& row : rows)
            row[kBlankDescription].clear();
    return rows;
}

StatementLines LinesOf(std::span<const StatementRow> rows, const StatementKeeping& keeping, const StatementForm& form)
{
    return {rows, keeping.isIndAS ? IndTotalsRules(IndStatementOf(form.kind), rows.size())
                                  : TotalsRules(OperationFor(form), form)};
}

/// Receipts that no account can hold as negative ones.
bool IsReceipt(int slno)
{
    constexpr std::array kReceipts = {167, 269, 501, 502, 1150, 1163};
    return std::ranges::find(kReceipts, slno) != kReceipts.end();
}

/// Where the net profit and the depreciation stand in forms without lines of that number, counted from the end.
std::pair<std::size_t, std::size_t> DistancesFromEnd(const StatementForm& form)
{
    if (form.year >= 2017)
        return {20, 21};
    return form.GlITR <= 4 ? std::pair<std::size_t, std::size_t>{13, 14} : std::pair<std::size_t, std::size_t>{14, 15};
}

} // namespace

StatementScreen::StatementScreen(Run& itsRun, ScreenName<StatementOpening> name, const StatementKeeping& keeping)
    : Screen(itsRun, std::string(name.text), ""), MSH(*this, "MSH", Columns()), keeping_(keeping),
      form_(FormOf(itsRun)), rows_(itsRun, keeping, form_.kind)
{
    const bool isBalanceSheet = form_.kind == StatementKind::BalanceSheet;
    caption = isBalanceSheet ? "BALANCE SHEET" : "PROFIT AND LOSS ACCOUNT";
    if (keeping.isIndAS)
        lblTot1c = isBalanceSheet ? "Assets" : "Net Profit";
    for (Control* ofBalance : std::initializer_list<Control*>{&lblTot2c, &LblTot2, &lblTot3c, &lblTot3})
        ofBalance->visible = keeping.isIndAS && isBalanceSheet;
    for (Control* ofIndAs : std::initializer_list<Control*>{&lblIndAs, &Command2, &CmdDel})
        ofIndAs->visible = keeping.isIndAS;
    TxtNum.deci = 0;
    Txt1.maxLength = ColumnWidth("balance", "qelgeneral", "name1");
    lblNoBoo1 = "As per the FAQ released by IT Department on feeding in case of No Books Case :-";
    lblNoBoo2 =
        "In case where regular books of accounts are not be maintaine, assessee can furnish the data in serial "
        "number 53 of Part B of Profit && Loss Account (\"No Account Case\"). However, all the rows i.e. 53a to "
        "53d needs to be filled in.";
    lblNoBoo3 = "If negative amount derived in Net Profit at Serial numer 53d, assessee has to get his books audited.";
    lblNoBoo4 = "In view of above guidelines, your entries can not be saved, Please check and fill again...";
    Wire();
    LayOut();
}

void StatementScreen::LayOut()
{
    MSH.SetEditors({&TxtNum, &CmbYN, &Txt1});
    framain.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Caption, LayoutColumn::Amount},
                 .rows = {{{&lblfind, &TxtFind, &ChkPr, &ChkDet}},
                          {{&MSH}},
                          {{&lblIndAs, nullptr, &lblTot1c, &LblTot1}, RowStyle::Final},
                          {{nullptr, nullptr, &lblTot2c, &LblTot2}, RowStyle::Final},
                          {{nullptr, nullptr, &lblTot3c, &lblTot3}, RowStyle::Final}},
                 .buttonsLeft = {&Command1, &CmdNew3, &CmdMulEntry, &cmdexport, &cmdImport, &CmdTrial, &Command2,
                                 &link.CmdOldOV, &link.CmdImp, &link.CmdLink},
                 .buttonsRight = {&CmdSave, &CmdDel}});
    FraBooks.Lay({.columns = {LayoutColumn::Button}, .rows = {{{&ChkBooks}}}, .buttonsRight = {&CmdBackFra}});
    FrNoBoo.Lay({.columns = {LayoutColumn::Caption},
                 .rows = {{{&lblNoBoo1}}, {{&lblNoBoo2}}, {{&lblNoBoo3}}, {{&lblNoBoo4}}, {{&Label10}}},
                 .buttonsRight = {&Cdfd}});
    FraNew3.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Amount},
                 .rows = {{{&lblNew3_1, &TxtNew3_1}}, {{&lblNew3_2, &TxtNew3_2}}, {{&lblNew3}}},
                 .buttonsRight = {&CmdNew3_Back}});
    for (cmd* main : {&CmdSave, &CmdBackFra, &Cdfd, &CmdNew3_Back})
        main->isDefault = true;
    bar = {&CmdBack};
}

void StatementScreen::Wire()
{
    MSH.onEnterCell = [this](int row, int column) { EnterCell(row, column); };
    MSH.onClickCell = [this](int row, int column) { ClickCell(row, column); };
    MSH.canEnter = [this](int row, int column) { return CanEnter(row, column); };
    MSH.onPaste = [this](int row, int column, const auto& lines) { return PasteLines(row, column, lines); };
    MSH.onFind = [this] { SetFocus(TxtFind); };
    MSH.onType = [this](char32_t letter) {
        const bool isOfNumber = letter == U'-' || (letter >= U'0' && letter <= U'9');
        if (letter == U' ' || (isOfNumber && CanEnter(MSH.currentRow(), MSH.currentColumn())))
            return false;
        SetFocus(TxtFind);
        TxtFind.SelectAll();
        return TxtFind.Type(letter);
    };
    TxtFind.onChange = [this] { FindLine(); };
    TxtFind.onEnter = [this] {
        const int row = std::max(MSH.currentRow(), 1);
        MSH.EnterCell(row, kAmount);
        const bool hasList = !MSH.Cell(row, kDetail).empty();
        if (!MSH.editor() && !hasList) // a heading, or a total: on to the next line that can be typed
            MSH.KeyDown(Key::Enter);
    };
    TxtNum.onKeyPress = [this](char32_t key) {
        DataAltered = DataAltered || (key >= U'.' && key <= U'8');
        return key;
    };
    TxtNum.onChange = [this] { TypeAmount(); };
    CmbYN.onClick = [this] { ChooseItem(); };
    Txt1.onChange = [this] { TypeDescription(); };
    framain.onUndo = [this] { TakeBack(); };
    framain.onEscape = CmdBack.onClick = [this] { Close(); };
    const auto showColumns = [this] {
        ShowColumns();
        MSH.EnterCell(std::max(MSH.currentRow(), 1), kAmount);
    };
    ChkPr.onClick = showColumns;
    ChkDet.onClick = [this, showColumns] {
        KeepChoiceOfDetails();
        showColumns();
    };
    Command1.onClick = [this] { Raise(FraBooks, ChkBooks); };
    FraBooks.onEscape = CmdBackFra.onClick = [this] { Proceed(); };
    CmdNew3.onClick = [this] { Raise(FraNew3, TxtNew3_1); };
    TxtNew3_2.onChange = [this] { RunTotals(); };
    FraNew3.onEscape = CmdNew3_Back.onClick = [this] { Lower(FraNew3); };
    FrNoBoo.onEscape = Cdfd.onClick = [this] { Lower(FrNoBoo); };
    Label10.onClick = [this] {
        SaveForced = true;
        Lower(FrNoBoo);
    };
    CmdMulEntry.onClick = [this] { OpenDetails(); };
    details.onAdd = [this] { DataAltered = true; };
    details.onClose = [this](std::vector<DetailEntry> entries, double total) {
        CloseDetails(std::move(entries), total);
    };
    cmdexport.onClick = [this] {
        Export(keeping_.isIndAS ? SheetOfIndStatement(Texts())
                                : SheetOfStatement(Texts(), ExportOperationFor(form_), lines_.ComputedLines()));
    };
    Command2.onClick = [this] { Export(BlankSheetOfIndStatement(Texts())); };
    cmdImport.onClick = [this] { ImportSheet(); };
    CmdTrial.onClick = [this] { ImportTrialBalance(); };
    trial_.onFill = [this](TrialBalanceEntries filled) { FillFromTrialBalance(std::move(filled)); };
    CmdSave.onClick = [this] { Save(); };
    CmdDel.onClick = [this] { Delete(); };
}

void StatementScreen::Open(const StatementOpening& opening)
{
    opening_ = opening;
    sno_ = opening.sno;
    formNumber_.emplace(run.GlITR, form_);
    ChkPr.visible = !Trim(run.GlPrCode).empty();
    Command1.visible = form_.GlITR != kFormOfCompanies;
    std::optional<Reading> reading(std::in_place, run.balance);
    const std::string dType = TemplateOf(keeping_, form_);
    if (!keeping_.isIndAS && !run.readOnly && NeedsRepair(run.tax, dType, form_.year)) {
        reading.reset();
        RepairTemplate(run.tax, run.host.programFolder, dType, form_.year);
        reading.emplace(run.balance);
    }
    entries_ = rows_.ReadDetails(sno_);
    ChkDet.value = clsIniFile{run.host.programFolder / "Settings.ini"}.GetValue(keeping_.settings, "Flags") == "1";
    Fill_MSH();
    Fill_Cond();
    ShowColumns();
    ApplyLock();
    reading.reset();
    if (!keeping_.isIndAS)
        link.Examine();
}

void StatementScreen::Activate()
{
    if (std::exchange(asksBooks_, false)) {
        Raise(FraBooks, ChkBooks);
        return;
    }
    for (int row = 1; row <= MSH.Rows(); ++row)
        if (!MSH.IsHidden(row) && CanEnter(row, kAmount))
            return MSH.EnterCell(row, kAmount);
}

/// From 2023 an individual's return asks for intraday trading apart. A line whose figures are stored keeps them.
void StatementScreen::OfferIntraday()
{
    constexpr int kAskedFrom = 2023;
    const bool isAsked = form_.year >= kAskedFrom && run.GlBusinessKind == kNormal && run.Glstatus == "01" &&
                         form_.kind == StatementKind::ProfitAndLoss && !keeping_.isIndAS;
    const auto stored = isAsked ? rows_.ReadIntraday(sno_) : std::nullopt;
    CmdNew3.visible = isAsked && !stored;
    if (stored) {
        TxtNew3_1 = Amount(stored->turnover);
        TxtNew3_2 = Amount(stored->profit);
    }
}

void StatementScreen::Fill_MSH()
{
    std::vector<StatementRow> rows = LoadRows(run, keeping_, form_);
    lines_ = LinesOf(rows, keeping_, form_);
    const StoredLines stored = sno_ == 0 ? StoredLines() : rows_.Read(sno_);
    asksBooks_ = stored.empty() && form_.GlITR < kFormOfCompanies && run.GLlock == 0;
    for (std::size_t line = 1; line <= lines_.Count(); ++line)
        if (const auto found = stored.find(lines_.Slno(line)); found != stored.end())
            FillLine(line, found->second, rows[line - 1]);
    FillPreviousYear(stored, rows);
    MSH.SetRows(std::move(rows));
    Shade(stored);
    OfferIntraday();
    RunTotals();
    ApplyVisibility();
}

/// A computed line does not keep a stored figure.
void StatementScreen::FillLine(std::size_t line, const StoredLine& stored, StatementRow& row)
{
    ChkBooks.value = stored.booksNotKept;
    if (!lines_.IsClosed(line)) {
        row[kAmount] = FormatAmountIndian(stored.amount, kIndianGrouping);
        lines_.SetAmount(line, row[kAmount]);
    }
    if (stored.isOwn && keeping_.ownDescriptions)
        row[kDescription] = stored.description;
}

void StatementScreen::Shade(const StoredLines& stored)
{
    for (std::size_t line = 1; line <= lines_.Count(); ++line) {
        const int row = static_cast<int>(line);
        if (lines_.IsClosed(line))
            MSH.SetRowLook(row, CellLook::Computed);
        if (const auto found = stored.find(lines_.Slno(line));
            found != stored.end() && found->second.isOwn && keeping_.ownDescriptions)
            MSH.SetCellLook(row, kDescription, CellLook::Own);
    }
}

void StatementScreen::Fill_Cond()
{
    for (const auto& [slno, entries] : entries_)
        if (const auto line = lines_.Find(slno))
            MSH.SetCell(static_cast<int>(*line), kDetail, std::string(kDetailsFilled));
}

void StatementScreen::FillPreviousYear(const StoredLines& stored, std::vector<StatementRow>& rows) const
{
    const auto before = rows_.ReadPreviousYear();
    for (std::size_t line = 1; line <= lines_.Count(); ++line) {
        std::string& text = rows[line - 1][kPreviousYear];
        if (const auto found = before.find(lines_.Slno(line)); found != before.end())
            text = FormatAmountIndian(found->second, kIndianGrouping);
        else if (const auto kept = stored.find(lines_.Slno(line)); kept != stored.end() && keeping_.isIndAS)
            text = kept->second.previousYear;
    }
}

void StatementScreen::ApplyVisibility()
{
    for (std::size_t line = 1; line <= lines_.Count(); ++line)
        MSH.HideRow(static_cast<int>(line), IsNoBooksLine(lines_.Slno(line)) != ChkBooks.value);
}

void StatementScreen::ApplyLock()
{
    if (run.GLlock == 0)
        return;
    for (Control* change :
         std::initializer_list<Control*>{&CmdSave, &CmdDel, &cmdImport, &CmdTrial, &CmdNew3, &CmdMulEntry, &ChkBooks,
                                         &link.CmdOldOV, &link.CmdImp, &link.CmdLink})
        change->enabled = false;
}

void StatementScreen::ShowColumns()
{
    MSH.ShowColumn(kPreviousYear, ChkPr.value && ChkPr.visible);
    MSH.ShowColumn(kDetail, ChkDet.value);
    ChkDet.caption = ChkDet.value ? "Hide &Details" : "Show &Details";
}

/// A program folder that can only be read does not remember the choice.
void StatementScreen::KeepChoiceOfDetails()
{
    try {
        clsIniFile{run.host.programFolder / "Settings.ini"}.WriteValue(keeping_.settings, "Flags",
                                                                       ChkDet.value ? "1" : "0");
    } catch (const Fault& fault) {
        run.Log(fault);
    }
}

void StatementScreen::RunTotals()
{
    lines_.Run(Val(TxtNew3_2));
    for (const std::size_t line : lines_.ComputedLines())
        if (const std::string& text = lines_.At(line).text(); MSH.Cell(static_cast<int>(line), kAmount) != text)
            MSH.SetCell(static_cast<int>(line), kAmount, text);
    ShowTotals();
}

void StatementScreen::ShowTotals()
{
    const auto textAt = [this](std::size_t line) {
        return line <= lines_.Count() ? lines_.At(line).text() : std::string();
    };
    if (!keeping_.isIndAS) {
        if (const auto text = NetProfitText(OperationFor(form_), form_, ChkBooks.value, lines_.amounts(),
                                            lines_.Find(kNetProfit).value_or(0)))
            LblTot1 = *text;
    } else if (form_.kind == StatementKind::ProfitAndLoss) {
        LblTot1 = textAt(kIndNetProfitRow);
    } else if (kIndAssetsRow <= lines_.Count()) {
        LblTot1 = textAt(kIndEquityAndLiabilitiesRow);
        LblTot2 = textAt(kIndAssetsRow);
        AmountCell difference;
        difference.SetRounded(lines_.At(kIndEquityAndLiabilitiesRow).figure() - lines_.At(kIndAssetsRow).figure());
        lblTot3 = difference.text();
    }
}

void StatementScreen::Proceed()
{
    ApplyVisibility();
    ShowTotals();
    Lower(FraBooks);
    Activate();
}

/// True when the figures of the no-books case can not be saved as they are.
bool StatementScreen::RefusesNoBooks()
{
    constexpr int kCheckedFrom = 2013;
    if (!ChkBooks.value)
        return false;
    if (form_.year >= kCheckedFrom && !SaveForced)
        if (const auto missing = MissingNoBooksLine(lines_)) {
            if (RefusesLossWithoutBooks(form_.year, lines_.Slno(*missing), run.GlBusinessKind))
                run.Inform("From the AY 2023-24, Dept. is not accepting loss in case of no books case. Please check");
            else
                Raise(FrNoBoo, Cdfd);
            return true;
        }
    if (!ProfitExceedsReceipts(lines_, form_.year, run.GlBusinessKind))
        return false;
    run.Inform("Gross Profit can not be more than Gross Receipts. Please check");
    return true;
}

/// A warning: the line is stored all the same.
void StatementScreen::WarnOfNegativeReceipts()
{
    for (std::size_t line = 1; line <= lines_.Count(); ++line)
        if (!MSH.IsHidden(static_cast<int>(line)) && IsReceipt(lines_.Slno(line)) && lines_.At(line).figure() < 0)
            run.Inform("Reeipt can not be negative...\nPlease correct....");
}

std::vector<std::vector<Field>> StatementScreen::StoredFields() const
{
    std::vector<std::vector<Field>> stored;
    for (std::size_t line = 1; line <= lines_.Count(); ++line) {
        const int row = static_cast<int>(line);
        if (Trim(lines_.At(line).text()).empty() || MSH.IsHidden(row))
            continue;
        stored.push_back(CellOf(lines_, line, MSH.Cell(row, kDescription), ChkBooks.value));
        if (keeping_.isIndAS)
            stored.back().push_back({"name7", MSH.Cell(row, kPreviousYear)});
    }
    return stored;
}

double StatementScreen::AmountOf(int slno, std::size_t distance) const
{
    const std::size_t rows = lines_.Count() + 1;
    const std::size_t line = lines_.Find(slno).value_or(rows - std::min(distance, rows));
    return lines_.At(line).figure();
}

/// The result columns of a line that the statement makes.
std::vector<Field> StatementScreen::NewLine() const
{
    std::vector<Field> fields = {{"Type", TypeOf(static_cast<BusinessKind>(run.GlBusinessKind))},
                                 {"name1", "Net Profit/Loss as per Profit & Loss Account"},
                                 {"name2", ""},
                                 {"Minor", MinorOfRun(run)}};
    if (!opening_.descr1.empty()) {
        fields[1].value = opening_.descr1;
        fields[2].value = opening_.descr2;
    }
    if (ChkBooks.value) {
        constexpr int kNoSuchLine = -1;
        const double profit = AmountOf(kNoSuchLine, 1);
        fields.insert(fields.end(), {{"PNL", profit}, {"NET", profit}});
        return fields;
    }
    const auto [profitFromEnd, depreciationFromEnd] = DistancesFromEnd(form_);
    const double net = AmountOf(keeping_.isIndAS ? kIndNetProfit : kNetProfit, profitFromEnd);
    const double depreciation = AmountOf(keeping_.isIndAS ? kIndDepreciation : kDepreciation, depreciationFromEnd);
    fields.insert(fields.end(), {{"PNL", net + depreciation}, {"dep1", depreciation}, {"NET", net}});
    return fields;
}

/// Saves, and stays. False when the checks refuse it.
bool StatementScreen::Keep()
{
    DataAltered = false;
    if (RefusesNoBooks())
        return false;
    WarnOfNegativeReceipts();
    DataAltered = true; // while the store may refuse: what was keyed is not left without a question then
    Store();
    DataAltered = false;
    TellSaved(keeping_.isIndAS ? "Statement under Ind AS" : caption.get());
    TellLeftOut();
    return true;
}

void StatementScreen::Save()
{
    if (Keep())
        Leave();
}

/// Shows what another program has stored. What stood here, typed and refused included, is one step of the undo.
void StatementScreen::Reload()
{
    Undo undo;
    for (std::size_t line = 1; line <= lines_.Count(); ++line)
        undo.amounts.emplace_back(line, lines_.At(line).text());
    Fill_MSH();
    Fill_Cond();
    std::erase_if(undo.amounts, [this](const auto& was) {
        return lines_.IsClosed(was.first) || lines_.At(was.first).text() == was.second;
    });
    if (undo.amounts.empty()) {
        notice = "No figure has changed";
    } else {
        notice = std::to_string(undo.amounts.size()) + " figures have changed. Ctrl+Z takes them back.";
        undo_.push_back(std::move(undo));
    }
    if (!Card())
        Activate();
}

/// What was written for a line without an amount is not stored.
void StatementScreen::TellLeftOut()
{
    for (std::size_t line = 1; line <= lines_.Count(); ++line) {
        const std::string text = Trim(MSH.Cell(static_cast<int>(line), kDescription));
        if (lines_.TakesDescription(line) && text != kWrittenByPreparer && !text.empty() &&
            Trim(lines_.At(line).text()).empty())
            notice = notice.get() + ". Not stored, for want of an amount: " + text;
    }
}

/// A save whose commit was reported as failed may have stored the new line all the same: it is written over then.
void StatementScreen::Store()
{
    Transaction transaction({run.company, run.balance});
    double sno = sno_;
    if (sno == 0) {
        const bool stands =
            attempted_ != 0 &&
            !run.company.Query("select code from {business} where code = ? and sno = ?", run.Code(), attempted_)
                 .Empty();
        sno = stands ? attempted_ : NextSno(run, transaction);
        attempted_ = sno;
        if (stands)
            run.company.Delete("from {business} where code = ? and sno = ?", run.Code(), sno);
        std::vector<Field> fields = NewLine();
        fields.insert(fields.end(), {{"code", run.Code()}, {"SNO", sno}});
        run.company.Insert("business", fields);
    }
    rows_.Replace(
        sno,
        {.lines = StoredFields(),
         .details = entries_,
         .intraday = CmdNew3.visible ? std::optional(Intraday{Val(TxtNew3_1), Val(TxtNew3_2)}) : std::nullopt},
        transaction);
    TrialChoices().Add(placesToKeep_, transaction);
    transaction.Commit();
    sno_ = sno;
}

GridTexts StatementScreen::Texts() const
{
    GridTexts grid;
    for (int row = 0; row <= MSH.Rows(); ++row) {
        std::vector<std::string>& texts = grid.emplace_back();
        for (int column = 0; column < kStatementColumns; ++column)
            texts.push_back(MSH.Cell(row, column));
    }
    return grid;
}

void StatementScreen::Export(const xls::Workbook& workbook)
{
    MSH.HideEditor();
    const auto chosen = run.host.files.AskSave(caption.get(), kWorkbooks);
    if (!chosen)
        return;
    xls::WriteXlsFile(workbook, *chosen);
    notice = "Exported to " + chosen->string();
    if (!run.host.processes.Open(*chosen))
        notice = notice.get() + ". There is no program that shows it";
}

/// The rows up to the first one that does not fit stand, without the totals; nothing is stored before Save.
void StatementScreen::ImportSheet()
{
    MSH.HideEditor();
    const auto chosen = run.host.files.AskOpen(caption.get(), kWorkbooks);
    if (!chosen)
        return;
    const Import import = TakeOver(ReadStatementSheet(*chosen), Texts());
    Undo undo;
    for (std::size_t line = 1; line <= import.amounts.size(); ++line) {
        undo.amounts.emplace_back(line, lines_.At(line).text());
        SetAmount(line, import.amounts[line - 1]);
    }
    if (!undo.amounts.empty())
        undo_.push_back(std::move(undo));
    if (import.end == ImportEnd::Completed) {
        for (std::size_t line = 1; line <= import.amounts.size(); ++line)
            if (lines_.TakesNumber(line))
                SetAmount(line, FormatAmountIndian(import.amounts[line - 1], kIndianGrouping));
        RunTotals();
    }
    boxes().Show({import.message, ""});
}

void StatementScreen::Delete()
{
    if (run.Show("Do you really want to delete all details ?", "Confirmation", Icon::Question, Buttons::YesNo,
                 Answer::No) != Answer::Yes)
        return;
    Transaction transaction({run.balance});
    rows_.Delete(sno_, transaction);
    transaction.Commit();
    Close();
}

void StatementScreen::Close()
{
    if (DataAltered && run.Show("Some data has been altered but changes will not be saved..\n"
                                "Do you want to discard changes ?",
                                "Confirmation", Icon::Question, Buttons::YesNo, Answer::No) != Answer::Yes)
        return;
    Leave();
}

/// The opener goes on with the line as it is stored.
void StatementScreen::Leave()
{
    const Recordset line = run.company.Query("select * from {business} where code = ? and sno = ?", run.Code(), sno_);
    if (opening_.left)
        opening_.left(sno_ == 0 || line.Empty() ? std::nullopt : std::optional(Record(line.First())));
    formNumber_.reset();
    run.screens.Return();
}

} // namespace pgbp
