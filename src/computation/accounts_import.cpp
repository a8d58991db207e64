#include "computation/accounts_import.h"

#include "entry/checks.h"
#include "records/working_copies.h"
#include "services/format.h"
#include "services/text.h"

#include <initializer_list>

namespace pgbp {
namespace {

constexpr const char* kCaption = "Import from Orvane";

enum Column { kAccount, kAmount, kSelect };
constexpr const char* kMark = ".";

/// Groups below the profit: what is there on one side and not on the other is the profit.
constexpr const char* kDebits = R"(Expenditure\Debit Appropriations)";
constexpr const char* kCredits = R"(Income\Credit Appropriations)";

std::vector<GridColumn> Columns()
{
    using enum GridColumnKind;
    const auto tick = [](const std::string& text) { return std::string(text.empty() ? "" : "✓"); };
    return {{"Account Name", Text}, {"Amount", Amount}, {.heading = "Select", .kind = Mark, .drawn = tick}};
}

/// Depreciation as the books have it, rupees; where the firm's assets tell none, that of the common ones counts.
double DepreciationOfBooks(const LinkedClient& client)
{
    const double own =
        client.books.Scalar("select sum(f_dep) as [Tot] from {fassets} where code = ? and [Type] = 'G'", client.code)
            .Number();
    return own != 0 ? own
                    : client.books.Scalar("select sum(f_depyear) as [Tot] from {comassets} where code = ?", client.code)
                          .Number();
}

/// The assets as the Income-tax Act depreciates them.
Recordset AssetsOfTheAct(const LinkedClient& client)
{
    return client.books.Query("select f_name, f_opbal, f_pur1, f_pur2, F_Dep, f_sales, f_clbal, f_deprate, [Desc] as "
                              "U_Desc, date1, date2, Minor, REMARK from {fassets} where code = ? and [Type] = 'I'" +
                                  std::string(client.books.dialect().insertionOrder),
                              client.code);
}

} // namespace

AccountsImport::AccountsImport(Screen& screen, const Use& use)
    : cmdovpnl(screen, "cmdovpnl", kCaption), cmdovadd(screen, "cmdovadd", kCaption),
      cmdovless(screen, "cmdovless", kCaption), cmdovdep(screen, "cmdovdep", kCaption), fra(screen, "fra", kCaption),
      DbGrid31(screen, "DbGrid31", Columns()), cmdcont(screen, "cmdcont", "&Continue"),
      cmdbackfra1(screen, "cmdbackfra1", "&Back"), screen_(screen), run_(screen.run), use_(use)
{
    fra.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&DbGrid31}}}, .buttonsRight = {&cmdcont, &cmdbackfra1}});
    cmdcont.isDefault = true;
    cmdovpnl.toolTip = "Net profit from the accounts";
    cmdovadd.toolTip = "Expenditure accounts to be added";
    cmdovless.toolTip = "Income accounts to be deducted";
    cmdovdep.toolTip = "Depreciation and assets from the accounts";
    cmdovpnl.onClick = [this] { TakeNetProfit(); };
    cmdovadd.onClick = [this] { OpenAccounts("E", "23a"); };
    cmdovless.onClick = [this] { OpenAccounts("I", "23l"); };
    cmdovdep.onClick = [this] { TakeDepreciation(); };
    DbGrid31.onEnterCell = [this](int row, int column) {
        if (column != kSelect) // where the space bar marks
            DbGrid31.EnterCell(row, kSelect);
    };
    DbGrid31.onClickCell = [this](int row, int) { Mark(row); };
    cmdcont.onClick = [this] { TakeMarked(); };
    cmdbackfra1.onClick = [this] { screen_.Lower(fra); };
    fra.onEscape = [this] {
        if (MayDiscard(run_, Altered()))
            screen_.Lower(fra);
    };
}

void AccountsImport::Set_Import()
{
    client_ = FindLinkedClient(run_);
    for (cmd* button : {&cmdovpnl, &cmdovadd, &cmdovless, &cmdovdep})
        button->visible = client_.has_value();
}

