#include "check/rows_of_nobody.h"

#include "services/text.h"
#include "store/schema.h"

#include <algorithm>

namespace pgbp::check {
namespace {

constexpr const char* kNobodys = "Rows of nobody";
constexpr std::string_view kWholePractice = "*****"; ///< code of the settings that hold for all clients

struct CodedTable {
    const Connection& file;
    std::string_view name;
};

/// The tables whose rows belong to an assessee-year, by its code.
std::vector<CodedTable> CodedTables(const Practice& practice)
{
    std::vector<CodedTable> tables;
    for (const Table& table : Tables()) {
        const bool isCompany = table.file == "company";
        const bool isCoded = std::ranges::any_of(table.columns, [](const Column& column) {
            return column.name == "code" && column.kind == ColumnKind::Text;
        });
        if (isCoded && table.name != "assessee1" && (isCompany || table.file == "balance"))
            tables.push_back({isCompany ? practice.company : practice.balance, table.name});
    }
    return tables;
}

/// Settings of the practice stand among the items of `company`, under no code.
bool HoldsSettings(const Practice& practice, const CodedTable& table)
{
    return &table.file == &practice.company && table.name == "misc_items";
}

std::string InWords(const CodedTable& table, double count)
{
    return std::string(table.name) + ": " + Value(count).Text();
}

} // namespace

void FindRowsWithoutCode(const Practice& practice, const Found& found)
{
    for (const CodedTable& table : CodedTables(practice)) {
        if (HoldsSettings(practice, table))
            continue;
        const Value count =
            table.file.Scalar("select count(*) from {" + std::string(table.name) + "} where code is null or code = ''");
        if (count.Flag())
            found({.what = kNobodys, .where = InWords(table, count.Number())});
    }
    for (const Row row : practice.company.Query("select y.code, y.comp_name, y.[year] from {assessee1} y left join "
                                                "{assessee} a on a.company = y.company where a.company is null"))
        found({.code = row.At(0).Text(),
               .client = row.At(1).Text(),
               .year = row.At(2).Text(),
               .what = "Year of no client",
               .where = "assessee1"});
}

void FindRowsOfNobody(const Practice& practice, std::string_view from, std::span<const AssesseeYear> years, bool isRest,
                      const Found& found)
{
    std::vector<std::string> known;
    for (const AssesseeYear& year : years)
        known.push_back(Upper(year.code));
    std::ranges::sort(known);
    for (const CodedTable& table : CodedTables(practice)) {
        std::string sql = "select code, count(*) from {" + std::string(table.name) + "} where code > ?";
        std::vector<Value> bounds{from};
        if (!isRest) {
            sql += " and code <= ?";
            bounds.emplace_back(years.back().code);
        }
        for (const Row row : table.file.QueryBound(sql + " group by code", bounds))
            if (const std::string code = row.At(0).Text();
                code != kWholePractice && !std::ranges::binary_search(known, Upper(code)))
                found({.code = code, .what = kNobodys, .where = InWords(table, row.At(1).Number())});
    }
}

} // namespace pgbp::check
