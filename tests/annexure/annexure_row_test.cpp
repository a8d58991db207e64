#include "annexure/annexure_row.h"

#include "services/format.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace pgbp;

namespace {

struct Expected {
    double full, half, total, closing;
};

/// A row with its answer, worked out by hand.
struct Case {
    const char* what;
    AnnexureRow row;
    Expected expected;
};

const Case kCases[] = {
    {"furniture held all year: 10 % of 1,00,000", {.rate = 10, .opening = 100000}, {10000, 0, 10000, 90000}},
    {"bought in the second half: half of 15 %", {.rate = 15, .purchases2 = 200000}, {0, 15000, 15000, 185000}},
    {"both halves, sales out of each",
     {.rate = 40, .opening = 50000, .purchases1 = 30000, .purchases2 = 20000, .sales1 = 10000, .sales2 = 5000},
     {28000, 3000, 31000, 54000}},
    {"the first half's shortfall is taken from the second: 1500 x 15 / 200 = 112.5, up",
     {.rate = 15, .opening = 1000, .purchases2 = 2000, .sales1 = 1500},
     {0, 113, 113, 1387}},
    {"a shortfall without purchases of the second half", {.rate = 15, .opening = 1000, .sales1 = 1500}, {0, 0, 0, 0}},
    {"a shortfall that eats the second half up",
     {.rate = 15, .opening = 1000, .purchases2 = 400, .sales1 = 1500},
     {0, 0, 0, 0}},
    {"a shortfall of less than half a rupee is none: -3 x 15 / 100 = -0.45",
     {.rate = 15, .purchases2 = 1000, .sales1 = 3},
     {0, 75, 75, 922}},
    {"a rate with places: 103 x 7.5 / 100 = 7.725", {.rate = 7.5, .opening = 103}, {8, 0, 8, 95}},
    {"rounds twice: 2099 x 0.5 / 100 = 10.495", {.rate = 0.5, .opening = 2099}, {11, 0, 11, 2088}},
    {"additional depreciation in both halves",
     {.rate = 15, .opening = 1000, .additional1 = 200, .additional2 = 100},
     {150, 0, 450, 550}},
    {"an empty block has none, and no closing value",
     {.rate = 15, .opening = 1000, .sales1 = 400, .isEmpty = true},
     {0, 0, 0, 0}},
    {"additional depreciation above the value", {.rate = 15, .opening = 100, .additional1 = 500}, {15, 0, 515, 0}},
    {"fifteen digits: ...51.75 goes up",
     {.rate = 15, .opening = 123456789012345},
     {18518518351852, 0, 18518518351852, 104938270660493}},
};

void Expect(const AnnexureRow& row, const Expected& expected, const char* what)
{
    EXPECT_EQ(row.depreciation1, expected.full) << what;
    EXPECT_EQ(row.depreciation2, expected.half) << what;
    EXPECT_EQ(row.depreciation, expected.total) << what;
    EXPECT_EQ(row.closing, expected.closing) << what;
}

} // namespace

TEST(Annexure, DepreciationOfARow)
{
    for (const Case& c : kCases) {
        AnnexureEntry entry{.row = c.row};
        CalcEntry(entry);
        Expect(entry.row, c.expected, c.what);
        EXPECT_EQ(entry.row.sales, c.row.sales1 + c.row.sales2) << c.what;
        EXPECT_EQ(entry.total, c.row.opening + c.row.purchases1 + c.row.purchases2 - entry.row.sales) << c.what;

        std::vector<AnnexureRow> rows = {c.row};
        rows[0].sales = entry.row.sales;
        rows[0].disallowed = 77;
        RecalculateAnnexure(rows);
        Expected recalculated = c.expected;
        if (c.row.isEmpty)
            recalculated.closing = 600; // only the entry has none
        Expect(rows[0], recalculated, c.what);
        EXPECT_EQ(rows[0].disallowed, 0);
        EXPECT_EQ(rows[0].netDepreciation, rows[0].depreciation);
    }
}

TEST(Annexure, OvertypedFiguresStayUntilTheRowIsComputedAgain)
{
    AnnexureEntry entry{.row = {.rate = 10, .opening = 1000, .disallowed = 30}};
    CalcEntry(entry);
    EXPECT_EQ(entry.row.netDepreciation, 70);

    entry.row.depreciation2 = 950; // the closing value goes below 0: the short ways do not cut it
    CalcEntryFromParts(entry);
    EXPECT_EQ(entry.row.depreciation, 1050);
    EXPECT_EQ(entry.row.netDepreciation, 1020);
    EXPECT_EQ(entry.row.closing, -50);

    entry.row.depreciation = 400; // and the total may differ from its parts
    entry.row.isEmpty = true;
    CalcEntryFromTotal(entry);
    EXPECT_EQ(entry.row.depreciation2, 950);
    EXPECT_EQ(entry.row.netDepreciation, 370);
    EXPECT_EQ(entry.row.closing, 600);

    CalcEntry(entry);
    EXPECT_EQ(entry.row.depreciation, 0);
    EXPECT_EQ(entry.row.netDepreciation, -30);
    EXPECT_EQ(entry.row.closing, 0);
}

TEST(Annexure, TotalIsTheSumOfTheRows)
{
    const std::vector<AnnexureRow> rows = {{.depreciation = 100}, {.depreciation = 23}, {}};
    EXPECT_EQ(TotalDepreciation(rows), 123);
    EXPECT_EQ(TotalDepreciation({}), 0);
    const std::vector<AnnexureRow> tooLarge(2, AnnexureRow{.depreciation = std::numeric_limits<double>::max()});
    EXPECT_THROW(TotalDepreciation(tooLarge), std::overflow_error);
    AnnexureEntry entry{.row = {.rate = 15, .opening = std::numeric_limits<double>::max() / 2}};
    EXPECT_THROW(CalcEntry(entry), std::overflow_error);
}

TEST(AnnexureArithmetic, TheOlderAnnexureTakesSalesFromTheFullRate)
{
    const struct {
        double opening, purchases1, purchases2, sales, rate, depreciation, closing;
    } cases[] = {
        {1000, 0, 500, 1000, 10, 25, 475}, // what is left is no more than the second half: all of it at half the rate
        {1000, 0, 500, 0, 10, 125, 1375},   {1000, 0, 500, 1000.01, 10, 25, 474.99}, // 24.9995
        {100, 33.33, 0, 0, 15, 20, 113.33},                                          // 19.9995
        {100, 0, 0, 200, 15, 0, -100},
    };
    for (const auto& c : cases) {
        AnnexureEntry entry{.row = {.rate = c.rate,
                                    .opening = c.opening,
                                    .purchases1 = c.purchases1,
                                    .purchases2 = c.purchases2,
                                    .sales = c.sales}};
        CalcEntry(entry, kOldAnnexure);
        EXPECT_DOUBLE_EQ(entry.row.depreciation, c.depreciation) << c.sales;
        EXPECT_DOUBLE_EQ(entry.row.closing, c.closing) << c.sales;
    }
}
