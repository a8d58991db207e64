#include "suite/years_chart.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace pgbp {
namespace {

constexpr std::optional<double> kNone;

/// Years up to 2024-25, a letter as wide as 6, a line as high as 10.
std::vector<ClientYear> YearsOf(const std::vector<std::optional<double>>& heads)
{
    std::vector<ClientYear> years;
    for (std::size_t i = 0; i < heads.size(); ++i) {
        const std::string second = std::to_string(25 - heads.size() + 1 + i);
        years.push_back(
            {.code = {},
             .year = std::to_string(2024 - heads.size() + 1 + i) + (second.size() == 1 ? "-0" : "-") + second,
             .head = heads[i]});
    }
    return years;
}

YearsChart ChartOf(const std::vector<ClientYear>& years, double width = 600, double height = 110)
{
    return LayOut(years, years.size() - 1, width, height,
                  {[](const std::string& text) { return 6.0 * static_cast<double>(text.size()); }, 10});
}

TEST(FiguresOfAClientsYears, AreToldExactlyAndRoundOnesInLakhAndCrore)
{
    struct Case {
        double amount;
        const char* exact;
        const char* round;
    };
    constexpr Case kCases[] = {
        {0, "0", "0"},
        {-0.5, "-0.50", "-0.5"},
        {99999, "99,999", "99,999"},
        {1e5, "1,00,000", "1 lakh"},
        {-150000, "-1,50,000", "-1.5 lakh"},
        {430000.5, "4,30,000.50", "4.300005 lakh"},
        {2e7, "2,00,00,000", "2 crore"},
        {1e12, "10,00,00,00,00,000", "1,00,000 crore"},
    };
    for (const auto& [amount, exact, round] : kCases) {
        EXPECT_EQ(ExactFigure(amount), exact);
        EXPECT_EQ(RoundFigure(amount), round);
    }
}

TEST(FiguresOfAClientsYears, TellLossesGapsAndWhoseTheyAre)
{
    const std::vector<ClientYear> years = {
        {.code = {}, .year = "2020-21", .head = 430000},
        {.code = {}, .year = "2021-22", .head = -100000, .writtenFor = 2},
        {.code = {}, .year = "2022-23", .head = 0},
        {.code = {}, .year = "2023-24"},
        {.code = {}, .year = "2024-25", .isUnreadable = true},
    };
    EXPECT_EQ(InWords(years), "2020-21: 4,30,000; 2021-22: loss of 1,00,000 (minor 2); 2022-23: 0; "
                              "2023-24: not written yet; 2024-25: cannot be read");
    EXPECT_EQ(InWords({}), "");
}

TEST(RoundAmountsOfAChart, AreFewAndHoldZero)
{
    struct Case {
        double lowest, highest;
        int steps;
        std::vector<double> amounts;
    };
    const Case cases[] = {
        {0, 0, 4, {0}},
        {0, 857800, 4, {0, 5e5}},
        {0, 1e6, 2, {0, 5e5, 1e6}},
        {-286400, 473900, 4, {-2e5, 0, 2e5, 4e5}},
        {-70000, 0, 4, {-60000, -40000, -20000, 0}},
        {0, 0.3, 3, {0, 0.1, 0.2, 0.3}},
        {-1, 1e12, 3, {0, 5e11, 1e12}},
        {0, 7, 0, {0}},
    };
    for (const auto& [lowest, highest, steps, amounts] : cases) {
        const std::vector<double> got = RoundAmounts(lowest, highest, steps);
        ASSERT_EQ(got.size(), amounts.size()) << lowest << " to " << highest;
        for (std::size_t i = 0; i < got.size(); ++i)
            EXPECT_DOUBLE_EQ(got[i], amounts[i]);
        EXPECT_FALSE(std::signbit(*std::ranges::find(got, 0.0)));
    }
}

// The field: 110 high, the years below it take 10, the figures above the bars 10, those below the losses 10.
TEST(ChartOfAClientsYears, BarsStandOnTheLineOfZeroAndLossesBelowIt)
{
    const YearsChart chart = ChartOf(YearsOf({300, -100, kNone, 0, 100}));
    EXPECT_TRUE(chart.hasFigures);
    EXPECT_DOUBLE_EQ(chart.labels, 100);
    EXPECT_DOUBLE_EQ(chart.zero, 70); // of 10 to 90 for 400 rupees, 20 are for the loss
    struct Bar {
        bool isThere;
        double top, bottom;
    };
    constexpr Bar kBars[] = {{true, 10, 70}, {true, 70, 90}, {false, 70, 70}, {true, 70, 70}, {true, 50, 70}};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(chart.columns[i].hasBar, kBars[i].isThere) << i;
        EXPECT_DOUBLE_EQ(chart.columns[i].top, kBars[i].top) << i;
        EXPECT_DOUBLE_EQ(chart.columns[i].bottom, kBars[i].bottom) << i;
    }
    ASSERT_EQ(chart.ticks.size(), 5u);
    EXPECT_EQ(chart.ticks[0].text, "-100");
    EXPECT_DOUBLE_EQ(chart.ticks[0].y, 90);
    EXPECT_DOUBLE_EQ(chart.ticks[4].y, 10);
    EXPECT_DOUBLE_EQ(chart.left, 4 * 6 + 5); // "-100" and half a line
}

