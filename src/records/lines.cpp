#include "records/lines.h"

#include "records/keys.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace pgbp {

const KindOfBusiness& Kind(BusinessKind kind)
{
    static constexpr KindOfBusiness kKinds[] = {
        {.kind = kNormal, .type = "1"},
        {.kind = kSpeculation, .type = "2", .isShort = true},
        {.kind = kPresumptive44AD, .type = "3", .isDeemed = true, .refusesPay = true},
        {.kind = kTransport44AE, .type = "4", .isDeemed = true},
        {.kind = kRetail44AF, .type = "5", .isDeemed = true},
        {.kind = kFirmIncome, .type = "6"},
        {.kind = kAopShare, .type = "7"},
        {.kind = kSpecified, .type = "8", .isShort = true},
        {.kind = kProfession44ADA, .type = "A", .refusesPay = true},
    };
    const auto found = std::ranges::find(kKinds, kind, &KindOfBusiness::kind);
    if (found == std::end(kKinds))
        throw std::out_of_range("no such kind of business");
    return *found;
}

std::string_view TypeOf(BusinessKind kind) { return Kind(kind).type; }

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
