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

/// A server may count only the rows that an update alters: where it counts none, the row is looked for.
bool UpdateLine(const Run& run, double sno, std::span<const Field> fields, const Transaction&)
{
    std::string columns;
    std::vector<Value> values;
    for (const Field& field : fields) {
        columns.append(columns.empty() ? "[" : ", [").append(field.column).append("] = ?");
        values.push_back(field.value);
    }
    values.emplace_back(run.Code());
    values.emplace_back(sno);
    return run.company.ExecuteBound("update {business} set " + columns + " where code = ? and sno = ?", values) > 0 ||
           !run.company.Query("select code from {business} where code = ? and sno = ?", run.Code(), sno).Empty();
}

double AddLine(const Run& run, std::vector<Field> fields, const Transaction& proof)
{
    const double sno = NextSno(run, proof);
    fields.insert(fields.end(), {{"code", run.Code()}, {"SNO", sno}});
    run.company.Insert("business", fields);
    return sno;
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
