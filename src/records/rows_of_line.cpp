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
    std::vector<StrayRows> stray;
    for (const RowsOfLine& rows : RowsOfLines(run)) {
        const std::string which = rows.condition.empty() ? "" : " and " + rows.condition;
        for (const Row row :
             rows.file->Query("select " + rows.line + ", count(*) from {" + rows.table + "} where code = ?" + which +
                                  " and " + rows.line + " <> 0 group by " + rows.line,
                              run.Code())) {
            const double line = row.At(0).Number();
            const bool isOfScreen = line == kFirmCells || line == kCommissionCells || line == rows.standsForNoLine;
            if (!isOfScreen && std::ranges::find(lines, line) == lines.end())
                stray.push_back({rows.table, line, row.At(1).Number()});
        }
    }
    return stray;
}

} // namespace pgbp
