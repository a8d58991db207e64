#include "statements/ind_as_totals.h"
#include "statements/statement_form.h"
#include "statements/totals_rules.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

constexpr auto kPL = StatementKind::ProfitAndLoss;
constexpr auto kBAL = StatementKind::BalanceSheet;

/// Which form serves which year, written down a second time: by return form, then by the year in which each version
/// begins.
std::string PublishedTemplate(int year, int formITR, StatementKind kind)
{
    const std::string number = std::to_string(formITR);
    if (kind == kBAL)
        return "BS_" + number;
    struct Version {
        int from;
        const char* name;
    };
    static const std::map<int, std::vector<Version>> versions = {
        {4, {{0, "PL_4"}, {2014, "PL_5_1"}, {2017, "PL_5_2"}, {2018, "PL_5_2018"}, {2019, "PL_3_2019"}}},
        {5,
         {{0, "PL_5"},
          {2013, "PL_5_1"},
          {2015, "PL_5_2015"},
          {2017, "PL_5_2017"},
          {2018, "PL_5_2018a"},
          {2019, "PL_5_2019"}}},
        {6, {{0, "PL_6"}, {2013, "PL_6_1"}, {2018, "PL_6_2018"}, {2019, "PL_6_2019"}}},
    };
    std::string name;
    for (const Version& version : versions.at(formITR))
        if (version.from <= year)
            name = version.name;
    return name;
}

} // namespace

TEST(StatementForm, TemplateOfEveryYearFormAndKind)
{
    for (int year = 2005; year <= 2026; ++year)
        for (const int glITR : {0, 4, 5, 6})
            for (const auto kind : {kPL, kBAL})
                EXPECT_EQ(TemplateName(OpenStatementForm(year, glITR, kind)),
                          PublishedTemplate(year, glITR == 0 ? 4 : glITR, kind))
                    << year << " form " << glITR << ' ' << KindWord(kind);
}

TEST(StatementForm, NumbersOnOpening)
{
    struct Case {
        int year, glITR;
        StatementKind kind;
        int formITR, running;
        bool three;
    };
    const Case cases[] = {
        {2013, 4, kPL, 4, 4, false}, {2014, 4, kPL, 4, 5, false}, {2014, 3, kPL, 4, 5, false},
        {2015, 4, kPL, 4, 5, true},  {2020, 0, kPL, 4, 5, true},  {2020, 4, kBAL, 4, 4, false},
        {2020, 5, kPL, 5, 5, false}, {2020, 6, kPL, 6, 6, false},
    };
    for (const Case& c : cases) {
        const StatementForm form = OpenStatementForm(c.year, c.glITR, c.kind);
        EXPECT_EQ(form.FormITR, c.formITR) << c.year;
        EXPECT_EQ(form.GlITR, c.running) << c.year;
        EXPECT_EQ(form.ItrThreeCase, c.three) << c.year;
    }
}

TEST(StatementForm, NumberIsGivenBackOnClosing)
{
    double glITR = 0;
    {
        const FormNumberWhileOpen open(glITR, OpenStatementForm(2020, 0, kPL));
        EXPECT_EQ(glITR, 5);
    }
    EXPECT_EQ(glITR, 4);
}

TEST(StatementForm, KindComesFromTheHandOver)
{
    EXPECT_EQ(StatementKindOf("NEWBS"), kBAL);
    for (const auto* word : {"PNL", "", "newbs"})
        EXPECT_EQ(StatementKindOf(word), kPL) << word;
    EXPECT_EQ(IndTemplateName(IndStatement::INDPNL), "INDASPL");
    EXPECT_EQ(IndTemplateName(IndStatement::INDBS), "INDAS");
}

TEST(StatementForm, OperationOfTheTotals)
{
    using enum TotalsOperation;
    struct Case {
        int glITR;
        StatementKind kind;
        std::vector<std::pair<int, TotalsOperation>> from; // first year of each
    };
    const Case cases[] = {
        {4,
         kPL,
         {{2005, Cal_Total}, {2014, Cal_Total_1}, {2017, Cal_Total_2}, {2018, Cal_Total_3}, {2019, Cal_Total_4}}},
        {4, kBAL, {{2005, Cal_Total}, {2019, Cal_Total_4}}},
        {5,
         kPL,
         {{2005, Cal_Total}, {2013, Cal_Total_1}, {2017, Cal_Total_2}, {2018, Cal_Total_3}, {2019, Cal_Total_5}}},
        {5,
         kBAL,
         {{2005, Cal_Total}, {2013, Cal_Total_1}, {2017, Cal_Total_2}, {2018, Cal_Total_3}, {2019, Cal_Total_5}}},
        {6, kPL, {{2005, Cal_Total}, {2013, Cal_Total_1}, {2019, Cal_Total_6}}},
        {6, kBAL, {{2005, Cal_Total}, {2013, Cal_Total_1}, {2019, Cal_Total_6}}},
        {7, kPL, {{2005, Cal_Total}}},
    };
    for (const Case& c : cases)
        for (int year = 2005; year <= 2026; ++year) {
            TotalsOperation expected = Cal_Total;
            for (const auto& [first, operation] : c.from)
                if (first <= year)
                    expected = operation;
            EXPECT_EQ(OperationFor(OpenStatementForm(year, c.glITR, c.kind)), expected) << c.glITR << ' ' << year;
        }
}
