#include "annexure/annexure_store.h"

#include "annexure/block_check.h"
#include "records/keys.h"
#include "services/format.h"
#include "services/text.h"

namespace pgbp {
namespace {

/// A column of `fassets` that a row of the annexure holds as a number.
struct AmountColumn {
    std::string_view column;
    double AnnexureRow::*amount;
};
constexpr AmountColumn kAmountColumns[] = {
    {"f_opbal", &AnnexureRow::opening},      {"f_pur1", &AnnexureRow::purchases1},
    {"f_pur2", &AnnexureRow::purchases2},    {"f_sales", &AnnexureRow::sales},
    {"F_Dep", &AnnexureRow::depreciation},   {"f_clbal", &AnnexureRow::closing},
    {"f_sales1", &AnnexureRow::sales1},      {"F_sales2", &AnnexureRow::sales2},
    {"f_dep1", &AnnexureRow::depreciation1}, {"f_dep2", &AnnexureRow::depreciation2},
    {"f_add1", &AnnexureRow::additional1},   {"f_add2", &AnnexureRow::additional2},
    {"f_exps", &AnnexureRow::expenses},
};

bool IsBusiness(const AnnexureOwner& owner) { return owner.type == kBusinessAnnexure; }

bool HasName(const AnnexureRow& row) { return !Trim(row.name).empty(); }

/// A condition on rows of `fassets` with its values.
struct Condition {
    std::string text;
    std::vector<Value> values;

    void And(std::string_view more, std::initializer_list<Value> bound = {})
    {
        text.append(" and ").append(more);
        values.insert(values.end(), bound);
    }
};

Condition OwnedRows(const AnnexureOwner& owner)
{
    Condition rows{"from {fassets} where code = ? and [Type] = ?", {Trim(owner.code), owner.type}};
    if (IsBusiness(owner))
        rows.And("SNO = ?", {kUnsavedLine});
    if (owner.minor != 0)
        rows.And("Minor = ?", {owner.minor});
    return rows;
}

/// The assessee's own save replaces the working rows of the line whoever they belong to; of other income it leaves a
/// child's rows alone.
void DeleteRows(const Connection& balance, const AnnexureOwner& owner)
{
    Condition rows = OwnedRows(owner);
    if (!IsBusiness(owner) && owner.minor == 0)
        rows.And(balance.dialect().noMinorOrZeroUnparsed);
    balance.ExecuteBound(std::string(balance.dialect().DeleteWord) + rows.text, rows.values);
}

void DeleteGains(const Connection& company, const AnnexureOwner& owner)
{
    const std::string rows = "from {capital1} where code = ? and [Type] = 'Sec50' and ";
    if (owner.minor == 0)
        company.Delete(rows + std::string(company.dialect().noMinorOrZeroUnparsed), Trim(owner.code));
    else
        company.Delete(rows + "Minor = ?", Trim(owner.code), owner.minor);
}

void AddRow(const Connection& balance, const AnnexureOwner& owner, const AnnexureRow& row)
{
    std::vector<Field> fields = {
        {"code", Trim(owner.code)}, {"f_name", row.name}, {"f_deprate", row.rate}, {"U_Desc", row.group}};
    for (const AmountColumn& column : kAmountColumns)
        fields.push_back({column.column, row.*column.amount});
    fields.push_back({"ded382", 0});
    fields.push_back({"netdep", row.depreciation});
    fields.push_back({"f_block", row.isEmpty.value_or(false)});
    if (row.dateOfSale)
        fields.push_back({"f_date", *row.dateOfSale});
    fields.push_back({"Type", owner.type});
    if (IsBusiness(owner))
        fields.push_back({"SNO", kUnsavedLine});
    if (owner.minor != 0)
        fields.push_back({"Minor", owner.minor});
    balance.Insert("fassets", fields);
}

void AddGain(const Connection& company, const AnnexureOwner& owner, const Sec50Gain& gain)
{
    std::vector<Field> fields = {{"code", Trim(owner.code)}, {"Type", "Sec50"},       {"name1", gain.name},
                                 {"amt1", gain.cost},        {"amt2", gain.proceeds}, {"amt3", gain.gain},
                                 {"date1", gain.date}};
    if (owner.minor != 0)
        fields.push_back({"Minor", owner.minor});
    company.Insert("capital1", fields);
}

AnnexureRow FromRecord(const Row& record)
{
    AnnexureRow row{
        .name = record["f_name"].Text(), .group = record["U_Desc"].Text(), .rate = record["f_deprate"].Number()};
    for (const AmountColumn& column : kAmountColumns)
        row.*column.amount = ShownRupees(record[column.column].Number());
    row.disallowed = ShownRupees(record["ded382"].Number());
    row.netDepreciation = ShownRupees(record["netdep"].Number());
    row.isEmpty = record["f_block"].Flag();
    row.dateOfSale = record["f_date"].Date();
    row.minor = record["Minor"].Number();
    return row;
}

} // namespace

Sec50Gain GainOnEmptyBlock(const AnnexureRow& row, int year)
{
    const double cost = row.opening + row.purchases1 + row.purchases2 + row.expenses;
    const DateTime lastDay{.year = year, .month = 3, .day = 31};
    return {row.name, cost, row.sales, row.sales - cost, row.dateOfSale.value_or(lastDay)};
}

std::vector<AnnexureRow> LoadAnnexure(const Connection& balance, const AnnexureOwner& owner)
{
    const Condition stored = OwnedRows(owner);
    const auto select = "select * " + stored.text + std::string(balance.dialect().insertionOrder);
    std::vector<AnnexureRow> rows;
    for (const Row record : balance.QueryBound(select, stored.values))
        rows.push_back(FromRecord(record));
    return rows;
}

std::optional<AnnexureRefusal> SaveAnnexure(const Connection& company, const Connection& balance,
                                            const AnnexureOwner& owner, std::vector<AnnexureRow>& rows,
                                            const std::function<bool()>& ask)
{
    if (owner.year >= kFirstYearOfBlockCheck)
        CheckBlockDifference(rows, ask);
    if (auto refusal = RefusalOfSave(rows))
        return refusal;

    Transaction transaction({company, balance});
    DeleteGains(company, owner);
    DeleteRows(balance, owner);
    for (const AnnexureRow& row : rows) {
        if (!HasName(row))
            continue;
        AddRow(balance, owner, row);
        if (row.isEmpty.value_or(false))
            AddGain(company, owner, GainOnEmptyBlock(row, owner.year));
    }
    transaction.Commit();
    return std::nullopt;
}

} // namespace pgbp
