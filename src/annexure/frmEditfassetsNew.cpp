#include "annexure/frmEditfassetsNew.h"

#include "annexure/annexure_rules.h"
#include "entry/checks.h"
#include "services/format.h"
#include "store/schema.h"

#include <utility>

namespace pgbp {
namespace {

const AnnexureEdition& kEdition = kAnnexureInGrid;

enum EditColumn : int { kName, kGroup, kRate, kOpening, kDateOfSale, kMark = 19 };

/// An amount of the grid: typed, or computed from the others.
struct AmountColumn {
    const char* heading;
    double (*of)(const AnnexureRow&);
    double AnnexureRow::*typed = nullptr;
};

double Purchases(const AnnexureRow& row) { return row.purchases1 + row.purchases2; }

template <double AnnexureRow::*Amount>
constexpr AmountColumn Typed(const char* heading)
{
    return {heading, [](const AnnexureRow& row) { return row.*Amount; }, Amount};
}

template <double AnnexureRow::*Amount>
constexpr AmountColumn Computed(const char* heading)
{
    return {heading, [](const AnnexureRow& row) { return row.*Amount; }};
}

/// From the fifth column on.
constexpr AmountColumn kAmounts[] = {
    Typed<&AnnexureRow::purchases1>("Purch 1st Half"),
    Typed<&AnnexureRow::purchases2>("Purch 2nd Half"),
    {"Total Purch", Purchases},
    Typed<&AnnexureRow::sales1>("Sales 1st Half"),
    Typed<&AnnexureRow::sales2>("Sales 2nd Half"),
    Computed<&AnnexureRow::sales>("Total Sales"),
    {"Total", [](const AnnexureRow& row) { return row.opening + Purchases(row) - row.sales; }},
    Computed<&AnnexureRow::depreciation1>("Dep full rate"),
    Computed<&AnnexureRow::depreciation2>("Dep half rate"),
    Typed<&AnnexureRow::additional1>("Add. Dep 1"),
    Typed<&AnnexureRow::additional2>("Add. Dep 2"),
    Computed<&AnnexureRow::depreciation>("Total Dep"),
    Computed<&AnnexureRow::closing>("Cl.Bal"),
    Typed<&AnnexureRow::expenses>("Exps. on Transfer"),
};
constexpr int kFirstAmount = kDateOfSale + 1;

/// Where the typed number of a column belongs; none for another column.
double AnnexureRow::*TypedNumber(int column)
{
    if (column == kRate)
        return &AnnexureRow::rate;
    if (column == kOpening)
        return &AnnexureRow::opening;
    const bool isAmount = column >= kFirstAmount && column < kMark;
    return isAmount ? kAmounts[column - kFirstAmount].typed : nullptr;
}

std::vector<GridColumn> Columns()
{
    using enum GridColumnKind;
    std::vector<GridColumn> columns = {
        {"Name", Text, 2}, {"Group"}, {"Rate", Rate}, {"Op.Bal", Amount}, {"Date of Sale"}};
    for (const AmountColumn& amount : kAmounts)
        columns.push_back({amount.heading, Amount});
    columns.push_back({"Empty", Mark});
    return columns;
}

std::vector<std::string> CellsOf(const AnnexureRow& row)
{
    std::vector<std::string> cells = {row.name, row.group, Value(row.rate).Text(), Amount(row.opening),
                                      row.dateOfSale ? DayText(*row.dateOfSale) : ""};
    for (const AmountColumn& amount : kAmounts)
        cells.push_back(Amount(amount.of(row)));
    cells.emplace_back(row.isEmpty.value_or(false) ? "T" : "F");
    return cells;
}

bool AreAlike(const std::vector<StoredAsset>& one, const std::vector<StoredAsset>& other)
{
    return std::ranges::equal(one, other, {}, &StoredAsset::row, &StoredAsset::row);
}

} // namespace

frmEditfassetsNew::frmEditfassetsNew(Run& itsRun)
    : Screen(itsRun, std::string(kEdition.screen), "Edit Depreciation Annexure"), MSH(*this, "MSH", Columns())
{
    txtGr.SetItems({kAssetGroups.begin(), kAssetGroups.end()});
    txtname.maxLength = ColumnWidth("balance", "fassets", "f_name");
    MSH.SetEditors({&txtname, &txtGr, &TxtNum, &txtdate1});
    framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&MSH}}}});
    cmbsave.isDefault = true;
    bar = {&cmbsave, &CmdBack};
    Wire();
}

