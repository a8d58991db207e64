#include "statements/export_formulas.h"

#include "statements/statement_totals.h"
#include "statements/template_files.h"
#include "statements/totals_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <set>
#include <sstream>

using namespace pgbp;
using namespace pgbp::test;

namespace {

/// An operation with the form it was made for and what its formulas do differently from the totals of that form, as the
/// exported sheet always has. Numbers are lines of the form, one less than rows of the sheet.
struct Served {
    ExportOperation operation;
    const char* name;
    const char* form;
    int year;
    int glITR;
    std::map<int, std::string> otherSums; ///< line -> what its formula adds
    std::set<int> carried = {};           ///< adds up rightly what another of these lines has got wrong
    std::set<int> withoutFormula = {};    ///< totals that keep the figure of the statement
};

const std::vector<Served>& AllServed()
{
    using enum ExportOperation;
    static const std::vector<Served> all = {
        {excel_mod, "excel_mod", "PL_4", 2012, 4, {}},
        {excel_mod_17_PL1, "excel_mod_17_PL1", "PL_5_2017", 2017, 5, {{37, "8 + 31 + 36"}}, {}, {130, 151, 156}},
        {excel_mod_17_PL4,
         "excel_mod_17_PL4",
         "PL_5_2",
         2017,
         4,
         {{16, "8 + 15"}, {37, "8 + 31 + 36"}, {154, "148 - 153"}},
         {},
         {129, 148, 153}},
        {excel_mod_17_PL6, "excel_mod_17_PL6", "PL_6_1", 2017, 6, {{32, "20..27 + 31"}}, {38}, {130}},
        {excel_mod_21_PL1, "excel_mod_21_PL1", "PL_5_2019", 2026, 5, {}},
        {excel_mod_21_PL4, "excel_mod_21_PL4", "PL_3_2019", 2026, 4, {}},
        {excel_mod_21_PL6, "excel_mod_21_PL6", "PL_6_2019", 2026, 6, {}},
    };
    return all;
}

/// Line -> how often it is added, from "88 - (89..94 + 106)" or "=C89-sum(C90:C95,C107)", whose rows are `shift` more.
class Addends {
  public:
    Addends(const std::string& text, int shift) : shift_(shift)
    {
        const char* at = text.c_str();
        Sum(at, 1);
    }

    std::map<int, int> lines;

  private:
    void Sum(const char*& at, int outer)
    {
        int sign = outer;
        for (; *at != '\0' && *at != ')'; ++at) {
            if (*at == '-')
                sign = -outer;
            else if (*at == '+' || *at == ',')
                sign = outer;
            else if (*at == '(')
                Sum(++at, sign);
            else if (std::isdigit(*at))
                Range(at, sign);
        }
    }

    void Range(const char*& at, int sign)
    {
        char* end = nullptr;
        const long from = std::strtol(at, &end, 10);
        const bool isRange = *end == ':' || *end == '.';
        const long to = isRange ? std::strtol(end + 2, &end, 10) : from;
        at = end - 1;
        for (long line = from; line <= to; ++line)
            lines[static_cast<int>(line) - shift_] += sign;
    }

    int shift_;
};

/// Line -> what it adds, of a form whose rules are written out in full.
std::map<int, std::string> RulesOf(const std::string& form)
{
    std::map<int, std::string> rules;
    std::istringstream in(RulesInFull().at(form));
    for (std::string rule; std::getline(in, rule, ';');)
        rules[std::stoi(rule)] = rule.substr(rule.find('=') + 1);
    return rules;
}

StatementTotals TotalsOf(const Served& served, std::size_t lines)
{
    const StatementForm form = OpenStatementForm(served.year, served.glITR, StatementKind::ProfitAndLoss);
    EXPECT_EQ(TemplateName(form), served.form);
    return {TotalsRules(OperationFor(form), form), lines};
}

/// The form with a figure of its own on each open line, and its totals.
std::vector<AmountCell> Worked(const Served& served, const TemplateFile& file)
{
    std::vector<AmountCell> amounts(file.rows.size() + 1);
    for (std::size_t line = 1; line <= file.rows.size(); ++line)
        if (file.At(line).isNumber && !file.At(line).isBlocked)
            amounts[line].SetText(std::to_string(1000003 + 7919 * line * line));
    TotalsOf(served, file.rows.size()).Run(amounts);
    return amounts;
}

constexpr int kAmounts = 2;
constexpr int kPreviousYears = 5;

/// The statement in a sheet, the previous year's figures twice those of the year.
xls::Sheet AsSheet(const std::vector<AmountCell>& amounts)
{
    xls::Sheet sheet{.name = "Sheet1"};
    for (std::size_t line = 1; line < amounts.size(); ++line) {
        if (amounts[line].text().empty())
            continue;
        const int row = static_cast<int>(line);
        sheet.cells[{row, kAmounts}].value = amounts[line].figure();
        sheet.cells[{row, kPreviousYears}].value = 2 * amounts[line].figure();
    }
    return sheet;
}

double FigureAt(const xls::Sheet& sheet, int line, int column)
{
    const auto* figure = std::get_if<double>(&xls::ValueAt(sheet, {line, column}));
    return figure ? *figure : 0;
}

bool IsUnlocked(const xls::Sheet& sheet, const char* cell)
{
    const auto found = sheet.cells.find(xls::PositionOf(cell));
    return found != sheet.cells.end() && !found->second.style.locked;
}

} // namespace

