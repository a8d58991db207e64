#include "entry/firm_returns.h"

#include "records/rows_of_type.h"
#include "services/text.h"

#include <algorithm>

namespace pgbp {
namespace {

constexpr int kYearInCode = 7; ///< characters at the end of a code

std::string IsFirm(const Run& run, std::string_view table)
{
    const std::string of(table);
    return '(' + of + "status = '05' or " + of + "status = '06') and " + of +
           "flag = " + std::string(run.company.dialect().trueLiteral);
}

/// The firms with a return of the run's year that answers the condition.
std::vector<FirmReturn> Firms(const Run& run, const std::string& condition, const std::vector<std::string>& values)
{
    std::vector<Value> bound{run.Glyear};
    bound.insert(bound.end(), values.begin(), values.end());
    const Recordset rows = run.company.QueryBound(
        "select y.comp_name, y.pan, y.code from {assessee1} y, {assessee} a where y.company = a.company and " +
            IsFirm(run, "a.") + " and y.[year] = ?" + condition + " order by a.comp_name, y.code",
        bound);
    std::vector<FirmReturn> firms;
    for (const Row row : rows)
        firms.push_back({row["comp_name"].Text(), Trim(row["pan"].Text()), row["code"].Text()});
    return firms;
}

double FirstAmount(const Recordset& rows) { return FirstField(rows).Number(); }

} // namespace

std::vector<std::string> ReturnsWithPartner(const Run& run, const std::string& pan)
{
    return FirstFields(
        run.company.Query("select distinct code from {business1} where ([Type] = 'PARTINTT' or [Type] = 'PARTREMU') "
                          "and name2 = ? and " +
                              run.company.dialect().Right("code", kYearInCode) + " = ?",
                          pan, run.Glyear));
}

std::vector<FirmReturn> FirmsOfTheYear(const Run& run) { return Firms(run, "", {}); }

std::vector<FirmReturn> FirmsAmong(const Run& run, const std::vector<std::string>& codes)
{
    if (codes.empty())
        return {};
    std::string places;
    for (std::size_t i = 0; i < codes.size(); ++i)
        places += i == 0 ? "?" : ", ?";
    return Firms(run, " and y.code in (" + places + ')', codes);
}

bool HasAnyFirm(const Run& run)
{
    return run.company.Scalar("select count(*) from {assessee} where " + IsFirm(run, "")).Number() > 0;
}

std::vector<PartnerShare> PartnersOfFirm(const Run& run, const std::string& code)
{
    const auto rowsOf = [&](std::string_view type) { return LineDetails(run, type).OfCode(code); };
    std::vector<PaidPartner> partners;
    const auto partnerOf = [&](const Row& row) -> PaidPartner& {
        const std::string name = Trim(row["name1"].Text());
        const auto same =
            std::ranges::find_if(partners, [&](const auto& other) { return EqualsIgnoringCase(other.name, name); });
        PaidPartner& partner = same == partners.end() ? partners.emplace_back(PaidPartner{.name = name}) : *same;
        if (partner.ratio == 0)
            partner.ratio = row["amt2"].Number();
        return partner;
    };
    for (const Row row : rowsOf("PARTREMU").Read())
        partnerOf(row).remuneration += row["amt1"].Number();
    for (const Row row : rowsOf("PARTINTT").Read()) {
        PaidPartner& partner = partnerOf(row);
        partner.interest += row["amt1"].Number();
        partner.allowableInterest += row["amt3"].Number();
    }
    return SharesOf(partners,
                    {.interest = FirstAmount(rowsOf("LESSINTT").Read("amt1")),
                     .remuneration = FirstAmount(rowsOf("LESSREMU").Read("amt1")),
                     .income = run.balance.Scalar("select gross from {compu} where code = ?", code).Number()});
}

} // namespace pgbp
