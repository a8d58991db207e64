#include "workbook/calculation.h"
#include "workbook/sample_workbooks.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ostream>

namespace pgbp::xls {
namespace {

/// A spreadsheet program that converts files without a window. In its command IN is the file and OUT the folder for
/// what it makes, which has the same name.
struct Program {
    const char* name;
    const char* program;
    const char* toXls;
    bool keepsTextResults; ///< also those of formulas that it has read from this format
};

void PrintTo(const Program& program, std::ostream* out) { *out << program.name; }

const Program kPrograms[] = {
    {"Gnumeric", "ssconvert", "ssconvert --recalc -T Gnumeric_Excel:excel_biff8 IN OUT/book.xls", true},
    {"LibreOffice", "soffice",
     "soffice -env:UserInstallation=file://OUT/profile --headless --convert-to 'xls:MS Excel 97' --outdir OUT IN",
     false}};

bool IsInstalled(const std::string& program)
{
    return std::system(("command -v " + program + " >/dev/null").c_str()) == 0;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

/// What the command makes of the file.
std::string Converted(const std::string& file, const std::string& command, const std::string& made = "book.xls")
{
    const TemporaryFolder folder;
    const auto in = folder.path() / "book.xls", out = folder.path() / "out";
    std::filesystem::create_directory(out);
    WriteBytes(in, file);
    const std::string line = Replaced(Replaced(command, "IN", in.string()), "OUT", out.string()) + " >/dev/null 2>&1";
    EXPECT_EQ(std::system(line.c_str()), 0) << line;
    return ReadBytes(out / made);
}

/// What all programs keep of a value: some hold truth values as numbers and take no cells with an empty text.
Value Kept(const Value& value)
{
    if (const auto* truth = std::get_if<bool>(&value))
        return *truth ? 1.0 : 0.0;
    return value == Value("") ? Value() : value;
}

void RemoveFormulasWithText(Workbook& workbook)
{
    for (Sheet& sheet : workbook.sheets)
        for (const auto& [position, formula] : Calculate(sheet))
            if (std::holds_alternative<std::string>(formula.result))
                sheet.cells.erase(position);
}

/// Numbers may differ by what a sum in another order leaves behind the fifteenth digit.
void ExpectSame(const Sheet& expected, const Sheet& actual)
{
    EXPECT_EQ(expected.name, actual.name);
    for (const auto& [position, cell] : expected.cells) {
        const Value wanted = Kept(cell.value), value = Kept(ValueAt(actual, position));
        const auto* number = std::get_if<double>(&wanted);
        if (number && std::holds_alternative<double>(value))
            EXPECT_NEAR(*number, std::get<double>(value), std::abs(*number) * 1e-15) << NameOf(position);
        else
            EXPECT_TRUE(wanted == value) << NameOf(position);
    }
}

class OtherProgramsTest : public testing::TestWithParam<Program> {};

TEST_P(OtherProgramsTest, ReadsWhatWeWriteAndCalculatesTheSame)
{
    if (!IsInstalled(GetParam().program))
        GTEST_SKIP() << GetParam().name << " is not installed";
    Workbook workbook = SampleOfAllKinds();
    Sheet statement = SampleStatement(197).sheets.front();
    statement.name = "Statement";
    workbook.sheets.push_back(statement);
    if (!GetParam().keepsTextResults)
        RemoveFormulasWithText(workbook);
    const Workbook expected = AsRead(workbook);
    // who calculates has the right results
    const std::string wrong = WithStoredResults(WriteXls(workbook), std::bit_cast<std::uint64_t>(12345.0));
    EXPECT_NE(ReadXls(wrong), expected);
    const Workbook actual = ReadXls(Converted(wrong, GetParam().toXls));
    ASSERT_EQ(actual.sheets.size(), expected.sheets.size());
    for (std::size_t i = 0; i < expected.sheets.size(); ++i)
        ExpectSame(expected.sheets[i], actual.sheets[i]);
}

INSTANTIATE_TEST_SUITE_P(, OtherProgramsTest, testing::ValuesIn(kPrograms),
                         [](const auto& program) { return program.param.name; });

/// The style that the program shows for a cell, from its regions of equal style.
std::string StyleOf(const std::string& xml, Position position)
{
    const std::string begin = "<gnm:StyleRegion ", end = "</gnm:StyleRegion>";
    for (auto at = xml.find(begin); at != std::string::npos; at = xml.find(begin, at + 1)) {
        Position first, last;
        std::sscanf(xml.c_str() + at + begin.size(), R"(startCol="%d" startRow="%d" endCol="%d" endRow="%d")",
                    &first.column, &first.row, &last.column, &last.row);
        if (position.column >= first.column && position.row >= first.row && position.column <= last.column &&
            position.row <= last.row)
            return xml.substr(at, xml.find(end, at) - at);
    }
    return "";
}

TEST(GnumericTest, ShowsFormulasAndLooksAsWeMeanThem)
{
    if (!IsInstalled("ssconvert"))
        GTEST_SKIP() << "Gnumeric is not installed";
    const std::string xml =
        Converted(WriteXls(SampleOfAllKinds()), "ssconvert -T Gnumeric_XmlIO:sax:0 IN OUT/book.xml", "book.xml");
    for (const char* part : {"Protected=\"1\"", "<gnm:ColInfo No=\"3\" Unit=\"44.26\" Hidden=\"1\"/>",
                             "<gnm:ColInfo No=\"1\" Unit=\"210.3\"/>", ">=sum(C2:C4)<", ">=D2-sum(C2,C3:C4)-(-C2+1.5)<",
                             ">=sum(C2+C3,100000.5,70000,3,(C5))<"})
        EXPECT_NE(xml.find(part), std::string::npos) << part;
    const std::pair<const char*, const char*> styles[] = {
        {"A1", "Bold=\"1\""},           {"A1", "Unit=\"12\""},          {"A1", "Locked=\"1\""},
        {"A2", "Bold=\"0\""},           {"A2", "Unit=\"10\""},          {"A2", "Shade=\"0\""},
        {"A2", "Format=\"General\""},   {"B9", "Format=\"0\""},         {"C4", "Locked=\"0\""},
        {"D2", "Shade=\"1\""},          {"D2", "Back=\"FFFF:FFFF:0\""}, {"D2", "Format=\"0\""},
        {"D3", "Back=\"101:202:303\""}, {"D3", "Format=\"#,##0.00\""}};
    for (const auto& [cell, look] : styles)
        EXPECT_NE(StyleOf(xml, PositionOf(cell)).find(look), std::string::npos) << cell << ' ' << look;
}

} // namespace
} // namespace pgbp::xls
