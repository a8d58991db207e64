#include "workbook/calculation.h"
#include "workbook/formula.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pgbp::xls {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

Value ResultOf(const std::string& formula)
{
    Sheet sheet{"Sheet1"};
    const std::pair<const char*, Value> cells[] = {{"C1", 10.0},    {"C2", 20.5},    {"C3", " 7 "},
                                                   {"C4", "seven"}, {"C5", true},    {"C7", ErrorCode::DivisionByZero},
                                                   {"C8", "   "},   {"C9", "12x"},   {"C10", "-2.5"},
                                                   {"C11", ""},     {"C12", "1,234"}};
    for (const auto& [name, value] : cells)
        sheet.cells[PositionOf(name)] = {value};
    sheet.cells[PositionOf("D1")] = {{}, "=C1+C2"};
    sheet.cells[PositionOf("E1")] = {{}, formula};
    return Calculate(sheet).at(PositionOf("E1")).result;
}

TEST(FormulaTest, ResultsWorkedOutByHand)
{
    const std::pair<Value, std::vector<const char*>> rows[] = {
        {30.5, {"=C1+C2", "=sum(C1:C6)", "=Sum(C2:B1)", "=sum(sum(C1:C2))"}}, // corners in any order
        {-10.5, {"= c1 - c2 "}},
        {-31.0, {"=C1-C2-C2", "=sum(C1-(C2+C2))"}},
        {-7.5, {"=C1-(C2-(1+2))"}},
        {-5.0, {"=-C1+5"}},
        {10.0, {"=--C1", "=-+-(C1)"}},
        {10.5, {"=-(C1-C2)"}},
        {132073.5, {"=2.5+65535+65536+1e3"}},
        {61.0, {"=D1+D1"}}, // through another formula
        {33.0, {"=SUM(C1,C2:C3,2.5)"}},
        {-51.0, {"=C1-sum(C1:C2,D1)"}},
        {40.5, {"=sum(sum(C1,C2),sum(C1))"}},
        {31.5, {"=sum(sum(C1:C2),1)", "=sum(sum(C1:C2)+1)"}},
        // A text counts where an operator takes its value, and does not where SUM walks over its cell.
        {0.0, {"=sum(sum(C3))", "=sum(C3)", "=sum((C3))", "=C6"}},
        {8.0, {"=C3+1"}},
        {7.0, {"=sum(C3+0)"}},
        {-7.0, {"=sum(-C3)"}},
        {-1.5, {"=C10+1"}},
        {1.0, {"=sum(C4,1)", "=sum(C5,1)", "=C6+1"}},
        {2.0, {"=C5+1"}},
        {"seven", {"=C4"}},
        {true, {"=(C5)"}},
        {ErrorCode::WrongValue, {"=C4+1", "=C8+1", "=C9+1", "=C11+1", "=C12+1", "=C4+C7"}},
        {ErrorCode::DivisionByZero, {"=C7", "=sum(C1:C7)", "=C7-C4", "=-C7"}},
        {ErrorCode::BadNumber, {"=1e308+1e308"}},
    };
    for (const auto& [result, formulas] : rows)
        for (const char* formula : formulas) {
            EXPECT_EQ(ResultOf(formula), result) << formula;
            const Formula parsed = ParseFormula(formula);
            EXPECT_EQ(ParseFormula(DecodeFormula(EncodeFormula(parsed)).value_or("")), parsed) << formula;
        }
}

