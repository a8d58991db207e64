#include "suite/assessee_years.h"

#include "services/year.h"
#include "suite/head_of_income.h"

#include <stdexcept>

namespace pgbp {
namespace {

/// What a select asks for, its first word left out.
constexpr std::string_view kWanted = "y.code, y.company, y.comp_name, y.pan, y.[year], a.status "
                                     "from {assessee1} y left join {assessee} a on a.company = y.company";

std::string Select(std::string_view which) { return "select " + std::string(kWanted) + std::string(which); }

AssesseeYear Read(const Row& row)
{
    return {.code = row["code"].Text(),
            .client = row["company"].Number(),
            .name = row["comp_name"].Text(),
            .pan = row["pan"].Text(),
            .status = row["status"].Text(),
            .year = row["year"].Text(),
            .headOfIncome = {}};
}

} // namespace

std::string YearAfter(std::string_view year, int years)
{
    const int number = YearNumber(year) + years;
    const std::string second = std::to_string((number + 1) % 100);
    return std::to_string(number) + '-' + (second.size() == 1 ? "0" : "") + second;
}

std::vector<AssesseeYear> AssesseeYears(const Practice& practice)
{
    std::vector<AssesseeYear> years;
    for (const Row row : practice.company.Query(Select(" order by y.company, y.[year]")))
        years.push_back(Read(row));
    return years;
}

std::vector<AssesseeYear> AssesseeYearsBehind(const Practice& practice, std::string_view code, int count)
{
    std::vector<AssesseeYear> years;
    const std::string wanted = std::string(kWanted) + " where y.code > ? order by y.code";
    for (const Row row : practice.company.Query(practice.company.dialect().FirstRows(wanted, count), code))
        years.push_back(Read(row));
    return years;
}

AssesseeYear FindAssesseeYear(const Practice& practice, std::string_view code)
{
    const Recordset rows = practice.company.Query(Select(" where y.code = ?"), code);
    if (rows.Empty())
        throw std::runtime_error("The practice has no assessee-year " + std::string(code) +
                                 ". \"pgbp-suite list\" shows those it has.");
    AssesseeYear found = Read(rows.First());
    ReadHead(practice, found);
    return found;
}

std::string PrecedingCode(const Practice& practice, const AssesseeYear& assesseeYear)
{
    return practice.company
        .Scalar("select code from {assessee1} where company = ? and [year] = ? order by code", assesseeYear.client,
                YearAfter(assesseeYear.year, -1))
        .Text();
}

std::vector<double> MinorsOf(const Practice& practice, std::string_view code)
{
    std::vector<double> minors;
    for (const Row row : practice.company.Query(
             "select distinct minor from {business} where code = ? and minor > 0 order by minor", code))
        minors.push_back(row.At(0).Number());
    return minors;
}

std::vector<std::string> AssessmentYears(const Practice& practice)
{
    std::vector<std::string> years;
    for (const Row row : practice.company.Query("select name from {misc} where [type] = 'YEAR' order by name"))
        years.push_back(row.At(0).Text());
    if (years.empty())
        throw std::runtime_error(
            "The practice has no assessment years: table misc of company.mdb holds no row of type YEAR.");
    return years;
}

} // namespace pgbp
