#include "income/summary_rules.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(PresumptiveIncome, IsTheHigherWhereTheActualProfitIsPositive)
{
    using Maybe = std::optional<double>;
    struct {
        double actual;
        Maybe deemed;
        Maybe income;
    } const rows[] = {
        {100000, 80000.0, 100000.0},
        {-5000, 80000.0, 80000.0},
        {80000, 80000.0, 80000.0},
        {5000, {}, {}},
        {-5000, -9000.0, -9000.0}, // a loss never wins, even over a deeper one
        {0, 0.0, 0.0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(PresumptiveIncome(row.actual, row.deemed), row.income) << row.actual;
}

TEST(Commission, IsRoundedAtEachStep)
{
    EXPECT_EQ(AfterCommissionRow("999.00", "LIC", 100.005), "100.01") << "replaces what stands there";
    EXPECT_EQ(AfterCommissionRow("100.01", "UTI", 0.004), "100.01");
    EXPECT_EQ(AfterCommissionRow("100.01", "ZADHOC", 50), "50.01");
}

TEST(SummaryRules, TurnOnYearAndStatus)
{
    struct {
        int year;
        const char* status;
        bool ada, retail, specified, exempt, gst;
    } const rows[] = {
        // year, status, 44ADA, 44AF, 35AD, exempt shares elsewhere, GST
        {2010, "01", false, true, false, false, false}, {2011, "01", false, false, false, false, false},
        {2012, "12", false, false, true, false, false}, {2013, "12", false, false, true, true, false},
        {2016, "06", false, false, true, false, false}, {2017, "06", true, false, true, false, false},
        {2017, "07", false, false, true, false, false}, {2018, "01", true, false, true, false, true},
        {2018, "15", false, false, true, true, false},  {2019, "15", false, false, true, true, true},
    };
    for (const auto& row : rows) {
        const SummaryRules rules{row.year, row.status};
        const std::string what = std::to_string(row.year) + ' ' + row.status;
        EXPECT_EQ(rules.Shows44ADA(), row.ada) << what;
        EXPECT_EQ(rules.Has44AF(), row.retail) << what;
        EXPECT_EQ(rules.HasSpecified(), row.specified) << what;
        EXPECT_EQ(rules.ExemptsShares(), row.exempt) << what;
        EXPECT_EQ(rules.GstIsOpen(), row.gst) << what;
    }
    EXPECT_EQ((SummaryRules{2018, "01"}.GstCaption()), "GST Details (Only for ITR - 4 & 6)");
    EXPECT_EQ((SummaryRules{2019, "01"}.GstCaption()), "GST Return Details");
}
