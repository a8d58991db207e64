#include "schedules/FrmGST.h"

#include "entry/checks.h"
#include "records/rows_of_type.h"
#include "services/format.h"
#include "services/tax_numbers.h"
#include "services/text.h"
#include "startup/shared_services.h"
#include "store/schema.h"

#include <algorithm>

namespace pgbp {
namespace {

constexpr int kPairs = 20;

/// The first place has a name of its own, in the form and in the store.
std::string NameOf(std::string_view first, std::string_view others, int number)
{
    return number == 1 ? std::string(first) : std::string(others) + std::to_string(number);
}

} // namespace

FrmGST::Pair::Pair(Form& form, int itsNumber)
    : number(itsNumber), lblGstin(form, "lblgst" + std::to_string(number), "GSTIN " + std::to_string(number)),
      gstin(form, NameOf("TxtGstin", "txtgst", number)), lblAmount(form, "lblamt" + std::to_string(number), "Turnover"),
      turnover(form, NameOf("TxtAmt", "txtamt", number))
{
    gstin.maxLength = ColumnWidth("company", "misc_items", "name1");
    gstin.onKeyPress = InCapitals;
    turnover.deci = 0;
}

std::string FrmGST::Pair::Type() const { return NameOf("CGST", "CGST", number); }

bool FrmGST::Pair::IsFilled() const { return !Trim(gstin.text()).empty(); }

FrmGST::FrmGST(Run& itsRun) : Screen(itsRun, "FrmGST", "GST Details")
{
    for (int number = 1; number <= kPairs; ++number)
        pairs.emplace_back(*this, number);
    LayOut();
    Wire();
    Load();
    opened_.Remember(framain);
    if (run.GLlock != 0)
        Lock();
}

/// Two places a row, so that Enter goes through them by their numbers.
void FrmGST::LayOut()
{
    using enum LayoutColumn;
    std::vector<LayoutRow> rows;
    for (std::size_t i = 0; i < pairs.size(); i += 2) {
        LayoutRow& row = rows.emplace_back();
        for (Pair* pair : {&pairs[i], &pairs[i + 1]})
            row.cells.insert(row.cells.end(), {&pair->lblGstin, &pair->gstin, &pair->lblAmount, &pair->turnover});
    }
    framain.Lay({.columns = {Caption, Field, Caption, Amount, Caption, Field, Caption, Amount},
                 .rows = std::move(rows),
                 .buttonsLeft = {&Command1, &Cmd26AS}});
    CmdSave.isDefault = true;
    bar = {&CmdSave, &CmdBack};
}

void FrmGST::Wire()
{
    for (Pair& pair : pairs)
        pair.gstin.onLostFocus = pair.turnover.onLostFocus = [this, &pair] { TellFault(pair); };
    Command1.onClick = [this] { ImportPreviousYear(); };
    Cmd26AS.onClick = [this] { Import26AS(); };
    CmdSave.onClick = [this] { Save(); };
    framain.onEscape = CmdBack.onClick = [this] { Close(); };
}

/// In a locked year the registrations can be read.
void FrmGST::Lock()
{
    for (Pair& pair : pairs)
        pair.gstin.enabled = pair.turnover.enabled = false;
    Command1.enabled = Cmd26AS.enabled = CmdSave.enabled = false;
}

/// The types of all places, as a list of the store's words.
std::string FrmGST::Types() const
{
    std::string types;
    for (const Pair& pair : pairs)
        types += (types.empty() ? "'" : ",'") + pair.Type() + '\'';
    return types;
}

/// Gives each place its row, the first one where another program left two; a place without a row is passed over.
template <typename Take>
void FrmGST::ReadPairs(const std::string& code, Take take)
{
    const Recordset rows =
        run.company.Query("select [Type], name1, amt1 from {misc_items} where code = ? and [Type] in (" + Types() +
                              ')' + std::string(run.company.dialect().insertionOrder),
                          code);
    for (Pair& pair : pairs)
        for (const Row row : rows)
            if (EqualsIgnoringCase(row["Type"].Text(), pair.Type())) {
                take(pair, row);
                break;
            }
}

void FrmGST::Load()
{
    ReadPairs(run.Code(), [](Pair& pair, const Row& row) {
        pair.gstin = row["name1"].Text();
        pair.turnover = Rupees(row["amt1"].Number());
    });
}

void FrmGST::ImportPreviousYear()
{
    ReadPairs(PreviousYearCode(run), [](Pair& pair, const Row& row) { pair.gstin = row["name1"].Text(); });
}

/// Where the form has more registrations than there are places, the last ones are left out.
void FrmGST::Import26AS()
{
    const Recordset found = run.company.Query("select Name1, sum(Amt2) as [Amt] from {misc_items} where code = ? and "
                                              "[Type] = 'GST26AS' group by name1 order by name1",
                                              run.Code());
    if (found.Empty()) {
        run.host.boxes.Show({"Please Import From 26AS in Tax Paid section to Import GST Detail...", ""});
        return;
    }
    auto pair = pairs.begin();
    for (const Row row : found) {
        if (pair == pairs.end()) {
            notice = std::to_string(found.Size() - pairs.size()) + " more in 26AS than there are places for";
            return;
        }
        pair->gstin = row["Name1"].Text();
        pair->turnover = Rupees(row["Amt"].Number());
        ++pair;
    }
}

/// Nothing is refused: the return may have to be filled with what the department has.
void FrmGST::TellFault(const Pair& pair)
{
    const std::string number = std::to_string(pair.number);
    if (!pair.IsFilled() && Val(pair.turnover) != 0)
        notice = "Turnover " + number + " has no GSTIN: it is not stored so.";
    else if (const std::string fault = FaultOfGstin(Trim(pair.gstin.text())); pair.IsFilled() && !fault.empty())
        notice = "GSTIN " + number + ' ' + fault + '.';
}

/// "3, 7": the places whose turnover is lost with a save.
std::string FrmGST::TurnoverWithoutGstin() const
{
    std::string numbers;
    for (const Pair& pair : pairs)
        if (!pair.IsFilled() && Val(pair.turnover) != 0)
            numbers += (numbers.empty() ? "" : ", ") + std::to_string(pair.number);
    return numbers;
}

void FrmGST::Save()
{
    const double total = Store();
    const std::string lost = TurnoverWithoutGstin();
    TellSaved(caption.get() + (lost.empty() ? "" : " (not turnover " + lost + ": no GSTIN)"), total);
    opened_.Remember(framain);
    run.host.boxes.Show({"Saved...", ""});
}

/// Gives the turnover of all registrations.
double FrmGST::Store() const
{
    double total = 0;
    Transaction transaction({run.company});
    run.company.Delete("from {misc_items} where code = ? and [Type] in (" + Types() + ')', run.Code());
    for (const Pair& pair : pairs)
        if (pair.IsFilled()) {
            MiscItems(run, pair.Type()).Add({{"Name1", pair.gstin.text()}, {"Amt1", Val(pair.turnover)}}, transaction);
            total += Val(pair.turnover);
        }
    transaction.Commit();
    return total;
}

void FrmGST::Close()
{
    if (MayDiscard(run, opened_.DifferFrom(framain)))
        run.screens.Return();
}

} // namespace pgbp