TEST(ExportFormulas, EachTotalAddsTheLinesThatItsRuleAdds)
{
    for (const Served& served : AllServed()) {
        SCOPED_TRACE(served.name);
        const TemplateFile& file = TemplateNamed(served.form);
        auto rules = RulesOf(served.form);
        for (const auto& [line, sum] : served.otherSums) {
            EXPECT_NE(Addends(rules.at(line), 0).lines, Addends(sum, 0).lines) << "line " << line;
            rules.at(line) = sum;
        }
        for (const auto& [row, entry] : ExportFormulasOf(served.operation)) {
            const int line = row - 1;
            const Addends added(std::string(entry.formula), 1);
            ASSERT_TRUE(rules.contains(line)) << "row " << row << " is no total";
            EXPECT_EQ(added.lines, Addends(rules.at(line), 0).lines) << "row " << row;
            for (const auto& [addend, times] : added.lines)
                EXPECT_TRUE(addend >= 1 && addend <= static_cast<int>(file.rows.size())) << "row " << row;
            rules.erase(line);
        }
        std::set<int> left;
        for (const auto& [line, rule] : rules)
            left.insert(line);
        EXPECT_EQ(left, served.withoutFormula);
    }
}

TEST(ExportFormulas, CalculatedSheetAgreesWithTheTotalsOfTheForm)
{
    for (const Served& served : AllServed()) {
        SCOPED_TRACE(served.name);
        const auto amounts = Worked(served, TemplateNamed(served.form));
        xls::Sheet sheet = AsSheet(amounts);
        PutExportFormulas(sheet, served.operation, TotalsOf(served, amounts.size() - 1).ComputedRows());
        const xls::Workbook read = xls::ReadXls(xls::WriteXls({{sheet}}));

        std::set<int> different;
        for (int line = 1; line < static_cast<int>(amounts.size()); ++line) {
            const double figure = FigureAt(read.sheets.at(0), line, kAmounts);
            if (figure != amounts[static_cast<std::size_t>(line)].figure())
                different.insert(line);
            else
                EXPECT_EQ(FigureAt(read.sheets[0], line, kPreviousYears), 2 * figure) << "line " << line;
        }
        std::set<int> expected = served.carried;
        for (const auto& [line, sum] : served.otherSums)
            expected.insert(line);
        EXPECT_EQ(different, expected);
    }
}

TEST(ExportFormulas, OperationGoesByYearAndFormNumber)
{
    using enum ExportOperation;
    struct Case {
        int year, glITR;
        ExportOperation operation;
    };
    static constexpr Case kCases[] = {
        {2005, 4, excel_mod},        {2016, 4, excel_mod},        {2016, 5, excel_mod},
        {2016, 6, excel_mod},        {2017, 4, excel_mod_17_PL4}, {2017, 5, excel_mod_17_PL1},
        {2017, 6, excel_mod_17_PL6}, {2020, 4, excel_mod_17_PL4}, {2020, 5, excel_mod_17_PL1},
        {2020, 6, excel_mod_17_PL6}, {2021, 4, excel_mod_21_PL4}, {2021, 5, excel_mod_21_PL1},
        {2021, 6, excel_mod_21_PL6}, {2026, 7, excel_mod_21_PL4}, {2018, 7, excel_mod_17_PL4},
    };
    for (const auto& [year, glITR, operation] : kCases)
        EXPECT_EQ(ExportOperationFor({.year = year, .FormITR = 4, .GlITR = glITR}), operation) << year << ' ' << glITR;
    EXPECT_EQ(ExportOperationFor(OpenStatementForm(2026, 4, StatementKind::ProfitAndLoss)), excel_mod_21_PL1)
        << "an individual's account runs with the number of a firm";
    EXPECT_EQ(ExportOperationFor(OpenStatementForm(2026, 4, StatementKind::BalanceSheet)), excel_mod_21_PL4);
}

TEST(ExportFormulas, RowsOfFormulasAreShadedAndTheirEntriesOpened)
{
    xls::Sheet sheet;
    constexpr std::size_t kComputed[] = {1, 7, 19, 21, 86, 89, 101};
    PutExportFormulas(sheet, ExportOperation::excel_mod, kComputed);
    EXPECT_EQ(sheet.cells.at(xls::PositionOf("A90")).style.fill, (xls::Colour{255, 255, 0}));
    EXPECT_EQ(sheet.cells.at(xls::PositionOf("C90")).formula, "=sum(C87-C88-C89)");
    EXPECT_FALSE(sheet.cells.contains(xls::PositionOf("D90")));
    for (const char* cell : {"C2", "C93"})
        EXPECT_TRUE(!sheet.cells.contains(xls::PositionOf(cell)) ||
                    sheet.cells.at(xls::PositionOf(cell)).formula.empty())
            << cell << " is not computed, or has no formula";
    EXPECT_FALSE(sheet.cells.at(xls::PositionOf("C102")).formula.empty());
    for (const char* cell : {"C2", "C4", "C7", "C39", "C74", "C86"})
        EXPECT_TRUE(IsUnlocked(sheet, cell)) << cell;
    for (const char* cell : {"C8", "C20", "C30", "C51", "C57", "C81", "C87", "C90", "A8"})
        EXPECT_FALSE(IsUnlocked(sheet, cell)) << cell;

    xls::Sheet from2021;
    constexpr std::size_t kComputedFrom2021[] = {25, 197};
    PutExportFormulas(from2021, ExportOperation::excel_mod_21_PL1, kComputedFrom2021);
    EXPECT_EQ(from2021.cells.at(xls::PositionOf("F26")).formula, "=sum(F21-F25)");
    EXPECT_EQ(from2021.cells.at(xls::PositionOf("E26")).style.fill, (xls::Colour{255, 255, 0}));
    EXPECT_TRUE(std::ranges::all_of(from2021.cells, [](const auto& cell) { return cell.second.style.locked; }));
}
