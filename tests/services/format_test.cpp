#include "services/format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using namespace pgbp;

TEST(Format, RoundsTheDecimalTextHalfAwayFromZero)
{
    struct {
        double amount;
        const char* twoPlaces;
        const char* whole;
    } const rows[] = {
        {0, "0.00", "0"},
        {-0.0, "0.00", "0"},
        {10.495, "10.50", "10"}, // the double lies below the half
        {1.005, "1.01", "1"},
        {2.675, "2.68", "3"},
        {-10.495, "-10.50", "-10"},
        {10.494, "10.49", "10"},
        {0.5, "0.50", "1"},
        {-0.5, "-0.50", "-1"},
        {1.5, "1.50", "2"},
        {2.5, "2.50", "3"},
        {0.49, "0.49", "0"},
        {0.005, "0.01", "0"},
        {0.0049, "0.00", "0"},
        {-0.004, "0.00", "0"}, // a rounded zero has no sign
        {-0.4, "-0.40", "0"},
        {0.995, "1.00", "1"},
        {9.995, "10.00", "10"},
        {99999.995, "100000.00", "100000"},
        {0.05, "0.05", "0"},
        {100, "100.00", "100"},
        {123456789.12, "123456789.12", "123456789"},
        {999999999999.99, "999999999999.99", "1000000000000"},
        {123456789012345678.0, "123456789012346000.00", "123456789012346000"}, // 15 digits count
        {1e-300, "0.00", "0"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Amount(row.amount), row.twoPlaces) << row.amount;
        EXPECT_EQ(Rupees(row.amount), row.whole) << row.amount;
        EXPECT_EQ(Format(row.amount, "####0.00"), row.twoPlaces) << row.amount;
    }
}

TEST(Format, TakesTheLargestDoubleAndRefusesWhatIsNoNumber)
{
    constexpr double largest = std::numeric_limits<double>::max();
    const std::string text = Amount(largest);
    EXPECT_EQ(text.substr(0, 16), "1797693134862320");
    EXPECT_EQ(text.size(), 309U + 3);
    EXPECT_EQ(Val(text), largest);
    EXPECT_EQ(Val("-" + text), -largest);
    EXPECT_EQ(Val("0." + std::string(500, '0') + "1"), 0);
    EXPECT_THROW(Amount(std::numeric_limits<double>::infinity()), std::overflow_error);
    EXPECT_THROW(Rupees(std::nan("")), std::overflow_error);
}

TEST(Val, ReadsTheLeadingNumber)
{
    const std::pair<double, std::vector<const char*>> rows[] = {
        {0, {"", "-", ".", "-.", "abc", "inf", "nan", "0x10", "--5", "-+5", "\xE0\xA4\x95 5"}},
        {12.5, {"12.50"}},
        {-12.5, {"-12.5"}},
        {0.5, {".5"}},
        {-0.1, {"-.1"}},
        {5, {"5."}},
        {7, {"+7", "007"}},
        {12, {"12abc"}},
        {42, {" 42 "}},
        {12.3, {"12.3.4"}},
        {1, {"1,234", "1e5"}},
        {1000, {"1 000"}},
        {2023, {"2023-24"}},
    };
    for (const auto& [value, texts] : rows)
        for (const char* text : texts)
            EXPECT_EQ(Val(text), value) << text;
}

TEST(RoundOff, LooksAtTheTwoPlaceText)
{
    struct {
        double amount;
        int places;
        double rounded;
    } const rows[] = {
        {10.49, 0, 10},      {10.495, 0, 11}, // the first step makes it 10.50
        {10.494, 0, 10},     {10.5, 0, 11},      {-10.5, 0, -11},    {-10.49, 0, -10},      {112.5, 0, 113},
        {0.004, 0, 0.004}, // a zero text leaves the amount alone
        {-0.004, 0, -0.004}, {0.5, 0, 1},        {10.45, 1, 10.5},   {10.44, 1, 10.4},      {-10.45, 1, -10.5},
        {9.95, 1, 10},       {10.456, 2, 10.46}, {10.456, 3, 10.46}, {270000.6, 0, 270001},
    };
    for (const auto& row : rows)
        EXPECT_DOUBLE_EQ(RoundOff(row.amount, row.places), row.rounded) << row.amount << ", " << row.places;
}

TEST(AmountTexts, ParseAndGroup)
{
    struct {
        const char* plain;
        const char* grouped;
    } const rows[] = {
        {"0", "0"},
        {"999", "999"},
        {"1000", "1,000"},
        {"99999", "99,999"},
        {"100000", "1,00,000"},
        {"123456.00", "1,23,456.00"},
        {"-123456.5", "-1,23,456.5"},
        {"-999", "-999"},
        {"123456789012345", "12,34,56,78,90,12,345"},
        {"", ""},
        {"-", "-"},
        {"Yes", "Yes"},
        {"1,000", "1,000"},
        {"12a4567", "12a4567"},
        {".50", ".50"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FormatAmountIndian(row.plain, kIndianGrouping), row.grouped);
        EXPECT_EQ(FormatAmountIndian(row.plain, 0), row.plain);
        EXPECT_EQ(ParseAmount(row.grouped), row.plain == std::string("1,000") ? 1000 : Val(row.plain));
    }
}

/// The short way for amounts away from the turning point must not differ from RoundOff.
TEST(Rupees, ShortWaysGiveWhatTheTextsGive)
{
    const std::pair<double, double> byHand[] = {{10.495, 11},           {10.494, 10},           {10.4949, 10},
                                                {10.4950001, 11},       {-10.495, -11},         {0.004, 0},
                                                {-0.495, -1},           {112.5, 113},           {150.45, 150},
                                                {1e9 + 0.495, 1e9 + 1}, {1e12 + 0.5, 1e12 + 1}, {999999.499, 1000000}};
    for (const auto& [amount, rupees] : byHand)
        EXPECT_EQ(RoundedRupees(amount), rupees) << amount;

    std::mt19937_64 random(11);
    for (int i = 0; i < 20000; ++i) {
        const double whole = static_cast<double>(random() % 100000000);
        const double near = whole + 0.495 + static_cast<double>(static_cast<int>(random() % 401) - 200) * 1e-6;
        const double product = whole * static_cast<double>(random() % 10000) / 100 / 200;
        for (const double amount : {near, -near, product, -product})
            ASSERT_EQ(RoundedRupees(amount), Val(Rupees(RoundOff(amount, 0)))) << amount;
    }
    for (const double amount : {0.0, 0.5, -0.5, 1e15, 1e15 - 1, 1e15 + 2, 1e300, 123456.5, -7.25, -123456789.0})
        EXPECT_EQ(ShownRupees(amount), Val(Rupees(amount))) << amount;
    for (const double endless : {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW(ShownRupees(endless), std::overflow_error);
        EXPECT_THROW(RoundedRupees(endless), std::overflow_error);
    }
}
