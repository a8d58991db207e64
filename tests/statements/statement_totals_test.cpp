#include "statements/amount_cell.h"
#include "statements/statement_totals.h"

#include "services/format.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace pgbp;

namespace {

/// Runs one set of rules over a grid with these amounts in lines 1, 2, 3 ...
std::vector<std::string> Totals(std::string_view rules, const std::vector<std::string>& amounts, double intraday = 0)
{
    std::vector<AmountCell> cells(1);
    for (const auto& amount : amounts)
        cells.emplace_back(amount);
    const std::string_view parts[] = {rules};
    StatementTotals(parts, amounts.size()).Run(cells, intraday);
    std::vector<std::string> after;
    for (const auto& cell : std::span(cells).subspan(1))
        after.push_back(cell.text());
    return after;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(StatementTotals, RulesWorkOnTheShownTexts)
{
    struct Case {
        const char* what;
        const char* rules;
        Texts before;
        Texts after;
    };
    const Case cases[] = {
        {"a sum of lines and a range",
         "4 = 1..2 + 3",
         {"1,00,000", "50", "7", ""},
         {"1,00,000", "50", "7", "1,00,057"}},
        {"brackets turn the signs", "4 = 1 - (2 - 3)", {"10", "4", "1", ""}, {"10", "4", "1", "7"}},
        {"empty cells and texts count as 0", "4 = 1..3", {"", "Yes     ", "5", "x"}, {"", "Yes     ", "5", "5"}},
        {"leading number of a text", "2 = 1", {"12,5abc", ""}, {"12,5abc", "125"}},
        {"a minus stands before the grouping", "3 = 1 - 2", {"0", "1,23,456", ""}, {"0", "1,23,456", "-1,23,456"}},
        {"a negative entry", "2 = 1 + 1", {"-1,23,456", ""}, {"-1,23,456", "-2,46,912"}},
        {"a total above its items", "1 = 2..3", {"9", "4", "5"}, {"9", "4", "5"}},
        {"left to right: a later rule reads the new figure", "2 = 1; 3 = 2", {"8", "1", "1"}, {"8", "8", "8"}},
        {"and an earlier one the old", "3 = 2; 2 = 1", {"8", "1", ""}, {"8", "8", "1"}},
        {"each stage is rounded to two places", "2 = 1; 3 = 2 + 2", {"0.005", "", ""}, {"0.005", "0.01", "0.02"}},
        {"half a paisa on the decimal text", "2 = 1", {"10.495", ""}, {"10.495", "10.5"}},
        {"a copy keeps the text", "2 = copy of 1; 3 = 2", {"1,2,3.450", "", ""}, {"1,2,3.450", "1,2,3.450", "123.45"}},
        {"fifteen digits",
         "3 = 1 + 2",
         {"99,99,99,99,99,99,999", "1", ""},
         {"99,99,99,99,99,99,999", "1", "1,00,00,00,00,00,00,000"}},
        {"a line beyond the grid leaves the rule out", "2 = 1; 3 = 1..4; 9 = 1", {"5", "", "7"}, {"5", "5", "7"}},
        {"no rules", "", {"5"}, {"5"}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Totals(c.rules, c.before), c.after) << c.what;
    }
}

TEST(StatementTotals, IntradayProfitIsAddedWithoutRounding)
{
    EXPECT_EQ(Totals("2 = 1 + intraday; 3 = 2", {"1,000", "", ""}, -250), (Texts{"1,000", "750", "750"}));
    EXPECT_EQ(Totals("2 = 1 + intraday; 3 = 2", {"0.1", "", ""}, 0.2), (Texts{"0.1", "0.3", "0.3"}));
    EXPECT_EQ(Totals("2 = 1 + intraday; 3 = 2", {"", "", ""}, 0.125), (Texts{"", "0.125", "0.13"}));
    EXPECT_EQ(Totals("2 = 1 - (intraday - intraday); 3 = 1 - intraday - intraday", {"7", "", ""}, 100),
              (Texts{"7", "7", "-193"}));
}

TEST(StatementTotals, MalformedRulesAreRefusedByName)
{
    for (const auto* rule : {"5", "= 3", "5 = ", "5 = 3 +", "5 = (3", "5 = 3)", "5 = 4..3", "5 = 0", "0 = 5", "5 = x",
                             "5 = copy of 3 + 4", "5 = copy of 3..4", "5 = 3..", "5 = 99999999999999999999", "5 = 3 4"})
        try {
            Totals(rule, {"", "", "", "", ""});
            ADD_FAILURE() << rule << " was taken";
        } catch (const std::invalid_argument& error) {
            EXPECT_TRUE(std::string(error.what()).ends_with(rule)) << error.what();
        }
}

TEST(StatementTotals, FiguresTooLargeToShowAreAnError)
{
    EXPECT_THROW(Totals("2 = 1 + 1", {std::string(308, '9') + "0", ""}), std::overflow_error);
}

TEST(StatementTotals, EveryBadCellTextIsANumberOrNothing)
{
    const std::pair<double, std::vector<const char*>> cases[] = {
        {0, {"", ",", "-", "abc", "--5", "५"}},
        {123, {"1,2,3"}},
        {12, {"0012", "12."}},
        {.5, {".5"}},
        {7, {" 7"}},
        {123456, {"1,23,456"}},
        {999999999999999., {"999999999999999"}},
        {-1000.25, {"-1,000.25"}},
    };
    for (const auto& [value, texts] : cases)
        for (const char* text : texts)
            EXPECT_EQ(AmountCell(text).figure(), value) << '"' << text << '"';
}

/// The short way that whole rupees take must not differ from the format, read back, and the grouping.
TEST(AmountCell, WritesWhatTheFormatAndTheGroupingGive)
{
    std::mt19937_64 random(7);
    std::vector<double> figures = {0,    -0.0, 1,     12,    123, 999, 1000, 99999, 100000, 999999999999999,
                                   1e15, 0.5,  0.004, 0.005, 1e-9};
    for (int i = 0; i < 2000; ++i) {
        const auto whole = static_cast<double>(random() >> (random() % 52 + 12));
        figures.insert(figures.end(), {whole, whole / 100, whole / 1000});
    }
    for (const double positive : figures)
        for (const double figure : {positive, -positive}) {
            std::string expected = Amount(figure);
            const double readBack = Val(expected);
            while (expected.back() == '0')
                expected.pop_back();
            if (expected.back() == '.')
                expected.pop_back();
            AmountCell cell("before");
            cell.SetRounded(figure);
            ASSERT_EQ(cell.text(), FormatAmountIndian(expected, kIndianGrouping));
            ASSERT_EQ(cell.figure(), readBack) << cell.text();
            ASSERT_EQ(AmountCell(cell.text()).figure(), readBack) << cell.text();
        }
    EXPECT_THROW(AmountCell().SetRounded(std::numeric_limits<double>::infinity()), std::overflow_error);
    EXPECT_EQ(PlainFigure(123456.5), "123456.5");
    EXPECT_EQ(PlainFigure(-1200), "-1200");
}