/// What lies in the group or below it, rupees.
double AccountsImport::Appropriated(const std::string& kind, const std::string& group) const
{
    const Connection& books = client_->books;
    const auto sum = [&](const std::string& rows, const char* relative) {
        const std::string beginning = books.dialect().Left(relative, static_cast<int>(group.size()));
        return books.Scalar(rows + " and " + beginning + " = ?", client_->code, kind, group).Number();
    };
    return sum("select sum(a_balance) from {accounts} where code = ? and ac_type = ?", "a_relative") +
           sum("select sum(Amount) from {accgroup} where code = ? and g_type = ?", "g_relative");
}

void AccountsImport::TakeNetProfit()
{
    const Value closingStock = client_->books.Scalar("select clstk from {accgroup} where code = ?" +
                                                         std::string(client_->books.dialect().insertionOrder),
                                                     client_->code);
    use_.netProfit = Amount(Appropriated("E", kDebits) - (Appropriated("I", kCredits) + closingStock.Number()));
}

void AccountsImport::OpenAccounts(const char* kind, const char* list)
{
    const Recordset accounts = client_->books.Query(
        "select a_name, a_balance from {accounts} where code = ? and ac_type = ? and a_balance <> 0 order by a_name",
        client_->code, kind);
    if (accounts.Empty())
        return run_.Inform("No Account to import....");
    txttype_ = list;
    DataovRefresh(accounts);
    screen_.Raise(fra, DbGrid31);
}

void AccountsImport::DataovRefresh(const Recordset& accounts)
{
    std::vector<std::vector<std::string>> rows;
    for (const Row account : accounts)
        rows.push_back({account.At(0).Text(), Amount(account.At(1).Number()), ""});
    DbGrid31.SetRows(std::move(rows));
    DbGrid31.SetFooter({});
    DbGrid31.EnterCell(1, kSelect);
}

bool AccountsImport::IsMarked(int row) const { return DbGrid31.Cell(row, kSelect) == kMark; }

/// The mark is the preparer's alone: the books of the other product do not learn of it.
void AccountsImport::Mark(int row)
{
    DbGrid31.SetCell(row, kSelect, IsMarked(row) ? "" : kMark);
    double sum = 0;
    for (int each = 1; each <= DbGrid31.Rows(); ++each)
        sum += IsMarked(each) ? Val(DbGrid31.Cell(each, kAmount)) : 0;
    DbGrid31.SetFooter({"Total of the marked accounts : ", Amount(sum)});
}

bool AccountsImport::Altered() const
{
    if (!fra.visible)
        return false;
    for (int row = 1; row <= DbGrid31.Rows(); ++row)
        if (IsMarked(row))
            return true;
    return false;
}

void AccountsImport::TakeMarked()
{
    std::vector<WorkItem> items;
    for (int row = 1; row <= DbGrid31.Rows(); ++row)
        if (IsMarked(row))
            items.push_back({.name2 = DbGrid31.Cell(row, kAccount), .amt1 = Val(DbGrid31.Cell(row, kAmount))});
    AddToWork(run_, txttype_, items);
    use_.listsChanged();
    screen_.Lower(fra);
    screen_.notice =
        std::to_string(items.size()) + (items.size() == 1 ? " account was taken over" : " accounts were taken over");
}

/// All is read before anything is changed.
void AccountsImport::TakeDepreciation()
{
    const double ofBooks = DepreciationOfBooks(*client_);
    const Recordset assets = AssetsOfTheAct(*client_);
    const Value ofTheAct = client_->books.Scalar(
        "select sum(f_dep) as [Tot] from {fassets} where code = ? and [Type] = 'I'", client_->code);
    use_.annexure.Replace(ofTheAct.IsNull() ? Recordset() : assets);
    use_.addedDepreciation = Amount(ofBooks);
    use_.deductedDepreciation = Amount(ofTheAct.IsNull() ? ofBooks : ofTheAct.Number());
    use_.deductedDepreciation.enabled = ofTheAct.IsNull();
}

} // namespace pgbp