TEST(ChartOfAClientsYears, WhateverTheAmountsEachBarIsSeenInTheField)
{
    std::vector<std::optional<double>> mixed(25);
    for (std::size_t i = 0; i < mixed.size(); ++i)
        mixed[i] = i % 2 ? 1e12 : -1.0 * static_cast<double>(i + 1);
    const std::vector<std::optional<double>> cases[] = {
        {5}, {-5}, {0}, {kNone}, {0, 0, 0}, {1e12, 1, -1}, {-1e12, 1}, {1e308, -1e308}, {-3, -2, kNone}, mixed,
    };
    for (const auto& heads : cases)
        for (const double width : {1000.0, 300.0, 40.0}) {
            SCOPED_TRACE(testing::PrintToString(heads.size()) + " years, width " + std::to_string(width));
            const YearsChart chart = ChartOf(YearsOf(heads), width);
            double before = chart.columns[0].left;
            for (std::size_t i = 0; i < heads.size(); ++i) {
                const YearsChart::Column& column = chart.columns[i];
                EXPECT_DOUBLE_EQ(column.left, before);
                before = column.right;
                EXPECT_LE(column.left, column.barLeft);
                EXPECT_LE(column.barRight, column.right);
                EXPECT_GE(column.top, 0);
                EXPECT_LE(column.bottom, chart.labels + 1); // a bar of the least height may stand on its edge
                EXPECT_EQ(column.bottom > column.top, heads[i].value_or(0) != 0);
                if (chart.hasFigures && heads[i]) {
                    EXPECT_LT(6.0 * static_cast<double>(ExactFigure(*heads[i]).size()), column.right - column.left);
                }
            }
            EXPECT_LE(chart.right, width + 1e-9);
            EXPECT_LE(chart.left, width / 3);
            EXPECT_TRUE(chart.columns.back().isLabelled);
        }
    EXPECT_TRUE(ChartOf({}).columns.empty());
}

TEST(ChartOfAClientsYears, LabelsNeverMeetAndTheMarkedYearHasOne)
{
    const std::vector<ClientYear> years = YearsOf(std::vector<std::optional<double>>(25, 7e6));
    for (const std::size_t marked : {0u, 11u, 24u})
        for (const double width : {200.0, 500.0, 900.0, 2000.0}) {
            const YearsChart chart =
                LayOut(years, marked, width, 110,
                       {[](const std::string& text) { return 6.0 * static_cast<double>(text.size()); }, 10});
            double end = chart.left;
            for (const YearsChart::Column& column : chart.columns) {
                if (!column.isLabelled)
                    continue;
                const double middle = (column.left + column.right) / 2;
                EXPECT_GE(middle - 21, end) << width; // a year is seven letters
                end = middle + 21;
            }
            EXPECT_LE(end, width);
            EXPECT_TRUE(chart.columns[marked].isLabelled);
            EXPECT_EQ(std::ranges::count_if(chart.columns, &YearsChart::Column::isLabelled) == 25, width == 2000);
        }
}

TEST(ChartOfAClientsYears, AYearThatIsMissingLeavesRoomAndNothingIsFoundThere)
{
    std::vector<ClientYear> years = YearsOf({1, 2, 3, 4});
    years.erase(years.begin() + 1, years.begin() + 3);
    const YearsChart chart = ChartOf(years);
    EXPECT_FALSE(chart.columns[0].followsGap);
    EXPECT_TRUE(chart.columns[1].followsGap);
    const double column = chart.columns[0].right - chart.columns[0].left;
    EXPECT_DOUBLE_EQ(chart.columns[1].left, chart.columns[0].right + column / 2);
    struct Case {
        double x;
        std::optional<std::size_t> place;
    };
    const Case cases[] = {
        {chart.left - 1, {}},       {chart.left, 0},   {chart.columns[0].right, {}},
        {chart.columns[1].left, 1}, {chart.right, {}},
    };
    for (const auto& [x, place] : cases)
        EXPECT_EQ(chart.ColumnAt(x), place) << x;
}

} // namespace
} // namespace pgbp
