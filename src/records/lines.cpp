#include "records/lines.h"

#include "records/keys.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

namespace pgbp {
namespace {

void DeleteAnnexure(const Run& run, double sno)
{
    if (run.balance.Delete("from {fassets} where code = ? and [Type] = 'P' and sno = ?", run.Code(), sno) > 0)
        run.company.Delete("from {capital1} where code = ? and [Type] = 'Sec50'", run.Code());
}

void DeleteSideRows(const Run& run, BusinessKind kind, double sno)
{
    const std::string code = run.Code();
    DeleteAnnexure(run, sno);
    run.company.Delete("from {misc_items} where code = ? and [Type] = 'PLNew3_23' and sno = ?", code, sno);
    run.company.Delete("from {misc_items} where code = ? and [Type] = 'ITR6PLQ47'", code);
    run.company.Delete("from {misc_items} where code = ? and sno = ? and " + run.company.dialect().Left("[Type]", 4) +
                           " = 'PGBP'",
                       code, sno);
    run.company.Delete("from {misc_items} where code = ? and [Type] = 'BusOth' and sno = ?", code, sno);
    if (kind == kPresumptive44AD)
        run.company.Delete("from {business1} where code = ? and [Type] = '44AD'", code);
    if (kind == kTransport44AE)
        run.balance.Delete("from {misc_items} where code = ? and [Type] = '44AE'", code);
}

} // namespace

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

void DeleteLine(const Run& run, BusinessKind kind, double sno)
{
    const std::string code = run.Code();
    Transaction transaction({run.company, run.balance});
    run.company.Delete("from {business} where code = ? and sno = ?", code, sno);
    run.company.Delete("from {business1} where code = ? and sno = ?", code, sno);
    const bool reduced = kind == kSpeculation || kind == kSpecified;
    if (!reduced)
        DeleteSideRows(run, kind, sno);
    run.balance.Delete("from {qelgeneral} where code = ? and [Type] = 'NEWPL' and amt2 = ?", code, sno);
    if (!reduced)
        run.balance.Delete("from {qelgeneral} where code = ? and [Type] = 'NEWPLA'", code);
    transaction.Commit();
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
