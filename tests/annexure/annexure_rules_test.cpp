#include "annexure/annexure_rules.h"

#include <gtest/gtest.h>

#include <set>

using namespace pgbp;

/// The rates of each group and span of years, written down a second time as the list of what is taken among all whole
/// rates.
TEST(AnnexureRules, RatesOfEachGroupAndYear)
{
    struct Case {
        const char* group;
        int from, to;
        std::set<int> rates;
        const char* words;
        AnnexureRates its = AnnexureRates::OfTheYear;
    };
    const Case cases[] = {
        {"Buildings", 2005, 2017, {100, 10, 5}, "Rates are: 5, 10 and 100 in this group.."},
        {"Buildings", 2018, 2019, {10, 5}, "Rates are: 5 and 10 in this group.."},
        {"Buildings", 2020, 2026, {40, 10, 5}, "Rates are: 5, 10 and 40 in this group.."},
        {"Furniture & Fittings", 2005, 2026, {10}, "Rate is: 10 in this group.."},
        {"Machinery & Plant",
         2005,
         2017,
         {15, 30, 40, 50, 60, 80, 100},
         "Rates are: 15, 30, 40, 50, 60, 80 and 100 in this group.."},
        {"Machinery & Plant", 2018, 2019, {15, 30, 40}, "Rates are: 15, 30 and 40 in this group.."},
        {"Machinery & Plant", 2020, 2026, {15, 30, 40, 45}, "Rates are: 15, 30, 40 and 45 in this group.."},
        {"Intangible Assets", 2005, 2026, {25}, "Rate is 25 in this group..."},
        {"Ships", 2005, 2026, {20}, "Rate is 20 in this group..."},
        {"Buildings", 2018, 2026, {5, 10, 100}, "Rates are: 5, 10 and 100 in this group..", AnnexureRates::Before2018},
        {"Machinery & Plant",
         2018,
         2026,
         {15, 30, 40, 50, 60, 80, 100},
         "Rates are: 15, 30, 40, 50, 60, 80 and 100 in this group..",
         AnnexureRates::Before2018},
        {"Buildings", 2000, 2006, {5, 10, 100}, "Rates are: 5, 10 and 100 in this group..", AnnexureRates::Before2007},
        {"Furniture & Fittings",
         2000,
         2006,
         {10, 15},
         "Rates are: 10 and 15 in this group..",
         AnnexureRates::Before2007},
        {"Machinery & Plant",
         2000,
         2006,
         {15, 20, 30, 40, 50, 60, 80, 100},
         "Rates are: 15, 20, 30, 40, 50, 60, 80 and 100 in this group..",
         AnnexureRates::Before2007},
    };
    for (const Case& c : cases)
        for (int year = c.from; year <= c.to; ++year) {
            for (int rate = 0; rate <= 101; ++rate) {
                const auto refusal = RefusalOfRate(c.group, year, rate, c.its);
                EXPECT_EQ(!refusal, c.rates.contains(rate)) << c.group << ' ' << year << ' ' << rate;
                EXPECT_TRUE(!refusal || *refusal == "Only allowed Depreciation " + std::string(c.words)) << *refusal;
            }
            EXPECT_TRUE(RefusalOfRate(c.group, year, *c.rates.begin() + 0.01, c.its)) << c.group << ' ' << year;
        }
    EXPECT_FALSE(RefusalOfRate("Live stock", 2020, 33.33)) << "an unknown group has no rates";
    EXPECT_EQ(RefusalOfRate("Intangible Assets", 2005, 20, AnnexureRates::Before2007),
              "Olnly allowed Depreciation Rate is 25 in this group...");
}

TEST(AnnexureRules, FirstThingWrongWithARowIsTold)
{
    const AnnexureRow good{.name = "Lathe", .group = "Machinery & Plant", .rate = 15, .purchases2 = 100, .sales2 = 50};
    const auto with = [&](auto change) {
        AnnexureRow row = good;
        change(row);
        return row;
    };
    struct Case {
        AnnexureRow row;
        AnnexureCase screen;
        const char* message;
        const char* tail;
        const char* focus;
    };
    const char* const info = " - Information";
    const Case cases[] = {
        {{.name = "  "}, {}, "Name can not be left blank...", info, "txtname"},
        {{.name = "x", .group = " "}, {}, "Group Name can not be left blank...", info, "CBOGRP"},
        {with([](auto& r) { r.rate = 0; }), {}, "Depreciation Rate can not be Zero...", info, "txtdeprate"},
        {with([](auto& r) { r.depreciation1 = -1; }),
         {.asksDateOfSale = true},
         "Please fill date of sale...",
         info,
         "txtdate1"},
        {with([](auto& r) { r.depreciation = -2, r.additional2 = -2; }),
         {.isCapitalGain = true},
         "Only STCG on Depreciable Assets can be entered here...",
         "",
         ""},
        {with([](auto& r) { r.additional2 = -1; }), {}, "Depreciation can not be in negative..", info, ""},
        {with([](auto& r) { r.depreciation2 = -1, r.purchases2 = 0; }),
         {},
         "Depreciation can not be in negative..",
         info,
         ""},
        {with([](auto& r) { r.purchases2 = 0, r.rate = 16; }),
         {},
         "You have entered sales ag. 2nd Half purchase but there is no 2nd half Purchase.",
         info,
         "TxtSales2"},
        {with([](auto& r) { r.rate = 50; }),
         {.year = 2018},
         "Only allowed Depreciation Rates are: 15, 30 and 40 in this group..",
         ":- Information ",
         "txtdeprate"},
    };
    for (const Case& c : cases) {
        const auto refusal = RefusalOfRow(c.row, c.screen);
        ASSERT_TRUE(refusal) << c.message;
        EXPECT_EQ(refusal->message, c.message);
        EXPECT_EQ(refusal->titleTail, c.tail) << c.message;
        EXPECT_EQ(refusal->focus, c.focus) << c.message;
    }
    EXPECT_FALSE(RefusalOfRow(good, {.year = 2026}));
    EXPECT_FALSE(RefusalOfRow(with([](auto& r) {
                                  r.dateOfSale = DateTime{2023, 1, 1};
                              }),
                              {.year = 2026, .asksDateOfSale = true}));
    EXPECT_FALSE(RefusalOfRow(good, {.year = 2026, .isCapitalGain = true}));
}
