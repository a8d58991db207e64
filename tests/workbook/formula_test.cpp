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
    struct Row {
        const char* formula;
        Value result;
    };
    const Row rows[] = {
        {"=C1+C2", 30.5},
        {"= c1 - c2 ", -10.5},
        {"=C1-C2-C2", -31.0},
        {"=C1-(C2-(1+2))", -7.5},
        {"=-C1+5", -5.0},
        {"=--C1", 10.0},
        {"=-+-(C1)", 10.0},
        {"=-(C1-C2)", 10.5},
        {"=2.5+65535+65536+1e3", 132073.5},
        {"=D1+D1", 61.0}, // through another formula
        {"=sum(C1:C6)", 30.5},
        {"=SUM(C1,C2:C3,2.5)", 33.0},
        {"=Sum(C2:B1)", 30.5}, // corners in any order
        {"=C1-sum(C1:C2,D1)", -51.0},
        {"=sum(C1-(C2+C2))", -31.0},
        {"=sum(sum(C1,C2),sum(C1))", 40.5},
        {"=sum(sum(C1:C2))", 30.5},
        {"=sum(sum(C1:C2),1)", 31.5},
        {"=sum(sum(C1:C2)+1)", 31.5},
        {"=sum(sum(C3))", 0.0}, // the inner sum passes over the text
        // A text counts where an operator takes its value, and does not where SUM walks over its cell.
        {"=C3+1", 8.0},
        {"=sum(C3)", 0.0},
        {"=sum((C3))", 0.0},
        {"=sum(C3+0)", 7.0},
        {"=sum(-C3)", -7.0},
        {"=C10+1", -1.5},
        {"=C4+1", ErrorCode::WrongValue},
        {"=C8+1", ErrorCode::WrongValue},
        {"=C9+1", ErrorCode::WrongValue},
        {"=C11+1", ErrorCode::WrongValue},
        {"=C12+1", ErrorCode::WrongValue},
        {"=sum(C4,1)", 1.0},
        {"=C5+1", 2.0},
        {"=sum(C5,1)", 1.0},
        {"=C6+1", 1.0},
        {"=C6", 0.0},
        {"=C4", "seven"},
        {"=(C5)", true},
        {"=C7", ErrorCode::DivisionByZero},
        {"=sum(C1:C7)", ErrorCode::DivisionByZero},
        {"=C4+C7", ErrorCode::WrongValue},
        {"=C7-C4", ErrorCode::DivisionByZero},
        {"=-C7", ErrorCode::DivisionByZero},
        {"=1e308+1e308", ErrorCode::BadNumber},
    };
    for (const Row& row : rows)
        EXPECT_EQ(ResultOf(row.formula), row.result) << row.formula;
}

TEST(FormulaTest, WhatIsNotUnderstoodIsQuoted)
{
    const std::string deep(70, '(');
    std::string manyArguments = "=sum(1";
    for (int i = 1; i < 31; ++i)
        manyArguments += ",1";
    const std::pair<std::string, const char*> rows[] = {
        {"C1+1", "at \"C1+1\""},
        {"=", "at its end"},
        {"=C1+", "at its end"},
        {"=C1*2", "at \"*2\""},
        {"=C1 C2", "at \"C2\""},
        {"=sum(C1", "at its end"},
        {"=sum()", "at \")\""},
        {"=sum(C1,)", "at \")\""},
        {"=summe(C1)", "at \"me(C1)\""},
        {"=average(C1)", "at \"average(C1)\""},
        {"=(C1", "at its end"},
        {"=C1)", "at \")\""},
        {"=C1:", "at its end"},
        {"=C1:C2", "not understood"}, // many cells where one value is wanted
        {"=sum(C1:C2+1)", "not understood"},
        {"=sum(-C1:C2)", "not understood"},
        {"=C0", "at \"C0\""},
        {"=C65537", "at \"C65537\""},
        {"=IW1", "at \"IW1\""},
        {"=1..2", "at"},
        {"=1e999", "at \"1e999\""},
        {"=\"a\"", "at"},
        {"=" + deep + "1" + std::string(70, ')'), "not understood"},
        {manyArguments + ')', "not understood"},
        {"=1" + std::string(1100, ' '), "not understood"},
    };
    for (const auto& row : rows)
        EXPECT_THAT([&] { ParseFormula(row.first); }, ThrowsMessage<WorkbookError>(HasSubstr(row.second))) << row.first;
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
