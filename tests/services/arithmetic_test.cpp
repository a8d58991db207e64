#include "services/arithmetic.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(Arithmetic, WorksOutALine)
{
    struct {
        const char* line;
        const char* result;
        int places = 2;
    } const rows[] = {
        {"1200+18%", "1416.00"},
        {"1200-10%", "1080.00"},
        {"1200*18%", "216.00"},
        {"1200/50%", "2400.00"},
        {"18%", "0.18"},
        {"1000+10%+10%", "1210.00"}, // of what stands before it
        {"1000+10%*2", "1000.20"},   // a hundredth, once something is multiplied with it
        {"1000+(10%)", "1000.10"},
        {"3*450", "1350.00"},
        {"12000/12", "1000.00"},
        {"2+3*4-6/2", "11.00"},
        {"100/8/5", "2.50"},
        {"10-4-3", "3.00"},
        {"(2+3)*(4-6)", "-10.00"},
        {"-5+2", "-3.00"},
        {"2*-3", "-6.00"},
        {"--5", "5.00"},
        {"+5", "5.00"},
        {"-(2+3)", "-5.00"},
        {"-18%", "-0.18"},
        {" 12,50,000 - 50,000.50 ", "1199999.50"},
        {".5+1.", "1.50"},
        // halves go away from zero, on the decimal text
        {"1.005", "1.01"},
        {"-1.005", "-1.01"},
        {"2.675*1", "2.68"},
        {"0.1+0.2", "0.30"},
        {"1/3*3", "1.00"},
        {"10/4", "3", 0},
        {"-10/4", "-3", 0},
        {"-0.4", "0", 0},
        {"1/3", "0.3333", 4},
        {"9999999999999.99-0.01", "9999999999999.98"},
        {"999999999999999", "999999999999999", 0},
        {"99999999999999*10+9", "999999999999999", 0},
    };
    for (const auto& row : rows) {
        const SumResult result = WorkOut(row.line, row.places);
        EXPECT_EQ(result.text, row.result) << row.line;
        EXPECT_EQ(result.error, "") << row.line;
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
    struct {
        const char* line;
        const char* error;
    } const rows[] = {
        {"", ""},
        {"  ", ""},
        {"12/0", "division by zero"},
        {"12/(3-3)", "division by zero"},
        {"1200+", "not finished"},
        {"(1200", "not finished"},
        {"3*", "not finished"},
        {"-", "not finished"},
        {"3**4", "no sum"},
        {"1200)", "no sum"},
        {"()", "no sum"},
        {"12 34", "no sum"},
        {"1,2", "no sum"},
        {"1.2.3", "no sum"},
        {"2(3)", "no sum"},
        {"%", "no sum"},
        {"12a", "no sum"},
        {"99999999999999*100", "more than fifteen digits"},
        {"1234567890123456", "more than fifteen digits"},
        {"99999999999999.5+1", "more than fifteen digits"},
    };
    for (const auto& row : rows) {
        const SumResult result = WorkOut(row.line, 2);
        EXPECT_EQ(result.error, row.error) << row.line;
        EXPECT_EQ(result.text, "") << row.line;
    }
    EXPECT_EQ(WorkOut(std::string(1000000, '('), 2).error, "no sum");
}
