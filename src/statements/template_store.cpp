#include "statements/template_store.h"

#include "store/files.h"

#include <algorithm>
#include <string>

namespace pgbp {
namespace {

struct TemplateRepair {
    std::string_view dType;
    int firstYear;
    int completeRows; ///< with fewer the template counts as missing
    bool opensBadDebts;
};
constexpr TemplateRepair kRepairs[] = {
    {.dType = "PL_5_2015", .firstYear = 2015, .completeRows = 1, .opensBadDebts = false},
    {.dType = "PL_5_2017", .firstYear = 2017, .completeRows = 1, .opensBadDebts = false},
    {.dType = "PL_5_2", .firstYear = 2017, .completeRows = 1, .opensBadDebts = false},
    {.dType = "PL_5_2018", .firstYear = 2018, .completeRows = 1, .opensBadDebts = false},
    {.dType = "PL_5_2018a", .firstYear = 2018, .completeRows = 1, .opensBadDebts = false},
    {.dType = "PL_6_2018", .firstYear = 2018, .completeRows = 1, .opensBadDebts = false},
    {.dType = "PL_6_2019", .firstYear = 2019, .completeRows = 1, .opensBadDebts = true},
    {.dType = "PL_3_2019", .firstYear = 2019, .completeRows = 1, .opensBadDebts = true},
    {.dType = "PL_5_2019", .firstYear = 2019, .completeRows = 197, .opensBadDebts = true},
};

/// None for a template that is in every `tax.mdb`, or is not of the year yet.
const TemplateRepair* RepairOf(std::string_view dType, int year)
{
    const auto repair = std::ranges::find(kRepairs, dType, &TemplateRepair::dType);
    return repair == std::end(kRepairs) || year < repair->firstYear ? nullptr : &*repair;
}

constexpr std::string_view kRowsOfTemplate = "select * from {taxaudit} where d_type = ?";

bool IsMissing(const Connection& tax, const TemplateRepair& repair)
{
    return tax.Scalar("select count(*) from {taxaudit} where d_type = ?", repair.dType).Number() < repair.completeRows;
}

bool HasBadDebtsToOpen(const Connection& tax, const TemplateRepair& repair)
{
    constexpr std::string_view closed = "select count(*) from {taxaudit} where slno = ? and blocked <> 0";
    return repair.opensBadDebts && tax.Scalar(closed, kBadDebtsWithoutPan).Number() > 0;
}

/// The two tables are of one make: a field goes to the field at its place, whatever they are called. A source with
/// fewer lines than there are changes nothing.
void TakeOver(const Connection& tax, const Connection& reference, std::string_view dType)
{
    const Recordset target = tax.Query(kRowsOfTemplate, dType);
    const Recordset source = reference.Query(kRowsOfTemplate, dType);
    if (source.Columns().size() != target.Columns().size())
        throw StoreError("The templates of qel.mmm do not have the columns of taxaudit.");
    if (source.Size() < target.Size())
        return;
    tax.Delete("from {taxaudit} where d_type = ?", dType);
    std::vector<Field> fields(target.Columns().size());
    for (const Row record : source) {
        for (std::size_t i = 0; i < fields.size(); ++i)
            fields[i] = {target.Columns()[i], record.At(i)};
        tax.Insert(kTemplates, fields);
    }
}

constexpr std::string_view kColumns =
    "slno, flag, text_numeric, blocked, head1, head2, s_1, s_2, s_3, s_4, Descr1, Descr2, Descr3, Descr4";
constexpr std::size_t kFirstSerial = 4;
constexpr std::size_t kFirstCaption = 10;

template <std::size_t Count>
void TakeTexts(const Row& record, std::size_t first, std::array<std::string_view, Count>& texts)
{
    for (std::size_t i = 0; i < Count; ++i)
        texts[i] = record.At(first + i).HeldText();
}

TemplateRow FromRecord(const Row& record)
{
    TemplateRow row{.slno = static_cast<int>(record.At(0).Number()),
                    .isChoice = record.At(1).Flag(),
                    .isNumber = record.At(2).Flag(),
                    .isBlocked = record.At(3).Flag()};
    TakeTexts(record, kFirstSerial, row.serials);
    TakeTexts(record, kFirstCaption, row.captions);
    return row;
}

} // namespace

std::vector<StatementRow> LoadTemplate(const Connection& tax, std::string_view table, std::string_view dType)
{
    const std::string select =
        "select " + std::string(kColumns) + " from {" + std::string(table) + "} where d_type = ? order by pslno";
    const Recordset records = tax.Query(select, dType);
    std::vector<StatementRow> rows;
    rows.reserve(records.Size());
    for (const Row record : records)
        rows.push_back(ToStatementRow(FromRecord(record)));
    return rows;
}

bool NeedsRepair(const Connection& tax, std::string_view dType, int year)
{
    const TemplateRepair* repair = RepairOf(dType, year);
    return repair && (IsMissing(tax, *repair) || HasBadDebtsToOpen(tax, *repair));
}

void RepairTemplate(const Connection& tax, const std::filesystem::path& programFolder, std::string_view dType, int year)
{
    if (!NeedsRepair(tax, dType, year))
        return; // the usual case needs no lock on a file that others share

    const TemplateRepair* repair = RepairOf(dType, year);
    Transaction transaction({tax});
    if (IsMissing(tax, *repair))
        TakeOver(tax, OpenFile({.path = programFolder / "qel.mmm", .dsn = programFolder / "qel.dsn"}), dType);
    if (repair->opensBadDebts)
        tax.Execute("update {taxaudit} set blocked = ? where slno = ?", false, kBadDebtsWithoutPan);
    transaction.Commit();
}

} // namespace pgbp
