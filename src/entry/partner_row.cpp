#include "entry/partner_row.h"

#include "services/format.h"
#include "services/text.h"

#include <algorithm>
#include <cmath>

namespace pgbp {
namespace {

/// A member with its column in the working row and in the detail rows.
template <typename Member>
struct Column {
    Member PartnerRow::*member;
    std::string_view work;
    std::string_view detail;
};

/// Other programs leave a blank behind `AD1`; the store drops such blanks, so it is written plain.
constexpr Column<std::string> kTexts[] = {
    {&PartnerRow::name, "name1", "name1"},   {&PartnerRow::pan, "name2", "name2"},
    {&PartnerRow::status, "name6", "name3"}, {&PartnerRow::address, "AD1", "AD1"},
    {&PartnerRow::city, "CITY", "CITY"},     {&PartnerRow::state, "State", "State"},
    {&PartnerRow::pin, "PIN", "PIN"},        {&PartnerRow::identity, "utn", "utn"},
};

constexpr Column<double> kNumbers[] = {
    {&PartnerRow::ratio, "amt3", "amt2"},
    {&PartnerRow::allowableInterest, "amt4", "amt3"},
};

constexpr std::string_view kInterestRow = "PARTINTT";
constexpr std::string_view kRemunerationRow = "PARTREMU";

std::vector<Field> ToDetail(const PartnerRow& partner, std::string_view type, double amount)
{
    std::vector<Field> fields{
        {"Type", type}, {"amt1", amount}, {"amt4", partner.interestRate}, {"flag1", partner.left}};
    for (const auto& [member, work, detail] : kNumbers)
        fields.push_back({detail, partner.*member});
    for (const auto& [member, work, detail] : kTexts)
        fields.push_back({detail, partner.*member});
    return fields;
}

} // namespace

std::vector<Field> ToWork(const PartnerRow& partner)
{
    std::vector<Field> fields{{"amt1", partner.interest},
                              {"amt2", partner.remuneration},
                              {"name5", Amount(partner.interestRate)},
                              {"flag1", partner.left}};
    for (const auto& [member, work, detail] : kNumbers)
        fields.push_back({work, partner.*member});
    for (const auto& [member, work, detail] : kTexts)
        fields.push_back({work, partner.*member});
    return fields;
}

PartnerRow FromWork(const Row& row)
{
    PartnerRow partner{.interest = row["amt1"].Number(),
                       .remuneration = row["amt2"].Number(),
                       .interestRate = row["name5"].Number(),
                       .left = row["flag1"].Flag()};
    for (const auto& [member, work, detail] : kNumbers)
        partner.*member = row[work].Number();
    for (const auto& [member, work, detail] : kTexts)
        partner.*member = row[work].Text();
    return partner;
}

std::vector<std::vector<Field>> ToDetails(const PartnerRow& partner)
{
    std::vector<std::vector<Field>> rows;
    if (partner.interest != 0)
        rows.push_back(ToDetail(partner, kInterestRow, partner.interest));
    if (partner.remuneration != 0 || partner.interest == 0)
        rows.push_back(ToDetail(partner, kRemunerationRow, partner.remuneration));
    return rows;
}

PartnerRow FromDetail(const Row& row)
{
    PartnerRow partner{.interestRate = row["amt4"].Number(), .left = row["flag1"].Flag()};
    const bool isInterest = EqualsIgnoringCase(row["Type"].Text(), kInterestRow);
    (isInterest ? partner.interest : partner.remuneration) = row["amt1"].Number();
    for (const auto& [member, work, detail] : kNumbers)
        partner.*member = row[detail].Number();
    for (const auto& [member, work, detail] : kTexts)
        partner.*member = row[detail].Text();
    return partner;
}

std::vector<PartnerRow> MergePartners(const Recordset& remunerations, const Recordset& interests)
{
    std::vector<PartnerRow> partners;
    for (const Row row : remunerations)
        partners.push_back(FromDetail(row));
    for (const Row row : interests) {
        const PartnerRow paid = FromDetail(row);
        const auto same = std::find_if(partners.begin(), partners.end(), [&](const PartnerRow& partner) {
            return partner.interest == 0 && EqualsIgnoringCase(partner.name, paid.name);
        });
        if (same == partners.end()) {
            partners.push_back(paid);
            continue;
        }
        // name, ratio, status, identity and the mark of one who left stay those of the other row
        PartnerRow merged = paid;
        merged.name = same->name;
        merged.remuneration = same->remuneration;
        merged.ratio = same->ratio;
        merged.status = same->status;
        merged.identity = same->identity;
        merged.left = same->left;
        *same = merged;
    }
    return partners;
}

double SumOfRatios(const std::vector<PartnerRow>& partners)
{
    double total = 0;
    for (const PartnerRow& partner : partners)
        total += partner.left ? 0 : partner.ratio;
    return total;
}

bool RatiosAddUp(const std::vector<PartnerRow>& partners)
{
    constexpr double kNoise = 1e-9;
    return std::fabs(SumOfRatios(partners) - 100) < kNoise;
}

} // namespace pgbp
