#include "records/rows_of_line.h"

#include "records/keys.h"

#include <algorithm>

namespace pgbp {

std::vector<RowsOfLine> RowsOfLines(const Run& run)
{
    const Connection* company = &run.company;
    const Connection* balance = &run.balance;
    std::vector<RowsOfLine> tables = {{company, "business1", "", "sno", true}};
    for (const char* statement : {"NEWPL", "SNEWPL", "NEWINDPL", "INDNEWPL"})
        tables.push_back({balance, "qelgeneral", std::string("[Type] = '") + statement + '\'', "amt2", true});
    tables.push_back({.file = balance,
                      .table = "fassets",
                      .condition = "[Type] = 'P'",
                      .line = "sno",
                      .standsForNoLine = kUnsavedLine});
    for (const std::string& items :
         {std::string("[Type] = 'PLNew3_23'"), company->dialect().Left("[Type]", 4) + " = 'PGBP'",
          std::string("[Type] = 'BusOth'")})
        tables.push_back({company, "misc_items", items, "sno"});
    return tables;
}

std::vector<StrayRows> RowsOfNoLine(const Run& run, std::span<const double> lines)
{
    const std::vector<RowsOfLine> all = RowsOfLines(run);
    std::vector<StrayRows> stray;
    for (std::size_t i = 0; i < all.size();) {
        const RowsOfLine& table = all[i];
        std::string which; // one question a table
        for (; i < all.size() && all[i].table == table.table; ++i)
            if (!all[i].condition.empty())
                which += (which.empty() ? " and (" : " or ") + all[i].condition;
        const std::string select = "select " + table.line + ", count(*) from {" + table.table + "} where code = ?" +
                                   (which.empty() ? "" : which + ')') + " and " + table.line + " <> 0 group by ";
        for (const Row row : table.file->Query(select + table.line, run.Code())) {
            const double line = row.At(0).Number();
            const bool isOfScreen = line == kFirmCells || line == kCommissionCells || line == table.standsForNoLine;
            if (!isOfScreen && std::ranges::find(lines, line) == lines.end())
                stray.push_back({table.table, line, row.At(1).Number()});
        }
    }
    return stray;
}

} // namespace pgbp
