// The program itself, on a practice with the demonstration clients.

#include "report/demonstration.h"
#include "services/ini_file.h"
#include "workbook/workbook.h"

#include <gtest/gtest.h>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFOutlineDocumentHelper.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>

#include <array>
#include <cstdio>
#include <sys/wait.h>

using namespace pgbp;
namespace fs = std::filesystem;

namespace {

struct Outcome {
    int status = 0;
    std::string out;
};

Outcome Run_(const std::string& command)
{
    Outcome outcome;
    FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r");
    std::array<char, 4096> bytes{};
    while (const auto count = fread(bytes.data(), 1, bytes.size(), pipe))
        outcome.out.append(bytes.data(), count);
    const int status = pclose(pipe);
    outcome.status = WEXITSTATUS(status);
    return outcome;
}

class Program : public testing::Test {
  protected:
    Outcome Report(const std::string& arguments) const
    {
        return Run_("env -u DISPLAY -u WAYLAND_DISPLAY " PGBP_REPORTER " --program-folder '" + practice.root.string() +
                    "' " + arguments);
    }
    std::string Pages() const { return (folder.path() / "pages").string(); }

    const Demonstration practice;
    const TemporaryFolder folder;
};

} // namespace

TEST_F(Program, WritesAPdfWithTextAndBookmarks)
{
    const Outcome outcome = Report("--pdf " + Pages() + " 1003r2023-24");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "1/1 1003r2023-24 AAQFV5512C 2023-24.pdf\n");
    const fs::path file = fs::path(Pages()) / "AAQFV5512C 2023-24.pdf";
    QPDF pdf;
    pdf.processFile(file.c_str());
    EXPECT_EQ(QPDFPageDocumentHelper(pdf).getAllPages().size(), 4U);
    std::vector<std::string> titles;
    for (QPDFOutlineObjectHelper& entry : QPDFOutlineDocumentHelper(pdf).getTopLevelOutlines()) {
        titles.push_back(entry.getTitle());
        for (QPDFOutlineObjectHelper& below : entry.getKids())
            titles.push_back("- " + below.getTitle());
    }
    EXPECT_EQ(titles, (std::vector<std::string>{
                          "Computation of income: Profits & Gains from Business or Profession",
                          "Normal Business: Job work Knitting for other makers",
                          "- Profit and loss account: Job work Knitting for other makers",
                          "- Depreciation Annexure: Job work Knitting for other makers",
                          "Normal Business: Verma Gupta Hosiery Manufacture and sale of knitwear",
                          "- Profit and loss account: Verma Gupta Hosiery Manufacture and sale of knitwear",
                          "- Depreciation Annexure: Verma Gupta Hosiery Manufacture and sale of knitwear"}));
    const std::string text = Run_("pdftotext -layout '" + file.string() + "' -").out;
    EXPECT_NE(text.find("13,08,131.00"), std::string::npos);
    EXPECT_NE(text.find("Page 4 of 4"), std::string::npos);
}

TEST_F(Program, WritesTheOthersWhereOneFails)
{
    const Outcome outcome = Report("--xls " + Pages() + " 9999r2000-01 1006r2023-24");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out.find("1/2 9999r2000-01 failed: "), 0U) << outcome.out;
    EXPECT_NE(outcome.out.find("2/2 1006r2023-24 BDZPS7719R 2023-24.xls\n"), std::string::npos);
    EXPECT_TRUE(fs::exists(fs::path(Pages()) / "BDZPS7719R 2023-24.xls"));
}

TEST_F(Program, TakesManyCodesFromItsInput)
{
    const Outcome outcome = Run_("printf '1006r2022-23\\n1006r2023-24\\n' | " PGBP_REPORTER " --program-folder '" +
                                 practice.root.string() + "' --pdf " + Pages() + " -");
    EXPECT_EQ(outcome.out, "1/2 1006r2022-23 BDZPS7719R 2022-23.pdf\n2/2 1006r2023-24 BDZPS7719R 2023-24.pdf\n");
}

// The firm's figures of 2022-23 as its head of income was stored: 22,09,397 less 1,92,000 and 8,40,000.
TEST_F(Program, IsStartedByTheModuleForThePrecedingYear)
{
    HandOver record = practice.RecordOf("1003r2023-24");
    record.Glcode = record.GlPrCode;
    record.Glyear = "2022-23";
    record.GLrep = "PGBP";
    WriteHandOverFile(Practice(practice.root), record);
    fs::create_symlink(PGBP_REPORTER, practice.root / "VornRep.exe");
    const Outcome outcome =
        Run_("env -u DISPLAY -u WAYLAND_DISPLAY '" + (practice.root / "VornRep.exe").string() + "'");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out.find("Assessment year 2022-23"), std::string::npos) << outcome.out;
    EXPECT_NE(outcome.out.find("11,77,397.00"), std::string::npos);
    record.Glcode.clear();
    WriteHandOverFile(Practice(practice.root), record);
    EXPECT_EQ(Report("").status, 1);
}

// A sheet a section, and the total of the summary follows its lines.
TEST_F(Program, SumsOfTheWorkbookAreLive)
{
    Report("--xls " + Pages() + " 1003r2023-24");
    const xls::Workbook workbook = xls::ReadXlsFile(fs::path(Pages()) / "AAQFV5512C 2023-24.xls");
    ASSERT_EQ(workbook.sheets.size(), 7U);
    EXPECT_EQ(workbook.sheets[0].name, "Computation of income  Profits");
    EXPECT_EQ(xls::ValueAt(workbook.sheets[0], xls::PositionOf("B8")), xls::Value(2472131.0));
    EXPECT_EQ(xls::ValueAt(workbook.sheets[0], xls::PositionOf("B12")), xls::Value(1308131.0));
}
