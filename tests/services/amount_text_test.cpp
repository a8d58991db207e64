#include "services/amount_text.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(AmountTexts, AreReadAsOneNumberOrRefused)
{
    struct {
        const char* amount;
        std::vector<const char*> texts; ///< that are read so
    } const rows[] = {
        {"-5000", {"-5000"}},
        {"123.75", {"123.75"}},
        {"12", {"+12"}},
        {"7.50", {"007.50"}},
        {"0.5", {".5"}},
        {"0.00", {"-0.00"}},
        {"1250000.00", {"12,50,000.00"}},
        {"1250000", {"1,250,000", "12\u00A050\u00A0000"}},
        {"1250000.5", {"12 50 000.5"}},
        {"1250000.75", {"Rs 12,50,000.75\n"}},
        {"-1250.00", {"(1,250.00)", "( 1,250.00 )", "1,250.00-", "1,250.00\tDr\n"}},
        {"-1250", {"\u22121,250", "-\u20B91,250"}},
        {"-75", {"- 75"}},
        {"-39000.00", {"39,000.00 Dr", "Dr. 39,000.00"}},
        {"39000.00", {"39,000.00 Cr."}},
        {"1250.50", {"\u20B9 1,250.50"}},
        {"1250", {"Rs.1,250/-", "  1250\t\r\n", "\uFEFF1250"}},
        {"5", {"INR 5", "5."}},
        {"-5", {"(Rs. 5)"}},
        {"1250.00", {"1250.000"}},
        {"123456789012345", {"123456789012345"}},
        {"1234.5", {"000000000000001234.5"}},
        // the point of another country, wrong groups, two numbers of a line
        {"",
         {"1250,75", "1.250,75", "1,,250", ",250", "1250,", "1,2500", "12500 300", "1,250.00 1,300.00", "1,250 300"}},
        {"", {"(1,250.00) Dr", "-5-", "--5", "-(5)", "$5", "100\t200", "100\n200\n", "Closing stock\t500"}},
        {"", {"123.456", "1234567890123456", "12345678901234.56"}}, // more than fifteen digits
        {"", {"", " \n", "-", ".", "()", "18%", "1.2E+05", "1.2.3", "1.5 lakh", "#REF!", "15-08-2023", "\xFF 5"}},
    };
    for (const auto& [amount, texts] : rows)
        for (const char* text : texts) {
            const AmountReading reading = ReadAmount(text, 2);
            EXPECT_EQ(reading.text, amount) << text;
            EXPECT_EQ(reading.text.empty(), reading.hint.starts_with("Not taken: ")) << text << ": " << reading.hint;
        }
    EXPECT_EQ(ReadAmount("1250.00", 0).text, "1250");
    EXPECT_EQ(ReadAmount("1250.75", 0).text, "");
}

TEST(AmountTexts, AreToldWhereTheyCanBeReadInTwoWays)
{
    EXPECT_EQ(ReadAmount("1,39,000 Dr", 2).hint, "\"Dr\" read as -1,39,000; the key \"-\" turns the sign");
    EXPECT_EQ(ReadAmount("100 200", 2).hint, "Blanks between digits read as 1,00,200");
    EXPECT_EQ(ReadAmount("(5)", 2).hint, "");
    EXPECT_EQ(ReadAmount("1\n2", 2).hint, "Not taken: more than one amount was copied");
    EXPECT_EQ(ReadAmount(" a long text that was copied by mistake", 2).hint,
              "Not taken: \"a long text that was copied by...\" is no amount");
}

TEST(AmountTexts, AreDrawnWithPlacesAndGroups)
{
    struct {
        const char* typed;
        const char* drawn;
        int places = 2;
    } const rows[] = {
        {"900000", "9,00,000.00"},
        {"", "0.00"},
        {"-", "0.00"},
        {".5", "0.50"},
        {"-1250.5", "-1,250.50"},
        {"-0", "0.00"},
        {"12.345", "12.345"},
        {"2472131.", "24,72,131.00"},
        {"1234567", "12,34,567", 0},
        {"", "0", 0},
        {"999", "999.00"},
        {"Not Allowed", "Not Allowed"},
        {"1e5", "1e5"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(GroupedAmount(WithPlaces(row.typed, row.places)), row.drawn) << row.typed;
    for (const char* text : {"1,500", "Not Allowed", "a,b", "", "100 %"})
        EXPECT_EQ(GroupedAmount(text), text);
    EXPECT_EQ(GroupedAmount("1,234,567.5"), "12,34,567.5");
}

TEST(AmountTexts, ThatCanBeTyped)
{
    for (const char* text : {"", "-", "-.", ".5", "12.", "-12.34", "123456789012345"})
        EXPECT_TRUE(IsTypedAmount(text, 2)) << text;
    for (const char* text : {"1-", "1.2.3", "1,250", "12.345", "1234567890123456", "a", " 1"})
        EXPECT_FALSE(IsTypedAmount(text, 2)) << text;
    EXPECT_FALSE(IsTypedAmount("12.", 0));
}
