#include "annexure/annexure_rules.h"

#include "services/text.h"

#include <algorithm>
#include <limits>

namespace pgbp {
namespace {

constexpr int kAnyYear = std::numeric_limits<int>::min();

constexpr int kTo40[] = {5, 10, 40};
constexpr int kTo10[] = {5, 10};
constexpr int kTo100[] = {5, 10, 100};
constexpr int kPlantTo45[] = {15, 30, 40, 45};
constexpr int kPlantTo40[] = {15, 30, 40};
constexpr int kPlantTo100[] = {15, 30, 40, 50, 60, 80, 100};
constexpr int kFurniture[] = {10};
constexpr int kIntangible[] = {25};
constexpr int kShips[] = {20};
constexpr int kFurnitureBefore2007[] = {10, 15};
constexpr int kPlantBefore2007[] = {15, 20, 30, 40, 50, 60, 80, 100};

/// Rates of a group from an assessment year on; within a group the latest year stands first.
struct RateRule {
    std::string_view group;
    int firstYear;
    std::span<const int> rates;
    std::string_view message;
};
constexpr RateRule kRateRules[] = {
    {"Buildings", 2020, kTo40, "Only allowed Depreciation Rates are: 5, 10 and 40 in this group.."},
    {"Buildings", 2018, kTo10, "Only allowed Depreciation Rates are: 5 and 10 in this group.."},
    {"Buildings", kAnyYear, kTo100, "Only allowed Depreciation Rates are: 5, 10 and 100 in this group.."},
    {"Furniture & Fittings", kAnyYear, kFurniture, "Only allowed Depreciation Rate is: 10 in this group.."},
    {"Machinery & Plant", 2020, kPlantTo45, "Only allowed Depreciation Rates are: 15, 30, 40 and 45 in this group.."},
    {"Machinery & Plant", 2018, kPlantTo40, "Only allowed Depreciation Rates are: 15, 30 and 40 in this group.."},
    {"Machinery & Plant", kAnyYear, kPlantTo100,
     "Only allowed Depreciation Rates are: 15, 30, 40, 50, 60, 80 and 100 in this group.."},
    {"Intangible Assets", kAnyYear, kIntangible, "Only allowed Depreciation Rate is 25 in this group..."},
    {"Ships", kAnyYear, kShips, "Only allowed Depreciation Rate is 20 in this group..."},
};
constexpr RateRule kRateRulesBefore2007[] = {
    {"Buildings", kAnyYear, kTo100, "Only allowed Depreciation Rates are: 5, 10 and 100 in this group.."},
    {"Furniture & Fittings", kAnyYear, kFurnitureBefore2007,
     "Only allowed Depreciation Rates are: 10 and 15 in this group.."},
    {"Machinery & Plant", kAnyYear, kPlantBefore2007,
     "Only allowed Depreciation Rates are: 15, 20, 30, 40, 50, 60, 80 and 100 in this group.."},
    {"Intangible Assets", kAnyYear, kIntangible, "Olnly allowed Depreciation Rate is 25 in this group..."},
};

constexpr std::string_view kInformation = " - Information";
constexpr std::string_view kRateInformation = ":- Information ";

bool HasNegativePart(const AnnexureRow& row)
{
    return std::min({row.depreciation1, row.depreciation2, row.additional1, row.additional2}) < 0;
}

bool LacksGroup(const AnnexureRow& row)
{
    return !Trim(row.name).empty() && std::ranges::find(kAssetGroups, row.group) == kAssetGroups.end();
}

struct RowCheck {
    bool (*fails)(const AnnexureRow&, const AnnexureCase&);
    std::string_view message;
    std::string_view titleTail;
    std::string_view focus;
};
constexpr RowCheck kRowChecks[] = {
    {[](const AnnexureRow& row, const AnnexureCase&) { return Trim(row.name).empty(); },
     "Name can not be left blank...", kInformation, "txtname"},
    {[](const AnnexureRow& row, const AnnexureCase&) { return Trim(row.group).empty(); },
     "Group Name can not be left blank...", kInformation, "CBOGRP"},
    {[](const AnnexureRow& row, const AnnexureCase&) { return row.rate <= 0; }, "Depreciation Rate can not be Zero...",
     kInformation, "txtdeprate"},
    {[](const AnnexureRow& row, const AnnexureCase& its) { return its.asksDateOfSale && !row.dateOfSale; },
     "Please fill date of sale...", kInformation, "txtdate1"},
    {[](const AnnexureRow& row, const AnnexureCase& its) { return its.isCapitalGain && row.depreciation != 0; },
     "Only STCG on Depreciable Assets can be entered here...", "", ""},
    {[](const AnnexureRow& row, const AnnexureCase&) { return HasNegativePart(row); },
     "Depreciation can not be in negative..", kInformation, ""},
    {[](const AnnexureRow& row, const AnnexureCase&) { return row.purchases2 == 0 && row.sales2 > 0; },
     "You have entered sales ag. 2nd Half purchase but there is no 2nd half Purchase.", kInformation, "TxtSales2"},
};

} // namespace

std::optional<std::string_view> RateNotice(int year)
{
    constexpr std::string_view notice = "Dep. Rate on Computer has  been changed to 40% from AY 2018-19 ";
    return year == 2018 ? std::optional(notice) : std::nullopt;
}

std::optional<std::string_view> RefusalOfRate(std::string_view group, int year, double rate, AnnexureRates rates)
{
    constexpr int kLastYearBefore2018 = 2017;
    const bool isOld = rates == AnnexureRates::Before2007;
    const std::span<const RateRule> rules = isOld ? std::span<const RateRule>(kRateRulesBefore2007) : kRateRules;
    const int ofYear = rates == AnnexureRates::Before2018 ? kLastYearBefore2018 : year;
    const auto rule = std::ranges::find_if(
        rules, [&](const RateRule& candidate) { return candidate.group == group && candidate.firstYear <= ofYear; });
    const bool isAllowed = rule == rules.end() || std::ranges::find(rule->rates, rate) != rule->rates.end();
    return isAllowed ? std::nullopt : std::optional(rule->message);
}

std::optional<AnnexureRefusal> RefusalOfRow(const AnnexureRow& row, const AnnexureCase& its)
{
    const auto failed = std::ranges::find_if(kRowChecks, [&](const RowCheck& check) { return check.fails(row, its); });
    if (failed != std::end(kRowChecks))
        return AnnexureRefusal{std::string(failed->message), failed->titleTail, failed->focus};
    if (const auto message = RefusalOfRate(row.group, its.year, row.rate, its.rates))
        return AnnexureRefusal{std::string(*message), kRateInformation, "txtdeprate"};
    return std::nullopt;
}

std::optional<AnnexureRefusal> RefusalOfSave(std::span<const AnnexureRow> rows)
{
    const auto lacking = std::ranges::find_if(rows, LacksGroup);
    if (lacking == rows.end())
        return std::nullopt;
    return AnnexureRefusal{"Please fill group for " + lacking->name, kInformation};
}

} // namespace pgbp
