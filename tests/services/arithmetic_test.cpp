#include "services/arithmetic.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(Arithmetic, WorksOutALine)
{
    struct {
        int places;
        std::vector<std::pair<const char*, const char*>> lines; ///< with their results
    } const rows[] = {
        // per cent of what stands before it; a hundredth, once something is multiplied with it
        {2, {{"1200+18%", "1416.00"}, {"1200-10%", "1080.00"}, {"1200*18%", "216.00"}, {"1200/50%", "2400.00"}}},
        {2, {{"18%", "0.18"}, {"-18%", "-0.18"}, {"1000+10%+10%", "1210.00"}, {"1000+10%*2", "1000.20"}}},
        {2, {{"1000+(10%)", "1000.10"}, {"3*450", "1350.00"}, {"12000/12", "1000.00"}, {"2+3*4-6/2", "11.00"}}},
        {2, {{"100/8/5", "2.50"}, {"10-4-3", "3.00"}, {"(2+3)*(4-6)", "-10.00"}, {"-5+2", "-3.00"}}},
        {2, {{"2*-3", "-6.00"}, {"--5", "5.00"}, {"+5", "5.00"}, {"-(2+3)", "-5.00"}, {".5+1.", "1.50"}}},
        {2, {{" 12,50,000 - 50,000.50 ", "1199999.50"}, {"9999999999999.99-0.01", "9999999999999.98"}}},
        // halves go away from zero, on the decimal text
        {2, {{"1.005", "1.01"}, {"-1.005", "-1.01"}, {"2.675*1", "2.68"}, {"0.1+0.2", "0.30"}, {"1/3*3", "1.00"}}},
        {0, {{"10/4", "3"}, {"-10/4", "-3"}, {"-0.4", "0"}, {"999999999999999", "999999999999999"}}},
        {0, {{"99999999999999*10+9", "999999999999999"}}},
        {4, {{"1/3", "0.3333"}}},
    };
    for (const auto& [places, lines] : rows)
        for (const auto& [line, text] : lines) {
            const SumResult result = WorkOut(line, places);
            EXPECT_EQ(result.text, text) << line;
            EXPECT_EQ(result.error, "") << line;
        }
}

TEST(Arithmetic, AddsALongColumnOfPaiseExactly)
{
    std::string line = "9999999999999.01";
    for (int i = 0; i < 97; ++i)
        line += "+0.01";
    EXPECT_EQ(WorkOut(line, 2).text, "9999999999999.98");
}

TEST(Arithmetic, TellsWhyThereIsNoResult)
{
    const std::pair<const char*, std::vector<const char*>> rows[] = {
        {"", {"", "  "}},
        {"division by zero", {"12/0", "12/(3-3)"}},
        {"not finished", {"1200+", "(1200", "3*", "-"}},
        {"no sum", {"3**4", "1200)", "()", "12 34", "1,2", "1.2.3", "2(3)", "%", "12a"}},
        {"more than fifteen digits", {"99999999999999*100", "1234567890123456", "99999999999999.5+1"}},
    };
    for (const auto& [error, lines] : rows)
        for (const char* line : lines) {
            const SumResult result = WorkOut(line, 2);
            EXPECT_EQ(result.error, error) << line;
            EXPECT_EQ(result.text, "") << line;
        }
    EXPECT_EQ(WorkOut(std::string(1000000, '('), 2).error, "no sum");
}
