#include "statements/net_profit_line.h"
#include "statements/template_files.h"

#include <gtest/gtest.h>
#include <set>

using namespace pgbp;
using namespace pgbp::test;

namespace {

/// A grid as long as the template of the form whose line n holds n thousand, grouped: line 175 shows "1,75,000".
std::vector<AmountCell> Grid(const StatementForm& form)
{
    std::vector<AmountCell> amounts(TemplateNamed(TemplateName(form)).rows.size() + 1);
    for (std::size_t line = 1; line < amounts.size(); ++line)
        amounts[line].SetRounded(1000.0 * static_cast<double>(line));
    return amounts;
}

std::string NetProfit(int year, int glITR, bool booksNotKept)
{
    const StatementForm form = OpenStatementForm(year, glITR, StatementKind::ProfitAndLoss);
    return NetProfitText(OperationFor(form), form, booksNotKept, Grid(form)).value_or("unchanged");
}

} // namespace

TEST(NetProfit, IsTheProfitBeforeTaxOfTheForm)
{
    struct Case {
        int year, glITR;
        const char* kept;
        const char* notKept; ///< the last line, net profit of the no-account case
    };
    const Case cases[] = {
        {2012, 4, "89,000", "1,01,000"},   {2013, 4, "89,000", "1,01,000"},   {2012, 5, "90,000", "1,03,000"},
        {2012, 6, "91,000", "1,03,000"},   {2014, 4, "1,34,000", "1,46,000"}, {2013, 5, "1,34,000", "1,46,000"},
        {2016, 5, "1,37,000", "1,49,000"}, {2017, 6, "136000", "1,49,000"},   {2018, 6, "148000", "1,67,000"},
        {2017, 4, "1,35,000", "1,54,000"}, {2017, 5, "1,38,000", "1,57,000"}, {2018, 4, "1,47,000", "1,66,000"},
        {2018, 5, "1,50,000", "1,69,000"}, {2019, 4, "1,75,000", "1,94,000"}, {2026, 5, "1,78,000", "1,97,000"},
        {2019, 6, "175000", "1,94,000"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(NetProfit(c.year, c.glITR, false), c.kept) << c.year << ' ' << c.glITR;
        EXPECT_EQ(NetProfit(c.year, c.glITR, true), c.notKept) << c.year << ' ' << c.glITR;
    }
}

TEST(NetProfit, OfABalanceSheetLeavesTheLabelOrTakesItsPlace)
{
    const StatementForm form = OpenStatementForm(2020, 4, StatementKind::BalanceSheet);
    EXPECT_FALSE(NetProfitText(OperationFor(form), form, false, Grid(form)));
    const StatementForm company = OpenStatementForm(2020, 6, StatementKind::BalanceSheet);
    EXPECT_FALSE(NetProfitText(OperationFor(company), company, false, Grid(company))) << "line 175 lies beyond 107";
    for (const auto operation : {TotalsOperation::Cal_Total_2, TotalsOperation::Cal_Total_3,
                                 TotalsOperation::Cal_Total_4, TotalsOperation::Cal_Total_5}) {
        const StatementForm account = OpenStatementForm(2020, 6, StatementKind::ProfitAndLoss);
        EXPECT_EQ(NetProfitText(operation, account, false, Grid(account)), "136000") << "a company's line is fixed";
    }
    const std::vector<AmountCell> headingOnly(1);
    EXPECT_FALSE(NetProfitText(OperationFor(form), form, true, headingOnly));
}

TEST(NetProfit, OfTheseFormsStandsElsewhereThanTheDistancesFromTheEndTell)
{
    std::set<std::string> ofLabel;
    std::set<std::string> ofSave; // depreciation stands one row above the net profit, in every form
    for (int year = 2005; year <= 2026; ++year)
        for (const int glITR : {4, 5, 6}) {
            const StatementForm form = OpenStatementForm(year, glITR, StatementKind::ProfitAndLoss);
            const TemplateFile& lines = TemplateNamed(TemplateName(form));
            EXPECT_EQ(lines.Line(254) + 1, lines.Line(255)) << lines.name;
            if (AmountCell(NetProfit(year, glITR, false)).figure() != 1000.0 * static_cast<double>(lines.Line(255)))
                ofLabel.insert(lines.name);
            const std::size_t fromEnd = year >= 2017 ? 20 : form.GlITR <= 4 ? 13 : 14;
            if (lines.rows.size() + 1 - fromEnd != lines.Line(255))
                ofSave.insert(lines.name + (year == 2017 ? " in 2017" : ""));
        }
    EXPECT_EQ(ofLabel, std::set<std::string>({"PL_6"}));
    EXPECT_EQ(ofSave, std::set<std::string>({"PL_5_1", "PL_5_2015", "PL_6_1 in 2017"}));
}
