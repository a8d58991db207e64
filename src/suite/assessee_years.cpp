#include "suite/assessee_years.h"

#include "services/format.h"
#include "services/ini_file.h"
#include "services/text.h"
#include "services/year.h"
#include "startup/status.h"
#include "store/schema.h"
#include "suite/clients.h"
#include "suite/pan.h"
#include "suite/row_writer.h"

#include <algorithm>
#include <stdexcept>

namespace pgbp {
namespace {

constexpr std::string_view kSelect = "select y.code, y.company, y.comp_name, y.pan, y.[year], a.status "
                                     "from {assessee1} y left join {assessee} a on a.company = y.company";

AssesseeYear Read(const Row& row)
{
    return {row["code"].Text(), row["company"].Number(), row["comp_name"].Text(),
            row["pan"].Text(),  row["status"].Text(),    row["year"].Text(),
            std::nullopt};
}

std::map<std::string, double, std::less<>> HeadsOfIncome(const Practice& practice)
{
    std::map<std::string, double, std::less<>> heads;
    for (const Row row : practice.balance.Query("select code, amt14 from {qelgeneral} where [Type] = 'BUSI'"))
        heads[row["code"].Text()] = row["amt14"].Number();
    return heads;
}

[[noreturn]] void Refuse(const std::string& why) { throw std::runtime_error(why); }

std::string YearBefore(std::string_view year)
{
    const int number = YearNumber(year) - 1;
    const std::string second = std::to_string((number + 1) % 100);
    return std::to_string(number) + '-' + (second.size() == 1 ? "0" : "") + second;
}

void CheckAssessee(const Practice& practice, const Assessee& assessee)
{
    if (Trim(assessee.name).empty())
        Refuse("The assessee needs a name.");
    if (!IsPan(assessee.pan))
        Refuse("\"" + assessee.pan +
               "\" is no PAN: five capital letters, four digits and a capital letter are wanted.");
    if (assessee.status.size() != 2 || assessee.status.find_first_not_of("0123456789") != std::string::npos)
        Refuse("\"" + assessee.status + "\" is no status code: two digits are wanted, 01 for an individual.");
    const Recordset others = practice.company.Query("select comp_name from {assessee} where pan = ?", assessee.pan);
    if (!others.Empty())
        Refuse("The PAN " + assessee.pan + " belongs to " + others.First()["comp_name"].Text() + " already.");
}

const Column& AssesseeColumn(const std::string& name)
{
    const Table& table = *std::ranges::find_if(
        Tables(), [](const Table& each) { return each.file == "company" && each.name == "assessee"; });
    const auto found = std::ranges::find_if(
        table.columns, [&](const Column& column) { return EqualsIgnoringCase(column.name, name); });
    if (found == table.columns.end() || found->kind != ColumnKind::Text)
        Refuse("An assessee has no column " + name + ".");
    return *found;
}

/// The form on which an assessee with business income of this status makes his return.
double UsualReturnForm(std::string_view status)
{
    constexpr double individual = 4, firm = 5, company = 6;
    if (IsCompany(status))
        return company;
    const bool isPerson = status == "01" || status == "02" || status == "03";
    return isPerson ? individual : firm;
}

clsIniFile ReturnForms(const Practice& practice) { return {practice.folders.program / "QelCtrl.ini"}; }

} // namespace

std::vector<AssesseeYear> AssesseeYears(const Practice& practice)
{
    const auto heads = HeadsOfIncome(practice);
    std::vector<AssesseeYear> years;
    for (const Row row : practice.company.Query(std::string(kSelect) + " order by y.company, y.[year]")) {
        years.push_back(Read(row));
        if (const auto head = heads.find(years.back().code); head != heads.end())
            years.back().headOfIncome = head->second;
    }
    return years;
}

bool Matches(const AssesseeYear& assesseeYear, std::string_view text)
{
    const std::string wanted = Upper(text);
    const std::string words[] = {assesseeYear.code, assesseeYear.name, assesseeYear.pan,
                                 StatusInWords(assesseeYear.status), assesseeYear.year};
    return std::ranges::any_of(words,
                               [&](const std::string& word) { return Upper(word).find(wanted) != std::string::npos; });
}

AssesseeYear FindAssesseeYear(const Practice& practice, std::string_view code)
{
    const Recordset rows = practice.company.Query(std::string(kSelect) + " where y.code = ?", code);
    if (rows.Empty())
        Refuse("The practice has no assessee-year " + std::string(code) + ". \"pgbp-suite list\" shows those it has.");
    AssesseeYear found = Read(rows.First());
    const Value head =
        practice.balance.Scalar("select amt14 from {qelgeneral} where code = ? and [Type] = 'BUSI'", found.code);
    if (!head.IsNull())
        found.headOfIncome = head.Number();
    return found;
}

std::string PrecedingCode(const Practice& practice, const AssesseeYear& assesseeYear)
{
    return practice.company
        .Scalar("select code from {assessee1} where company = ? and [year] = ? order by code", assesseeYear.client,
                YearBefore(assesseeYear.year))
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

double AddAssessee(const Practice& practice, const Assessee& assessee)
{
    std::vector<std::string> columns{"company", "comp_name", "pan", "Status", "flag"};
    std::vector<Value> values{0, Trim(assessee.name), assessee.pan, assessee.status, true};
    for (const auto& [name, value] : assessee.further) {
        columns.emplace_back(AssesseeColumn(name).name);
        values.emplace_back(value);
    }
    Transaction transaction({practice.company});
    CheckAssessee(practice, assessee);
    const double number = practice.company.NextNumber("assessee", "company");
    values.front() = number;
    RowWriter(practice.company, "assessee", columns).Add(values);
    transaction.Commit();
    return number;
}

std::string AddYear(const Practice& practice, double client, std::string_view year, double itr)
{
    Transaction transaction({practice.company});
    const Recordset assessees =
        practice.company.Query("select comp_name, pan, status from {assessee} where company = ?", client);
    if (assessees.Empty())
        Refuse("The practice has no assessee with the number " + Value(client).Text() + ".");
    if (practice.company.Scalar("select count(*) from {misc} where [type] = 'YEAR' and name = ?", year).Number() == 0)
        Refuse("\"" + std::string(year) + "\" is none of the assessment years of the practice, such as 2023-24.");
    const Value existing =
        practice.company.Scalar("select code from {assessee1} where company = ? and [year] = ?", client, year);
    if (!existing.IsNull())
        Refuse("The assessee has the year " + std::string(year) + " already: " + existing.Text() + ".");
    const Row assessee = assessees.First();
    AddAssesseeYear(practice.company, client, assessee["comp_name"], assessee["pan"], year, false);
    std::string code = CodeOf(client, year);
    SetReturnForm(practice, code, itr != 0 ? itr : UsualReturnForm(assessee["status"].Text()));
    transaction.Commit();
    return code;
}

std::vector<std::string> AssessmentYears(const Practice& practice)
{
    std::vector<std::string> years;
    for (const Row row : practice.company.Query("select name from {misc} where [type] = 'YEAR' order by name"))
        years.push_back(row.At(0).Text());
    if (years.empty())
        Refuse("The practice has no assessment years: table misc of company.mdb holds no row of type YEAR.");
    return years;
}

double ReturnForm(const Practice& practice, std::string_view code)
{
    return Val(ReturnForms(practice).GetValue("ITR", code));
}

void SetReturnForm(const Practice& practice, std::string_view code, double itr)
{
    ReturnForms(practice).WriteValue("ITR", code, Value(itr).Text());
}

} // namespace pgbp
