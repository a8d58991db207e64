#include "law/remuneration_limit.h"

#include <gtest/gtest.h>

using namespace pgbp;

// Worked by hand from the published slabs; "just" means one rupee beside the threshold.
TEST(RemunerationLimit, FollowsTheSlabsOfEachYear)
{
    struct {
        const char* what;
        int year;
        const char* status;
        double bookProfit;
        double limit;
    } const rows[] = {
        {"1993-94 other firm, loss", 1993, "05", -1, 50000},
        {"2009-10 other firm, nil", 2009, "05", 0, 50000},
        {"2009-10 other firm, floor ends", 2009, "05", 55555, 50000},
        {"2009-10 other firm, above the floor", 2009, "05", 55560, 50004},
        {"2009-10 other firm, just below the first", 2009, "05", 74999, 67499},
        {"2009-10 other firm, first", 2009, "05", 75000, 67500},
        {"2009-10 other firm, just above the first", 2009, "05", 75001, 67501},
        {"2009-10 other firm, just below the second", 2009, "05", 149999, 112499},
        {"2009-10 other firm, second", 2009, "05", 150000, 112500},
        {"2009-10 other firm, just above the second", 2009, "05", 150001, 112500},
        {"2009-10 other firm, ten lakhs", 2009, "05", 1000000, 452500},
        {"2009-10 profession, just below the first", 2009, "06", 99999, 89999},
        {"2009-10 profession, first", 2009, "06", 100000, 90000},
        {"2009-10 profession, just above the first", 2009, "06", 100001, 90001},
        {"2009-10 profession, just below the second", 2009, "06", 199999, 149999},
        {"2009-10 profession, second", 2009, "06", 200000, 150000},
        {"2009-10 profession, just above the second", 2009, "06", 200001, 150000},
        {"2009-10 profession, ten lakhs", 1993, "06", 1000000, 470000},
        {"2010-11 loss", 2010, "05", -10000, 150000},
        {"2010-11 floor ends", 2010, "06", 166666, 150000},
        {"2010-11 above the floor", 2010, "06", 166670, 150003},
        {"2023-24 just below", 2023, "06", 299999, 269999},
        {"2023-24 threshold", 2023, "06", 300000, 270000},
        {"2023-24 just above", 2023, "06", 300001, 270001},
        {"2024-25 seven lakhs", 2024, "05", 700000, 510000},
        {"2024-25 profession, floor", 2024, "06", 100000, 150000},
        {"2024-25 ten lakhs", 2024, "05", 1000000, 690000},
        {"2025-26 floor", 2025, "05", 100000, 300000},
        {"2025-26 profession, floor", 2025, "06", 100000, 300000},
        {"2025-26 just below", 2025, "06", 599999, 539999},
        {"2025-26 threshold", 2025, "06", 600000, 540000},
        {"2025-26 just above", 2025, "06", 600001, 540001},
        {"2025-26 ten lakhs", 2026, "05", 1000000, 780000},
        {"association", 2023, "07", 1000000, 0},
        {"individual", 2023, "01", 1000000, 0},
        {"no status", 2023, "", 1000000, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(RemunerationLimit(row.bookProfit, row.year, row.status), row.limit) << row.what;
}

TEST(RemunerationLimit, TellsEachSlab)
{
    const RemunerationWorking ten = WorkRemunerationLimit(1000000, 2009, "05");
    EXPECT_EQ(ten.slabs, (std::vector<RemunerationSlab>{{75000, 90, 67500}, {75000, 60, 45000}, {850000, 40, 340000}}));
    EXPECT_EQ(ten.atLeast, 0);
    const RemunerationWorking atTheEnd = WorkRemunerationLimit(300000, 2023, "06");
    EXPECT_EQ(atTheEnd.slabs, (std::vector<RemunerationSlab>{{300000, 90, 270000}}));
    const RemunerationWorking loss = WorkRemunerationLimit(-10000, 2023, "05");
    EXPECT_EQ(loss.slabs, (std::vector<RemunerationSlab>{{-10000, 90, -9000}}));
    EXPECT_EQ(loss.atLeast, 150000);
    EXPECT_EQ(loss.limit, 150000);
}
