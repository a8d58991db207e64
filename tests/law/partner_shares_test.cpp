#include "law/partner_shares.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(PartnerShares, FollowWhatWasPaidAndTheRatio)
{
    const std::vector<PaidPartner> partners = {
        {"Verma", 40, 90000, 60000, 300000}, {"Gupta", 60, 50000, 40000, 100000}, {"Silent", 0, 10000, 0, 0}};
    const auto shares = SharesOf(partners, {.interest = 50000, .remuneration = 200000, .income = -5000});
    ASSERT_EQ(shares.size(), 3U);
    EXPECT_EQ(shares[0].name, "Verma");
    EXPECT_DOUBLE_EQ(shares[0].deductedInterest, 30000); // 60000 of 100000
    EXPECT_DOUBLE_EQ(shares[0].deductedRemuneration, 150000);
    EXPECT_DOUBLE_EQ(shares[0].profit, -2000);
    EXPECT_DOUBLE_EQ(shares[1].deductedInterest, 20000);
    EXPECT_DOUBLE_EQ(shares[1].deductedRemuneration, 50000);
    EXPECT_DOUBLE_EQ(shares[1].profit, -3000);
    EXPECT_EQ(shares[2].deductedInterest + shares[2].deductedRemuneration + shares[2].profit, 0);
    EXPECT_EQ(shares[2].interest, 10000);
}

TEST(PartnerShares, NothingPaidAndNothingDeductedGiveNothing)
{
    const PartnerShare unpaid = SharesOf({{"A", 50}}, {.interest = 10, .remuneration = 20, .income = 100}).front();
    EXPECT_EQ(unpaid.deductedInterest, 0);
    EXPECT_EQ(unpaid.deductedRemuneration, 0);
    EXPECT_EQ(unpaid.profit, 50);
    const PartnerShare undeducted = SharesOf({{"A", 50, 10, 10, 20}}, {}).front();
    EXPECT_EQ(undeducted.deductedInterest + undeducted.deductedRemuneration, 0);
}
