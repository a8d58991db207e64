// The program itself, on a practice with the demonstration clients.

#include "suite/finding.h"
#include "suite/new_practice.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <sys/wait.h>

using namespace pgbp;

namespace {

struct Outcome {
    int status = 0;
    std::string out;
};

class CheckProgram : public testing::Test {
  protected:
    Outcome Check(const std::string& arguments) const
    {
        const std::string command =
            PGBP_CHECK " --program-folder '" + practice.folder().string() + "' " + arguments + " 2>&1";
        Outcome outcome;
        FILE* pipe = popen(command.c_str(), "r");
        std::array<char, 4096> bytes{};
        while (const auto count = fread(bytes.data(), 1, bytes.size(), pipe))
            outcome.out.append(bytes.data(), count);
        outcome.status = WEXITSTATUS(pclose(pipe));
        return outcome;
    }

    const NewPractice practice;
};

} // namespace

TEST_F(CheckProgram, SaysWhetherAllAgrees)
{
    EXPECT_EQ(Check("1003r2022-23").out, "All agrees.\n");
    EXPECT_EQ(Check("1003r2022-23").status, 0);
    practice.Open().balance.Execute(
        "update {qelgeneral} set amt14 = 5 where code = '1003r2022-23' and [Type] = 'BUSI'");
    const Outcome found = Check("1003r2022-23 1003r2021-22");
    EXPECT_EQ(found.status, 1);
    EXPECT_TRUE(found.out.starts_with("1003r2022-23  Verma Gupta Hosiery\n    Head of income: stored 5.00, follows "))
        << found.out;
    EXPECT_TRUE(found.out.ends_with("\n1 found.\n")) << found.out;
    EXPECT_EQ(Check("1003r1999-00").status, 2);
    EXPECT_EQ(Check("--no-such").status, 2);
}

TEST_F(CheckProgram, TellsAnotherProgramHowFarItIs)
{
    std::istringstream lines(Check("--lines").out);
    int found = 0;
    std::string line, progress;
    while (std::getline(lines, line)) {
        found += FromLine(line).has_value();
        progress = line.starts_with("progress ") ? line : progress;
    }
    EXPECT_GT(found, 10);
    const std::string all = practice.Open().company.Scalar("select count(*) from {assessee1}").Text();
    EXPECT_EQ(progress, "progress " + all + ' ' + all);
}

TEST_F(CheckProgram, WritesAFileForASpreadsheet)
{
    const auto file = practice.folder() / "found.csv";
    EXPECT_EQ(Check("--csv '" + file.string() + "' 1001r2023-24").status, 1);
    std::stringstream text;
    text << std::ifstream(file).rdbuf();
    EXPECT_EQ(text.str(), "\xEF\xBB\xBF\"Code\",\"Client\",\"Year\",\"Finding\",\"Concerns\",\"Stored\",\"Follows\"\r\n"
                          "\"1001r2023-24\",\"Asha Gupta\",\"2023-24\",\"Head of income not written\",\"\",\"\","
                          "\"713708.00\"\r\n");
}

TEST(Findings, GoThroughALineOfText)
{
    const Finding finding{.code = "A1", .client = "A \"B\", C & D", .what = "Ratios", .stored = 99.99, .follows = 100};
    EXPECT_EQ(FromLine(AsLine(finding)), finding);
    EXPECT_EQ(FromLine(AsLine({.where = "two\tlines\nof words"}))->where, "two lines of words");
    EXPECT_FALSE(FromLine("progress 1 2"));
    EXPECT_NE(AsCsv({finding}).find("\"A \"\"B\"\", C & D\""), std::string::npos);
}
