#include "records/lines.h"

#include "records/keys.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

namespace pgbp {

std::string_view TypeOf(BusinessKind kind)
{
    constexpr std::pair<BusinessKind, std::string_view> kTypes[] = {
        {kNormal, "1"},     {kSpeculation, "2"}, {kPresumptive44AD, "3"}, {kTransport44AE, "4"},   {kRetail44AF, "5"},
        {kFirmIncome, "6"}, {kAopShare, "7"},    {kSpecified, "8"},       {kProfession44ADA, "A"},
    };
    for (const auto& [number, type] : kTypes)
        if (number == kind)
            return type;
    throw std::out_of_range("no such kind of business");
}

void DeleteOrphanCells(const Run& run)
{
    const std::string code = run.Code();
    const Recordset owners = run.balance.Query(
        "select distinct amt2 from {qelgeneral} where code = ? and [Type] = 'NEWPL' and amt2 is not null", code);
    if (owners.Empty())
        return;
    std::vector<double> lines;
    for (const Row row : run.company.Query("select sno from {business} where code = ?", code))
        lines.push_back(row.At(0).Number());
    for (const Row row : owners) {
        const double owner = row.At(0).Number();
        const bool ownedByScreen = owner == kFirmCells || owner == kCommissionCells;
        if (!ownedByScreen && std::find(lines.begin(), lines.end(), owner) == lines.end())
            run.balance.Delete("from {qelgeneral} where code = ? and [Type] = 'NEWPL' and amt2 = ?", code, owner);
    }
}

} // namespace pgbp
