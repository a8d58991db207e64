#include "statements/ind_as_totals.h"
#include "statements/served_totals.h"
#include "statements/totals_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

using namespace pgbp;
using namespace pgbp::test;

namespace {

/// Figure of `result` when 1 stands in `line` alone: how often, and with which sign, the line counts.
double Weight(const StatementTotals& totals, std::size_t rows, std::size_t line, std::size_t result)
{
    std::vector<AmountCell> amounts(rows + 1);
    amounts[line].SetText("1");
    totals.Run(amounts);
    return amounts[result].figure();
}

} // namespace

/// The rules of each form are written down twice: as one table an operation, and in full.
TEST(TotalsRules, EveryFormComesToWhatItsRulesInFullComeTo)
{
    int checked = 0;
    for (const auto& [name, rules] : RulesInFull()) {
        SCOPED_TRACE(name);
        const TemplateFile& file = TemplateNamed(name);
        std::vector<AmountCell> amounts(file.rows.size() + 1);
        for (std::size_t line = 1; line <= file.rows.size(); ++line)
            if (IsEntry(file.At(line)))
                amounts[line].SetText(std::to_string(1000003 + 7919 * line * line));
        std::vector<AmountCell> inFull = amounts;
        const StatementTotals totals = TotalsOf(file);
        const std::string_view text[] = {rules};
        const StatementTotals totalsInFull(text, file.rows.size());
        constexpr int kDepth = 6; // in full they stand line by line: a total above its items settles with the next run
        for (int run = 0; run < kDepth; ++run)
            totalsInFull.Run(inFull);
        for (int run = 0; run < 2; ++run) // the second, as after the next key, changes nothing
            totals.Run(amounts);
        const auto sorted = [](const StatementTotals& of) {
            const auto lines = of.ComputedRows();
            return std::set<std::size_t>(lines.begin(), lines.end());
        };
        EXPECT_EQ(sorted(totals), sorted(totalsInFull));
        for (const std::size_t line : totals.ComputedRows()) {
            EXPECT_TRUE(file.At(line).isBlocked && file.At(line).isNumber) << "line " << line << " is an entry";
            EXPECT_EQ(amounts[line].text(), inFull[line].text()) << "line " << line;
            ++checked;
        }
    }
    EXPECT_EQ(RulesInFull().size(), 20u);
    EXPECT_GT(checked, 500);
}

/// Credits and expenses have totals of their own, and none of them is in the net profit.
TEST(TotalsRules, NetProfitUnderIndAsTakesInterestAndDepreciationOnly)
{
    const TemplateFile& file = TemplateNamed("INDASPL");
    const StatementTotals totals = TotalsOf(file);
    std::map<std::size_t, double> weights;
    for (std::size_t line = 1; line <= file.rows.size(); ++line)
        if (const double weight = IsEntry(file.At(line)) ? Weight(totals, file.rows.size(), line, kIndNetProfitRow) : 0)
            weights[line] = weight;
    EXPECT_EQ(weights, (std::map<std::size_t, double>{{145, 1}, {146, 1}, {148, -1}}));
}

TEST(TotalsRules, IntradayProfitReachesTheProfitOfAnIndividualOnly)
{
    for (const auto& [name, expected] : {std::pair("PL_3_2019", "500"), {"PL_5_2019", "0"}, {"PL_6_2019", "0"}}) {
        const TemplateFile& file = TemplateNamed(name);
        std::vector<AmountCell> amounts(file.rows.size() + 1);
        TotalsOf(file).Run(amounts, 500);
        EXPECT_EQ(amounts[file.Line(255)].text(), expected) << name;
    }
}

/// Its lines are added at the places of the account, and the rules that reach beyond its end are left out.
TEST(TotalsRules, ABalanceSheetPassesThroughTheRulesOfTheAccount)
{
    const auto open = [](int year, int glITR) { return OpenStatementForm(year, glITR, StatementKind::BalanceSheet); };
    const auto rowsOf = [](const StatementForm& form) { return TemplateNamed(TemplateName(form)).rows.size(); };
    for (int year = 2005; year <= 2026; ++year)
        for (const int glITR : {4, 5, 6}) {
            const StatementForm form = open(year, glITR);
            const StatementTotals totals(TotalsRules(OperationFor(form), form), rowsOf(form));
            EXPECT_LE(std::ranges::max(totals.ComputedRows()), rowsOf(form)) << year << ' ' << glITR;
        }

    struct Case {
        int year, glITR;
        std::size_t line;
        const char* figure; ///< when 1 stands in every line
        std::size_t last;   ///< computed line
    };
    const Case cases[] = {
        {2012, 4, 86, "-40", 86},   // 21 = 16, less 22 + 23 + 7 + 6 lines + 10 + 4 + 17 lines + 5 + 5 lines
        {2018, 4, 86, "-40", 86},   // the same rules: an individual's balance sheet never runs as a firm's
        {2012, 5, 87, "-41", 87},   // as above with 11 for the 10
        {2012, 6, 103, "-49", 103}, // -41 less 2, less 3, plus 1, less 4
        {2014, 5, 36, "22", 87},    // 8 + 11 + 3
        {2017, 5, 37, "23", 88},    // 9 + 11 + 3
        {2018, 5, 41, "27", 86},    // 13 + 11 + 3
        {2016, 6, 38, "24", 97},    // 10 + 11 + 3
        {2018, 6, 42, "28", 105},   // 14 + 11 + 3
        {2026, 4, 87, "12", 87},    // ten lines + 2
        {2026, 5, 88, "-1", 88},    // gross profit 14 - 1 - 1 - 3 - 11 - 11 = -13, + 12
        {2026, 6, 88, "-1", 106},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.year) + ' ' + std::to_string(c.glITR));
        const StatementForm form = open(c.year, c.glITR);
        const StatementTotals totals(TotalsRules(OperationFor(form), form), rowsOf(form));
        std::vector<AmountCell> amounts(rowsOf(form) + 1, AmountCell("1"));
        totals.Run(amounts);
        EXPECT_EQ(amounts[c.line].text(), c.figure);
        EXPECT_EQ(totals.ComputedRows().back(), c.last);
    }
    EXPECT_TRUE(
        TotalsRules(TotalsOperation::Cal_Total, OpenStatementForm(2020, 7, StatementKind::ProfitAndLoss)).empty());
}

TEST(TotalsRules, LayoutOfAnIndAsBalanceSheetIsKnownByItsLines)
{
    const auto published = IndTotalsRules(IndStatement::INDBS, 204);
    EXPECT_EQ(IndTotalsRules(IndStatement::INDBS, 0).data(), published.data());
    for (const std::size_t rows : {87u, 88u, 107u, 232u})
        EXPECT_NE(IndTotalsRules(IndStatement::INDBS, rows).data(), published.data());
    EXPECT_EQ(TemplateNamed("INDAS").At(kIndEquityAndLiabilitiesRow).slno, 7601);
    EXPECT_EQ(TemplateNamed("INDAS").At(kIndAssetsRow).slno, 7732);
    EXPECT_EQ(TemplateNamed("INDASPL").At(kIndNetProfitRow).slno, 7149);
}
