#include "schedules/FrmQ47ii.h"

#include "records/rows_of_type.h"
#include "services/text.h"
#include "store/schema.h"

#include <utility>

namespace pgbp {
namespace {

constexpr std::string_view kType = "ITR6PLQ47";
constexpr std::string_view kIndia = "INDIA";
constexpr std::string_view kOutsideIndia = "State outside India";

/// Where the texts of a debtor are stored, in the order of the columns behind the number.
constexpr std::pair<const char*, std::string BadDebt::*> kStored[] = {
    {"Name1", &BadDebt::name}, {"Name2", &BadDebt::flat}, {"Name3", &BadDebt::premises}, {"Name4", &BadDebt::road},
    {"Name5", &BadDebt::area}, {"Na2", &BadDebt::town},   {"Na3", &BadDebt::state},      {"Na4", &BadDebt::country},
    {"Add1", &BadDebt::pin},   {"Add2", &BadDebt::zip},
};

/// The suite's table has a row with this text, in whatever case it is typed.
bool IsListed(const Connection& tax, const std::string& table, const std::string& column, const std::string& text)
{
    const Dialect& dialect = tax.dialect();
    return !tax.Query("select " + column + " from {" + table + "} where " + dialect.Upper(dialect.Trim(column)) +
                          " = ?",
                      Upper(Trim(text)))
                .Empty();
}

} // namespace

FrmQ47ii::FrmQ47ii(Run& itsRun)
    : Screen(itsRun, "FrmQ47ii", "Bad Debts (more than Rs. 1 lakh) where PAN is not available"),
      MSH(*this, "MSH", GridColumns(Columns())), entry(*this, MSH, CmdAdd, Columns())
{
    LayOut();
    Wire();
    Fill_State();
    Fill_Country();
    ShowCodeOfCountry();
    if (run.GLlock != 0)
        Lock();
}

std::vector<ItemColumn<BadDebt>> FrmQ47ii::Columns()
{
    using enum GridColumnKind;
    return {
        {.shown = {"SNO", Serial}, .member = {}},
        {.shown = {"Name", Text, 3}, .member = &BadDebt::name, .field = &Txt1},
        {.shown = {"Flat/ Door/ Block No.", Text}, .member = &BadDebt::flat, .field = &Txt2},
        {.shown = {"Name of Premises / Building / Village", Text}, .member = &BadDebt::premises, .field = &Txt3},
        {.shown = {"Road/ Street/Post office", Text}, .member = &BadDebt::road, .field = &Txt4},
        {.shown = {"Area/ Locality", Text}, .member = &BadDebt::area, .field = &Txt5},
        {.shown = {"Town/ City/ District", Text}, .member = &BadDebt::town, .field = &Txt6},
        {.shown = {"State", Text}, .member = &BadDebt::state, .field = &CombState},
        {.shown = {"Country", Text}, .member = &BadDebt::country, .field = &CombCountry},
        {.shown = {"PIN Code", Text}, .member = &BadDebt::pin, .field = &Txt7},
        {.shown = {"ZIP Code", Text}, .member = &BadDebt::zip, .field = &Txt8},
        {.shown = {"Amount", Amount}, .member = &BadDebt::amount, .field = &Txtn1},
    };
}

std::vector<Check> FrmQ47ii::ChecksOfAdd()
{
    const auto isBlank = [](const TextBox& field) { return [&field] { return Trim(field.text()).empty(); }; };
    return {
        {isBlank(Txt1), "Please Enter Name...", &Txt1},
        {isBlank(Txt2), "Please Enter Address...", &Txt2},
        {isBlank(CombState), "Please Select State ...", &CombState},
        {isBlank(CombCountry), "Please Select Country...", &CombCountry},
        {[this] {
             return !EqualsIgnoringCase(Trim(CombState.text()), kOutsideIndia) &&
                    !IsListed(run.tax, "statecode", "nm", CombState.text());
         },
         "Please Select Correct State...", &CombState},
        {[this] { return !IsListed(run.tax, "Coun", "Coun_Name", CombCountry.text()); },
         "Please Select Correct Country...", &CombCountry},
    };
}

/// The fields in the order of the columns.
void FrmQ47ii::LayOut()
{
    using enum LayoutColumn;
    framain.Lay({.columns = {Caption, Field, Caption, Field, Button},
                 .rows = {{{&Label1, &Txt1, &Label2, &Txt2}},
                          {{&Label3, &Txt3, &Label4, &Txt4}},
                          {{&Label5, &Txt5, &Label6, &Txt6}},
                          {{&Label7, &CombState, &Label8, &CombCountry}},
                          {{&Label9, &Txt7, &Label10, &Txt8}},
                          {{&Label11, &Txtn1, nullptr, nullptr, &CmdAdd}},
                          {{&MSH}}}});
    Command11.isDefault = true;
    bar = {&Command11, &CmdBack};
}

void FrmQ47ii::Wire()
{
    for (std::size_t i = 0; i < std::size(kStored); ++i)
        entry.columns()[i + 1].field->maxLength = ColumnWidth("company", "misc_items", kStored[i].first);
    // the suite's programs build the name into statements
    Txt1.onKeyPress = [](char32_t character) { return character == U'\'' ? U' ' : character; };
    CombCountry.onChange = [this] { ShowCodeOfCountry(); };
    entry.blankRowWhenEmpty = true;
    entry.checks = ChecksOfAdd();
    entry.complete = [](BadDebt& debt) { debt.name = Replace(debt.name, "'", " "); };
    Command11.onClick = [this] { Save(); };
    framain.onEscape = CmdBack.onClick = [this] { Close(); };
    framain.onUndo = [this] { entry.Undo(); };
}

/// In a locked year the list can be read.
void FrmQ47ii::Lock()
{
    entry.Lock();
    Command11.enabled = false;
    CombCountry.onChange = nullptr;
}

void FrmQ47ii::Fill_State()
{
    std::vector<std::string> states = FirstFields(run.tax.Query("select nm from {statecode} order by nm"));
    std::erase_if(states, [](const std::string& state) { return Upper(state).find("FOREIGN") != std::string::npos; });
    states.emplace_back(kOutsideIndia);
    CombState.SetItems(std::move(states));
}

void FrmQ47ii::Fill_Country()
{
    CombCountry.SetItems(FirstFields(run.tax.Query("select Coun_Name from {Coun} order by Coun_Name")));
}

void FrmQ47ii::Open(const BadDebtsOpening& opening)
{
    opening_ = opening;
    Fill_MSH1();
}

void FrmQ47ii::Fill_MSH1()
{
    std::vector<BadDebt> debts;
    for (const Row row : MiscItems(run, kType).Read()) {
        BadDebt& debt = debts.emplace_back();
        for (const auto& [column, member] : kStored)
            debt.*member = row[column].Text();
        debt.amount = row["Amt1"].Number();
    }
    entry.Open(std::move(debts));
}

/// Outside India an address has a ZIP code in place of the PIN.
void FrmQ47ii::ShowCodeOfCountry()
{
    const std::string country = Trim(CombCountry.text());
    const bool isAbroad = !country.empty() && !EqualsIgnoringCase(country, kIndia);
    Txt7.enabled = !isAbroad;
    Txt8.enabled = isAbroad;
}

void FrmQ47ii::Close()
{
    if (MayDiscard(run, entry.Altered()))
        run.screens.Return();
}

void FrmQ47ii::Save()
{
    if (!entry.Finish())
        return;
    const double total = Store();
    if (opening_.saved)
        opening_.saved(total);
    TellSaved(caption.get() + ": " + entry.Summary(), total);
    run.host.boxes.Show({"Saved", ""});
    run.screens.Return();
}

double FrmQ47ii::Store() const
{
    const RowsOfType stored = MiscItems(run, kType);
    Transaction transaction({run.company});
    stored.Delete(transaction);
    double total = 0;
    for (const BadDebt& debt : entry.items()) {
        std::vector<Field> fields{{"Amt1", debt.amount}};
        for (const auto& [column, member] : kStored)
            fields.push_back({column, debt.*member});
        stored.Add(std::move(fields), transaction);
        total += debt.amount;
    }
    transaction.Commit();
    return total;
}

} // namespace pgbp
