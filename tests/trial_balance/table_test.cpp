#include "trial_balance/delimited_text.h"
#include "trial_balance/plain_text.h"
#include "trial_balance/sided_amount.h"
#include "trial_balance/table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace pgbp::trial {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::ThrowsMessage;
using namespace std::string_literals;

TEST(TrialBalanceText, EveryEncodingGivesTheSameText)
{
    const std::string rupee = "Caf\u00E9 \u20B9 5\n";
    const std::pair<const char*, std::string> files[] = {
        {"UTF-8", rupee},
        {"UTF-8 with its mark, lines as of Windows", "\xEF\xBB\xBF"s + "Caf\u00E9 \u20B9 5\r\n"},
        {"UTF-16, low byte first", "\xFF\xFE"
                                   "C\0a\0f\0\xE9\0 \0\xB9\x20 \0"
                                   "5\0\r\0\n\0"s},
        {"UTF-16, high byte first", "\xFE\xFF"
                                    "\0C\0a\0f\0\xE9\0 \x20\xB9\0 \0"
                                    "5\0\n"s},
    };
    for (const auto& [name, bytes] : files)
        EXPECT_EQ(Utf8Text(bytes), rupee) << name;
    EXPECT_EQ(Utf8Text("Caf\xE9 \x80 5 \x96 6\r"), "Caf\u00E9 \u20AC 5 \u2013 6\n") << "Windows-1252";
    EXPECT_EQ(Utf8Text("\xEF\xBB\xBF"
                       "Caf\xE9"),
              "Caf\u00E9")
        << "a mark that does not hold what it says";
    EXPECT_THROW(Utf8Text("A\0B"s), TrialBalanceError);
}

TEST(TrialBalanceText, CellsArePartedInAnyQuoting)
{
    const auto rows = [](std::string_view text, char separator) { return ParseDelimited(text, separator).rows; };
    EXPECT_THAT(rows("a,\"b, \"\"c\"\"\",\n\nx,y", ','),
                ElementsAre(ElementsAre("a", "b, \"c\""), ElementsAre(), ElementsAre("x", "y")));
    EXPECT_THAT(rows("Rent;\"1,25,000.00\";5\" pipe", ';'),
                ElementsAre(ElementsAre("Rent", "1,25,000.00", "5\" pipe")));
    EXPECT_THAT(rows("Cash\t\t 5\n  Bank\t7", '\t'),
                ElementsAre(ElementsAre("Cash", "", " 5"), ElementsAre("  Bank", "7")));
    EXPECT_THAT(rows("\"a\", \"b, c\"\n", ','), ElementsAre(ElementsAre("a", "b, c"))) << "blanks before quotes";
    EXPECT_THAT(rows("\"two\nlines\",1\n", ','), ElementsAre(ElementsAre("two\nlines", "1")));
    EXPECT_EQ(ParseDelimited("a,b\n\"c,d\ne,f\n", ',').unclosedQuote, 2U);
    EXPECT_THROW(rows(std::string(2'000'000, ','), ','), TrialBalanceError);
    EXPECT_THROW(rows(std::string(2'000'000, '\n'), ','), TrialBalanceError);
}

TEST(TrialBalanceText, AmountsHaveSidesAndSigns)
{
    const struct {
        const char* text;
        double rupees;
        Side side;
    } amounts[] = {
        {"1,25,000.00", 125000, Side::None},
        {"1,25,000.50 Dr", 125000.5, Side::Debit},
        {"500cr.", 500, Side::Credit},
        {"Cr 500", 500, Side::Credit},
        {"40 (Dr)", 40, Side::Debit},
        {"(40.00)", -40, Side::None},
        {"-40 C", -40, Side::Credit},
        {"\u20B9 7/-", 7, Side::None},
        {"", 0, Side::None},
        {" - ", 0, Side::None},
        {"\u2013", 0, Side::None},
        {"Nil", 0, Side::None},
        {"0.00 Dr", 0, Side::Debit},
        {"1234.5678", 1234.5678, Side::None},
    };
    for (const auto& [text, rupees, side] : amounts)
        EXPECT_EQ(ReadSidedAmount(text), (SidedAmount{rupees, side})) << text;
    for (const char* none : {"Dr", "abc", "12,34", "1.250,75", "5 Dr Cr", "#REF!", "1 2 3", "1E5", "12/3"})
        EXPECT_FALSE(ReadSidedAmount(none)) << none;
    EXPECT_EQ((SidedAmount{5, Side::None}.Balance(Side::Credit)), -5);
    EXPECT_EQ((SidedAmount{5, Side::Debit}.Balance(Side::Credit)), 5) << "the amount's own side counts";
    EXPECT_EQ((SidedAmount{-5, Side::None}.Balance(Side::Credit)), 5);
}

TEST(TrialBalanceText, WhatIsNoListIsRefusedWithWhatHelps)
{
    EXPECT_THAT([] { TablesOf("PK\x03\x04 and so on"); }, ThrowsMessage<TrialBalanceError>(HasSubstr(".xls")));
    const auto path = std::filesystem::temp_directory_path() / "pgbp-large-list.csv";
    std::ofstream(path).put('a');
    std::filesystem::resize_file(path, kLargestFile);
    EXPECT_EQ(ContentOf(path).size(), kLargestFile);
    std::filesystem::resize_file(path, kLargestFile + 1);
    EXPECT_THAT([&] { ContentOf(path); }, ThrowsMessage<TrialBalanceError>(HasSubstr("larger than 16 MB")));
    std::filesystem::remove(path);
    EXPECT_THAT([&] { ContentOf(path); },
                ThrowsMessage<TrialBalanceError>(HasSubstr("pgbp-large-list.csv: There is no")));
}

} // namespace
} // namespace pgbp::trial
