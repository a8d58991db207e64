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
constexpr std::size_t kAmountsWithoutHalves = 6;

std::span<const AmountColumn> AmountColumns(const AnnexureEdition& edition)
{
    return std::span(kAmountColumns).first(edition.hasHalves ? std::size(kAmountColumns) : kAmountsWithoutHalves);
}

bool IsBusiness(const AnnexureOwner& owner) { return owner.type == kBusinessAnnexure; }

/// A row that another one than the saving owner brought here and keeps.
bool StaysAsItIs(const AnnexureOwner& owner, const AnnexureRow& row)
{
    return owner.edition.keepsChildrensRows && owner.minor == 0 && row.minor != 0;
}

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

/// The assessee's own save replaces the working rows of the line whoever they belong to, but in the earlier editions;
/// of other income it leaves a child's rows alone.
void DeleteRows(const Connection& balance, const AnnexureOwner& owner)
{
    Condition rows = OwnedRows(owner);
    if ((!IsBusiness(owner) || owner.edition.keepsChildrensRows) && owner.minor == 0)
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

/// What is stored of a row in any case.
std::vector<Field> FieldsOf(const AnnexureRow& row, const AnnexureEdition& edition)
{
    std::vector<Field> fields = {{"f_name", row.name}, {"f_deprate", row.rate}, {"U_Desc", row.group}};
    for (const AmountColumn& column : AmountColumns(edition))
        fields.push_back({column.column, row.*column.amount});
    if (edition.followsTheYear)
        fields.push_back({"ded382", 0});
    if (edition.hasHalves) {
        fields.push_back({"netdep", row.depreciation});
        fields.push_back({"f_block", row.isEmpty.value_or(false)});
        if (row.dateOfSale)
            fields.push_back({"f_date", *row.dateOfSale});
    }
    return fields;
}

void AddRow(const Connection& balance, const AnnexureOwner& owner, const AnnexureRow& row)
{
    std::vector<Field> fields = FieldsOf(row, owner.edition);
    fields.push_back({"code", Trim(owner.code)});
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

/// What is read of a row, in this order: name, rate, the amounts of the edition; group and child; what halves have.
std::string NameRateAndAmounts(const AnnexureEdition& edition)
{
    std::string columns = "f_name, f_deprate";
    for (const AmountColumn& column : AmountColumns(edition))
        columns.append(", ").append(column.column);
    return columns;
}

std::string ReadColumns(const AnnexureEdition& edition)
{
    return NameRateAndAmounts(edition) + ", U_Desc, Minor" +
           (edition.hasHalves ? ", ded382, netdep, f_block, f_date" : "");
}

AnnexureRow NameRateAndAmounts(const Row& record, const AnnexureEdition& stored, const AnnexureEdition& edition)
{
    AnnexureRow row{.name = record.At(0).Text(), .rate = record.At(1).Number()};
    std::size_t at = 2;
    for (const AmountColumn& column : AmountColumns(stored))
        row.*column.amount = ShownAmount(record.At(at++).Number(), edition);
    return row;
}

AnnexureRow FromRecord(const Row& record, const AnnexureEdition& edition)
{
    AnnexureRow row = NameRateAndAmounts(record, edition, edition);
    std::size_t at = 2 + AmountColumns(edition).size();
    row.group = record.At(at++).Text();
    row.minor = record.At(at++).Number();
    if (!edition.hasHalves)
        return row;
    row.disallowed = ShownAmount(record.At(at++).Number(), edition);
    row.netDepreciation = ShownAmount(record.At(at++).Number(), edition);
    row.isEmpty = record.At(at++).Flag();
    row.dateOfSale = record.At(at++).Date();
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
    const auto select =
        "select " + ReadColumns(owner.edition) + ' ' + stored.text + std::string(balance.dialect().insertionOrder);
    const Recordset records = balance.QueryBound(select, stored.values);
    std::vector<AnnexureRow> rows;
    rows.reserve(records.Size());
    for (const Row record : records)
        rows.push_back(FromRecord(record, owner.edition));
    return rows;
}

std::vector<StoredAsset> LoadAllAssets(const Connection& balance, const std::string& code,
                                       const AnnexureEdition& edition)
{
    std::vector<StoredAsset> assets;
    for (const Row record :
         balance.Query("select " + ReadColumns(edition) + ", SNO from {fassets} where code = ? and [Type] = ?" +
                           std::string(balance.dialect().insertionOrder),
                       code, kBusinessAnnexure))
        assets.push_back({FromRecord(record, edition), record.At(record.Size() - 1)});
    return assets;
}

void SaveAllAssets(const Connection& balance, const std::string& code, const std::vector<StoredAsset>& assets,
                   const AnnexureEdition& edition)
{
    Transaction transaction({balance});
    balance.Delete("from {fassets} where code = ? and [Type] = ?", code, kBusinessAnnexure);
    for (const StoredAsset& asset : assets) {
        std::vector<Field> fields = FieldsOf(asset.row, edition);
        fields.insert(fields.end(), {{"code", code}, {"Type", kBusinessAnnexure}, {"SNO", asset.line}});
        if (asset.row.minor != 0)
            fields.push_back({"Minor", asset.row.minor});
        balance.Insert("fassets", fields);
    }
    transaction.Commit();
}

std::vector<AnnexureRow> LoadClosingValues(const Connection& balance, const std::string& code, std::string_view type,
                                           std::optional<double> line, const AnnexureEdition& edition)
{
    Condition stored{"from {fassets} where code = ? and [Type] = ?", {code, type}};
    if (line)
        stored.And("SNO = ?", {*line});
    const auto select =
        "select f_name, f_deprate, f_clbal, U_Desc " + stored.text + std::string(balance.dialect().insertionOrder);
    const Recordset records = balance.QueryBound(select, stored.values);
    std::vector<AnnexureRow> rows;
    rows.reserve(records.Size());
    for (const Row record : records) {
        AnnexureRow& row = rows.emplace_back();
        row.name = record.At(0).HeldText();
        row.rate = record.At(1).Number();
        row.opening = row.closing = ShownAmount(record.At(2).Number(), edition);
        row.group = record.At(3).HeldText();
    }
    return rows;
}

std::vector<AnnexureRow> LoadBooks(const Connection& books, const std::string& code, std::string_view type,
                                   const AnnexureEdition& edition)
{
    std::vector<AnnexureRow> rows;
    for (const Row record :
         books.Query("select " + NameRateAndAmounts(kOldAnnexure) + " from {fassets} where code = ? and [Type] = ?" +
                         std::string(books.dialect().insertionOrder),
                     code, type))
        rows.push_back(NameRateAndAmounts(record, kOldAnnexure, edition));
    return rows;
}

std::optional<AnnexureRefusal> SaveAnnexure(const Connection& company, const Connection& balance,
                                            const AnnexureOwner& owner, std::vector<AnnexureRow>& rows,
                                            const std::function<bool()>& ask)
{
    if (owner.edition.followsTheYear && owner.year >= kFirstYearOfBlockCheck)
        CheckBlockDifference(rows, ask);
    if (auto refusal = RefusalOfSave(rows))
        return refusal;

    Transaction transaction({company, balance});
    if (owner.edition.hasHalves)
        DeleteGains(company, owner);
    DeleteRows(balance, owner);
    for (const AnnexureRow& row : rows) {
        if (!HasName(row) || StaysAsItIs(owner, row))
            continue;
        AddRow(balance, owner, row);
        if (owner.edition.hasHalves && row.isEmpty.value_or(false))
            AddGain(company, owner, GainOnEmptyBlock(row, owner.year));
    }
    transaction.Commit();
    return std::nullopt;
}

} // namespace pgbp