TEST(FormulaTest, WhatIsNotUnderstoodIsQuoted)
{
    const std::string deep(70, '(');
    std::string manyArguments = "=sum(1";
    for (int i = 1; i < 31; ++i)
        manyArguments += ",1";
    const std::pair<const char*, std::vector<std::string>> rows[] = {
        {"at its end", {"=", "=C1+", "=sum(C1", "=(C1", "=C1:"}},
        {"at \")\"", {"=sum()", "=sum(C1,)", "=C1)"}},
        {"at \"C1+1\"", {"C1+1"}},
        {"at \"*2\"", {"=C1*2"}},
        {"at \"C2\"", {"=C1 C2"}},
        {"at \"me(C1)\"", {"=summe(C1)"}},
        {"at \"average(C1)\"", {"=average(C1)"}},
        {"at \"C0\"", {"=C0"}},
        {"at \"C65537\"", {"=C65537"}},
        {"at \"IW1\"", {"=IW1"}},
        {"at \"1e999\"", {"=1e999"}},
        {"at", {"=1..2", "=\"a\""}},
        {"not understood", {"=C1:C2", "=sum(C1:C2+1)", "=sum(-C1:C2)"}}, // many cells where one value is wanted
        {"not understood",
         {"=" + deep + "1" + std::string(70, ')'), manyArguments + ')', "=1" + std::string(1100, ' ')}},
    };
    for (const auto& [message, formulas] : rows)
        for (const std::string& formula : formulas)
            EXPECT_THAT([&] { ParseFormula(formula); }, ThrowsMessage<WorkbookError>(HasSubstr(message))) << formula;
}

TEST(FormulaTest, TokensAreThoseOfTheFormat)
{
    const auto hex = [](const std::string& bytes) {
        std::string text;
        for (const unsigned char byte : bytes)
            for (const int digit : {byte >> 4, byte & 15})
                text += "0123456789ABCDEF"[digit];
        return text;
    };
    const std::pair<const char*, const char*> rows[] = {
        {"=C22-sum(C23:D30,40)", "44150002C0"
                                 "2516001D0002C003C0"
                                 "1E2800"
                                 "42020400"
                                 "04"},
        {"=-(1.5)", "1F000000000000F83F"
                    "15"
                    "13"},
        {"=sum(A1)+65536", "24000000C0"
                           "42010400"
                           "1F000000000000F040"
                           "03"},
    };
    for (const auto& [formula, tokens] : rows)
        EXPECT_EQ(hex(EncodeFormula(ParseFormula(formula))), tokens) << formula;
}

TEST(FormulaTest, FormulasThatNeedTheirOwnResultAreRefused)
{
    const std::vector<std::pair<const char*, const char*>> circles[] = {
        {{"A1", "=A1"}},
        {{"A5", "=sum(A1:A9)"}},
        {{"A1", "=B1"}, {"B1", "=C1+1"}, {"C1", "=sum(A1:A2)"}},
    };
    for (const auto& circle : circles) {
        Sheet sheet{"Sheet1"};
        for (const auto& [name, formula] : circle)
            sheet.cells[PositionOf(name)] = {{}, formula};
        EXPECT_THAT([&] { Calculate(sheet); }, ThrowsMessage<WorkbookError>(HasSubstr("needs its own result")));
    }
}

TEST(FormulaTest, AChainAsLongAsTheSheetIsCalculated)
{
    Sheet sheet{"Sheet1"};
    for (int row = 0; row < kRows - 1; ++row)
        sheet.cells[{row, 0}] = {{}, "=A" + std::to_string(row + 2) + "+1"};
    sheet.cells[{kRows - 1, 0}] = {0.5};
    EXPECT_EQ(Calculate(sheet).at({0, 0}).result, Value(65535.5));
}

TEST(PositionTest, NamesGoBothWays)
{
    const std::pair<const char*, Position> rows[] = {{"A1", {0, 0}},    {"Z9", {8, 25}},
                                                     {"AA10", {9, 26}}, {"AZ65536", {65535, 51}},
                                                     {"BA2", {1, 52}},  {"IV65536", {65535, 255}}};
    for (const auto& [name, position] : rows) {
        EXPECT_EQ(NameOf(position), name);
        EXPECT_EQ(PositionOf(name), position);
    }
    EXPECT_EQ(PositionOf("iv65536"), (Position{65535, 255}));
    for (const char* bad : {"", "A", "1", "A0", "A-1", "IW1", "A65537", "A99999999999", "ABCD1", "A1 ", " A1", "A1B"})
        EXPECT_THROW(PositionOf(bad), WorkbookError) << bad;
}

} // namespace
} // namespace pgbp::xls
