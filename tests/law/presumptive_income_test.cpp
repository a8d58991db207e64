#include "law/presumptive_income.h"

#include <gtest/gtest.h>

using namespace pgbp;
using enum DeemingSection;

TEST(DeemedIncome, FloorFollowsTheRatesOfTheSection)
{
    struct {
        const char* what;
        DeemingSection section;
        Receipts receipts;
        double floor;
    } const rows[] = {
        {"44AD, cash", k44AD, {.cash = 2500000}, 200000},
        {"44AD, bank", k44AD, {.bank = 2500000}, 150000},
        {"44AD, others", k44AD, {.others = 2500000}, 200000},
        {"44AD, 80000.48 + 60000.54 + 1.04, each rounded", k44AD, {1000006, 1000009, 13}, 140002},
        {"44AD, half a rupee goes up", k44AD, {.cash = 6.25}, 1},
        {"44ADA, 49.50 of the sum, not three times 16.50", k44ADA, {33, 33, 33}, 50},
        {"44AF, 50000.50, bank receipts do not count", k44AF, {.cash = 1000010, .bank = 500}, 50001},
        {"44AE", k44AE, {.cash = 1000000}, 0},
    };
    for (const auto& row : rows)
        for (const int year : {1994, 2010, 2011, 2022, 2023, 2026})
            EXPECT_EQ(DeemedFloor(row.section, year, row.receipts), row.floor) << row.what << ", " << year;
}

TEST(DeemedIncome, FloorBindsButForSmallProfitsU_s44AD)
{
    struct {
        const char* what;
        DeemingSection section;
        int year;
        double cash;
        double deemed;
        bool isBelow;
    } const rows[] = {
        {"44AD 2010-11, at the floor", k44AD, 2010, 1000000, 80000, false},
        {"44AD 2010-11, a rupee below", k44AD, 2010, 1000000, 79999, true},
        {"44AD 2010-11, a loss", k44AD, 2010, 1000000, -5, true},
        {"44AD 2011-12, small profits are excused", k44AD, 2011, 1000000, 79999, false},
        {"44AD 2011-12, up to 160000", k44AD, 2011, 9000000, 160000, false},
        {"44AD 2011-12, a paisa more", k44AD, 2011, 9000000, 160000.01, true},
        {"44AD 2011-12, just below", k44AD, 2011, 9000000, 719999.49, true},
        {"44AD 2011-12, rounded up to the floor", k44AD, 2011, 9000000, 719999.5, false},
        {"44AD 2026-27", k44AD, 2026, 9000000, 719999, true},
        {"44ADA 2017-18, no small profits", k44ADA, 2017, 200000, 99999, true},
        {"44ADA 2017-18, at the floor", k44ADA, 2017, 200000, 100000, false},
        {"44AF 2010-11, just below", k44AF, 2010, 200000, 9999, true},
        {"44AF 2010-11, at the floor", k44AF, 2010, 200000, 10000, false},
        {"44AE has none", k44AE, 2018, 200000, -1, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(IsBelowFloor(row.section, row.year, {.cash = row.cash}, row.deemed), row.isBelow) << row.what;
}

TEST(DeemedIncome, ReceiptsAreHeldToTheLimit)
{
    EXPECT_FALSE(ReceiptsAreTooHigh(k44AD, 20000000, {15000000, 5000000, 9000000})); // others are not looked at
    EXPECT_TRUE(ReceiptsAreTooHigh(k44AD, 20000000, {15000000, 5000000.01}));
    EXPECT_TRUE(ReceiptsAreTooHigh(k44ADA, 5000000, {1, 5000000}));
    EXPECT_FALSE(ReceiptsAreTooHigh(k44AE, 20000000, {.cash = 20000001}));
    for (const DeemingSection section : {k44AD, k44AE, k44AF}) {
        EXPECT_FALSE(ReceiptsAreTooHigh(section, std::nullopt, {4000000, 5}));
        EXPECT_TRUE(ReceiptsAreTooHigh(section, std::nullopt, {4000000.01}));
    }
}

TEST(DeemedIncome, CashOfAProfessionIsHeldToFiftyLakhsFrom2023)
{
    EXPECT_FALSE(CashIsTooHigh(k44ADA, 2022, 5000000));
    EXPECT_FALSE(CashIsTooHigh(k44ADA, 2023, 4999999.99));
    EXPECT_TRUE(CashIsTooHigh(k44ADA, 2023, 5000000));
    EXPECT_TRUE(CashIsTooHigh(k44ADA, 2026, 5000000));
    EXPECT_FALSE(CashIsTooHigh(k44AD, 2026, 5000000));
}
