#include "workbook/sample_workbooks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace pgbp::xls {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
using testing::ThrowsMessage;

Sheet Column(const std::vector<Value>& values)
{
    Sheet sheet{"Sheet1"};
    for (const Value& value : values)
        sheet.cells[{static_cast<int>(sheet.cells.size()), 0}] = {value};
    return sheet;
}

std::string Repeated(const std::string& text, std::size_t times)
{
    std::string all;
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

TEST(RoundTripTest, SamplesComeBackWithTheirResults)
{
    for (const Workbook& workbook : {SampleOfAllKinds(), SampleStatement(197), Workbook{{{"a"}, {"b"}}}})
        EXPECT_EQ(ReadXls(WriteXls(workbook)), AsRead(workbook));
}

TEST(RoundTripTest, FormulasWithoutAStoredResultAreWorkedOut)
{
    const std::string file = WriteXls(SampleStatement(197));
    constexpr std::uint64_t emptyText = 0xFFFF'0000'0000'0003;
    EXPECT_EQ(ReadXls(WithStoredResults(file, emptyText)), AsRead(SampleStatement(197)));
    for (const std::uint16_t marks : {1, 2, 3})
        EXPECT_EQ(ReadXls(WithStoredResults(file, 0, marks)), AsRead(SampleStatement(197)));
    EXPECT_NE(ReadXls(WithStoredResults(file, 0)), AsRead(SampleStatement(197))) << "a stored zero is a result";
    for (const char* theirs : {"libreoffice.xls", "gnumeric.xls"}) // one of them writes SUM in the short way
        EXPECT_EQ(ReadXls(WithStoredResults(SampleFile(theirs), 0, 2)), ReadXls(SampleFile(theirs))) << theirs;
}

/// Each formula adds up all the others before it, over areas that overlap.
TEST(RoundTripTest, FormulasThatWouldTakeForEverAreRefused)
{
    Sheet sheet{"Sheet1", {{{0, 0}, {1.0}}}};
    for (int row = 1; row < 20000; ++row)
        sheet.cells[{row, 0}] = {{}, "=sum(A1:A" + std::to_string(row) + ')'};
    EXPECT_THAT([&] { WriteXls({{sheet}}); }, ThrowsMessage<WorkbookError>(HasSubstr("more formulas")));
}

TEST(RoundTripTest, ValuesComeBackToTheLastBit)
{
    using Limits = std::numeric_limits<double>;
    std::vector<Value> values{true, false};
    for (const double number : {0.0, 1.0, -1.0, 0.1, 1.0 / 3, 999999999999999.0, -123456789012345.67, 1e-300,
                                Limits::max(), Limits::lowest(), Limits::denorm_min()})
        values.emplace_back(number);
    for (const ErrorCode error :
         {ErrorCode::NoIntersection, ErrorCode::DivisionByZero, ErrorCode::WrongValue, ErrorCode::LostReference,
          ErrorCode::UnknownName, ErrorCode::BadNumber, ErrorCode::NotAvailable})
        values.emplace_back(error);
    const Sheet sheet = Column(values);
    EXPECT_EQ(ReadXls(WriteXls({{sheet}})).sheets.front(), sheet);
}

TEST(RoundTripTest, TextsOfAnyScriptAndLengthComeBack)
{
    std::vector<Value> texts{std::string("nul\0in it", 9)};
    for (const char* text :
         {"", "=>", "a\nb\tc", "é", "ÿ", "Ā", "₹", "हिन्दी", "தமிழ்", "漢字", "😀", "\xEE\x80\x80", "\xF4\x8F\xBF\xBF"})
        texts.emplace_back(text);
    // One record holds 8224 bytes: each of these lengths moves the place where the following text is cut.
    for (std::size_t length = 8212; length < 8228; ++length) {
        texts.emplace_back(std::string(length, 'n'));
        texts.emplace_back("ज" + std::to_string(length) + Repeated("क", length % 5));
        texts.emplace_back(Repeated("ह", length / 2));
    }
    for (const char* letter : {"z", "é", "क"})
        texts.emplace_back(Repeated(letter, kLongestText));
    texts.emplace_back(Repeated("😀", kLongestText / 2));
    const Sheet sheet = Column(texts);
    EXPECT_EQ(ReadXls(WriteXls({{sheet}})).sheets.front(), sheet);
}

TEST(RoundTripTest, ReadsWhatOtherProgramsHaveWritten)
{
    const std::pair<const char*, Value> cells[] = {{"A1", "Serial"},
                                                   {"B1", "विवरण मोटा 😀"}, // a part of it is bold
                                                   {"C1", "café"},
                                                   {"A2", 1.0},
                                                   {"B2", 2.0},
                                                   {"C2", -3.0},
                                                   {"D2", 4.25},
                                                   {"E2", 0.1},
                                                   {"F2", 123456789012345.0},
                                                   {"A3", 3.0},
                                                   {"B3", -1.0},
                                                   {"C3", 1.25},
                                                   {"D3", 1.0 + 2 - 3 + 4.25 + 0.1 + 123456789012345},
                                                   {"A4", "Rs. 1 ₹"},
                                                   {"B4", false},
                                                   {"C4", ErrorCode::DivisionByZero},
                                                   {"D4", ErrorCode::NotAvailable},
                                                   {"E4", ""},
                                                   {"F4", std::string(9000, 'x')},
                                                   {"C5", 0.15}};
    Workbook expected{{{"Sheet1"}, {"दूसरा पन्ना"}, {"Empty"}}};
    for (const auto& [name, value] : cells)
        expected.sheets[0].cells[PositionOf(name)] = {value};
    expected.sheets[1].cells[{0, 0}] = {"Ω"};
    for (const char* file : {"libreoffice.xls", "gnumeric.xls"}) {
        Workbook read = ReadXls(SampleFile(file));
        // Truth values that are results of formulas are numbers in what one of the programs writes.
        Value& truth = read.sheets.at(0).cells[PositionOf("B4")].value;
        EXPECT_TRUE(truth == Value(false) || truth == Value(0.0)) << file;
        truth = false;
        EXPECT_EQ(read, expected) << file;
    }
}

TEST(FilesTest, AFileIsReplacedOnlyByAWholeOne)
{
    const TemporaryFolder folder;
    const auto path = folder.path() / "कर विवरण.xls";
    WriteXlsFile(SampleStatement(20), path);
    EXPECT_EQ(ReadXlsFile(path), AsRead(SampleStatement(20)));
    WriteXlsFile(SampleStatement(30), path);
    EXPECT_EQ(ReadXlsFile(path), AsRead(SampleStatement(30)));
    EXPECT_THROW(WriteXlsFile({}, path), WorkbookError);
    EXPECT_EQ(ReadXlsFile(path), AsRead(SampleStatement(30)));
    std::filesystem::create_directory(folder.path() / "taken.xls");
    EXPECT_THAT([&] { WriteXlsFile(SampleStatement(20), folder.path() / "taken.xls"); },
                ThrowsMessage<WorkbookError>(StartsWith("taken.xls: ")));
    EXPECT_THROW(WriteXlsFile(SampleStatement(20), folder.path() / "nowhere" / "a.xls"), WorkbookError);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2) << "a temporary file is left";
}

TEST(FilesTest, WhatIsNoWorkbookIsRefusedByName)
{
    const TemporaryFolder folder;
    const std::pair<std::string, const char*> rows[] = {{"", "not a workbook"},
                                                        {"Sr.,Description,Amount\n1,Sales,100\n", "not a workbook"},
                                                        {"PK\x03\x04 and so on", "newer kind"},
                                                        {std::string(kLargestFile + 1, ' '), "too large"}};
    const auto path = folder.path() / "statement.xls";
    for (const auto& [bytes, message] : rows) {
        WriteBytes(path, bytes);
        EXPECT_THAT([&] { ReadXlsFile(path); },
                    ThrowsMessage<WorkbookError>(AllOf(StartsWith("statement.xls: "), HasSubstr(message))));
    }
    EXPECT_THROW(ReadXlsFile(folder.path() / "missing.xls"), WorkbookError);
    EXPECT_THROW(ReadXlsFile(folder.path()), WorkbookError);
}

} // namespace
} // namespace pgbp::xls
