#include "law/goods_carriages.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(GoodsCarriages, IncomeGoesByWeightAboveTwelveTons)
{
    EXPECT_EQ(CarriageIncome(12, 12), 90000);
    EXPECT_EQ(CarriageIncome(12.01, 1), 12010);
    EXPECT_EQ(CarriageIncome(12.5, 12), 150000);
    EXPECT_EQ(CarriageIncome(7.5, 5), 37500);
}

TEST(GoodsCarriages, AHigherIncomeOfAHeavyVehicleCountsFrom2015)
{
    EXPECT_EQ(HeavyVehicleMonth(2014, 5000, 9000), 5000);
    EXPECT_EQ(HeavyVehicleMonth(2015, 7500, 9000), 9000);
    EXPECT_EQ(HeavyVehicleMonth(2015, 7500, 7500), 7500);
    EXPECT_EQ(HeavyVehicleMonth(2015, 7500, 7000), 7500);
}