void frmEditfassetsNew::Wire()
{
    MSH.onEnterCell = [this](int row, int column) { EnterCell(row, column); };
    MSH.canEnter = [this](int, int column) { return CanEnter(column); };
    MSH.onClickCell = [this](int row, int column) {
        if (column == kMark && run.GLlock == 0)
            TurnMark(row);
    };
    for (TextBox* editor : MSH.editors())
        editor->onChange = [this, editor] { TakeFrom(*editor); };
    TxtNum.onLostFocus = [this] { CheckRate(); };
    cmbsave.onClick = [this] { Update(); };
    cmbsave.enabled = run.GLlock == 0;
    framain.onEscape = CmdBack.onClick = [this] { Close(); };
}

void frmEditfassetsNew::Open(const NoOpening&)
{
    assets_ = opened_ = LoadAllAssets(run.balance, run.Code(), kEdition);
    std::vector<std::vector<std::string>> rows;
    for (const StoredAsset& asset : assets_)
        rows.push_back(CellsOf(asset.row));
    MSH.SetRows(std::move(rows));
}

void frmEditfassetsNew::Activate()
{
    if (MSH.Rows() > 0)
        MSH.EnterCell(1, kName);
}

bool frmEditfassetsNew::CanEnter(int column) const
{
    return run.GLlock == 0 && (column <= kDateOfSale || TypedNumber(column));
}

void frmEditfassetsNew::EnterCell(int row, int column)
{
    if (!CanEnter(column))
        return;
    TextBox* const words[] = {&txtname, &txtGr, nullptr, nullptr, &txtdate1};
    MSH.PlaceEditor(TypedNumber(column) ? static_cast<TextBox&>(TxtNum) : *words[column], row, column);
}

AnnexureRow& frmEditfassetsNew::Current() { return assets_.at(static_cast<std::size_t>(MSH.currentRow()) - 1).row; }

void frmEditfassetsNew::TakeFrom(const TextBox& editor)
{
    if (MSH.editor() != &editor)
        return;
    if (&editor == &txtname)
        Current().name = editor.text();
    else if (&editor == &txtGr)
        Current().group = editor.text();
    else if (&editor == &txtdate1)
        Current().dateOfSale = FromDayText(editor.text());
    else
        Current().*TypedNumber(MSH.currentColumn()) = Val(editor);
    Compute();
}

void frmEditfassetsNew::CheckRate()
{
    if (MSH.currentRow() == 0 || MSH.currentColumn() != kRate)
        return;
    const AnnexureRow& row = Current();
    if (const auto message = RefusalOfRate(row.group, run.Year(), row.rate, kEdition.rates))
        run.host.boxes.Show({std::string(*message), run.title + ":- Information "});
}

void frmEditfassetsNew::TurnMark(int row)
{
    MSH.SetCurrentRow(row);
    Current().isEmpty = !Current().isEmpty.value_or(false);
    Compute();
}

void frmEditfassetsNew::Compute()
{
    AnnexureEntry entry{.row = Current()};
    CalcEntry(entry, kEdition);
    Current() = entry.row;
    ShowRow(MSH.currentRow());
}

void frmEditfassetsNew::ShowRow(int row)
{
    std::vector<std::string> cells = CellsOf(Current());
    for (std::size_t column = 0; column < cells.size(); ++column)
        MSH.SetCell(row, static_cast<int>(column), std::move(cells[column]));
}

void frmEditfassetsNew::Close()
{
    if (MayDiscard(run, !AreAlike(assets_, opened_)))
        run.screens.Return();
}

void frmEditfassetsNew::Update()
{
    SaveAllAssets(run.balance, run.Code(), assets_, kEdition);
    TellSaved(caption.get() + ": " + std::to_string(assets_.size()) + " rows");
    run.screens.Return();
}

} // namespace pgbp
