#include "computation/frmbusinesscal.h"
#include "computation/line_under_test.h"
#include "computation/statement_figures.h"

namespace pgbp {
namespace {

struct StoredCell {
    const char* statement;
    int number;
    const char* amount;
};

struct Case {
    const char* name;
    int year;
    const char* status;
    bool indAs;
    std::vector<StoredCell> cells;
    double netProfit;
    double depreciation;
};

class StatementFiguresOf : public LineUnderTest<frmbusinesscal>, public testing::WithParamInterface<Case> {};

TEST_P(StatementFiguresOf, Line)
{
    const Case& given = GetParam();
    Year(given.year, given.status);
    for (const auto& [statement, number, amount] : given.cells)
        Cell(statement, number, amount);
    Line("1"); // without it the cells would be orphans
    Start();
    run->FormCheckDone = given.indAs;
    const StatementFigures figures = ReadStatement(*run, kSno);
    EXPECT_EQ(figures.netProfit, given.netProfit);
    EXPECT_EQ(figures.depreciation, given.depreciation);
}

const Case kCases[] = {
    {"NothingStored", 2023, "06", false, {}, 0, 0},
    {"NetProfit", 2023, "06", false, {{"NEWPL", 255, "125000"}, {"NEWPL", 272, "9"}}, 125000, 0},
    {"GroupedText", 2023, "06", false, {{"NEWPL", 255, "-1,25,000"}}, -125000, 0},
    {"ZeroMakesWayForNoBooks", 2023, "06", false, {{"NEWPL", 255, "0"}, {"NEWPL", 272, "4500"}}, 4500, 0},
    {"NoBooksAlone", 2008, "01", false, {{"NEWPL", 272, "4500"}}, 4500, 0},
    {"ProfessionIsAdded", 2017, "01", false, {{"NEWPL", 255, "100"}, {"NEWPL", 1166, "25"}}, 125, 0},
    {"ProfessionBefore2017", 2016, "01", false, {{"NEWPL", 255, "100"}, {"NEWPL", 1166, "25"}}, 100, 0},
    {"IndAsOfCompany", 2018, "12", false, {{"NEWINDPL", 7149, "800"}, {"NEWPL", 1166, "1"}}, 801, 0},
    {"IndAsOfDomesticCompany", 2018, "13", false, {{"NEWINDPL", 7149, "800"}}, 800, 0},
    {"IndAsOfOtherCompany", 2020, "15", false, {{"NEWINDPL", 7149, "800"}}, 800, 0},
    {"IndAsBefore2018", 2017, "12", false, {{"NEWINDPL", 7149, "800"}}, 0, 0},
    {"IndAsOfFirm", 2018, "06", false, {{"NEWINDPL", 7149, "800"}}, 0, 0},
    {"IndAsNotBesideZero", 2018, "13", false, {{"NEWPL", 255, "0"}, {"NEWINDPL", 7149, "800"}}, 0, 0},
    {"IndAsNotBesideNoBooks", 2018, "15", false, {{"NEWPL", 272, "0"}, {"NEWINDPL", 7149, "800"}}, 0, 0},
    {"StatementInIndAs", 2018, "12", true, {{"NEWPL", 255, "1"}, {"NEWINDPL", 255, "30"}}, 30, 0},
    {"NoBooksIsAlwaysPlain", 2018, "12", true, {{"NEWINDPL", 272, "1"}, {"NEWPL", 272, "30"}}, 30, 0},
    {"Depreciation",
     2023,
     "06",
     false,
     {{"NEWPL", 254, "10"}, {"NEWPL", 254, "20"}, {"NEWPL", 8015, "5"}, {"NEWINDPL", 254, "99"}},
     0,
     35},
    {"DepreciationInIndAs", 2023, "12", true, {{"NEWPL", 254, "10"}, {"NEWINDPL", 8015, "99"}}, 0, 99},
};

INSTANTIATE_TEST_SUITE_P(Computation, StatementFiguresOf, testing::ValuesIn(kCases),
                         [](const auto& test) { return test.param.name; });

} // namespace
} // namespace pgbp
