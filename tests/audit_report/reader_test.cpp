// The whole way: the module starts the reader as a process, the reader reads a report and leaves its tables, the
// annexure takes them.

#include "annexure/form3cd_import.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

/// A practice whose reader is the real program; since nobody can choose a file here, it is told one.
class AuditReader : public testing::Test {
  protected:
    AuditReader()
    {
        WriteHandOver(practice.File("handover/VornTemp.mdb"), practice.handOver);
        run.GlClient = practice.handOver.GlClient;
        run.Glyear = practice.handOver.Glyear;
    }

    void ReaderIsTold(const std::string& words)
    {
        practice.folder.Write("Audit3CDReader.exe", "#!/bin/sh\nexec " PGBP_AUDIT_READER " --program-folder \"" +
                                                        practice.folder.path().string() + "\" " + words + " 2> \"" +
                                                        (practice.folder.path() / "told").string() + "\"\n");
        std::filesystem::permissions(practice.folder.path() / "Audit3CDReader.exe", std::filesystem::perms::owner_all);
    }
    std::string Told() const { return practice.folder.Read("told"); }
    std::string Sample(const char* name) const { return std::string(PGBP_SAMPLES "/") + name; }

    EmptyPractice practice;
    SystemProcesses processes;
    pgbp::Run run{{practice.boxes, practice.files, processes, practice.folder.path()}};
};

std::string InWords(const Form3cdSchedule& schedule)
{
    std::string told;
    for (const Form3cdBlock& block : schedule.blocks) {
        const double amounts[] = {block.opening, block.purchases1, block.purchases2, block.sales1, block.sales2};
        told += block.heading ? block.heading->name + ' ' + Value(block.heading->rate).Text() : "?";
        for (const double amount : amounts)
            told += ' ' + Value(amount).Text();
        told += '\n';
    }
    return told;
}

} // namespace

TEST_F(AuditReader, ReportInXmlAndInJsonGiveTheSameBlocks)
{
    const char* const blocks = "Machinery & Plant 15% 15 150000 56000 40000 20000 0\n"
                               "Furniture & Fittings 10% 10 22000 0 0 0 0\n"
                               "? 1800 0 0 0 0\n";
    for (const char* name : {"report.xml", "report.json"}) {
        ReaderIsTold(Sample(name));
        EXPECT_EQ(InWords(ReadForm3cd(run)), blocks) << name;
        EXPECT_EQ(Told(), "") << name;
    }
}

TEST_F(AuditReader, RefusedReportLeavesNothingOfTheLastOne)
{
    ReaderIsTold(Sample("report.xml"));
    EXPECT_EQ(ReadForm3cd(run).blocks.size(), 3u);
    practice.folder.Write("letter.txt", "Dear Sir");
    ReaderIsTold((practice.folder.path() / "letter.txt").string());
    EXPECT_TRUE(ReadForm3cd(run).blocks.empty());
    EXPECT_EQ(Told(), "Audit3CDReader: This is no audit report: the file is neither XML nor JSON.\n");
}

TEST_F(AuditReader, WithoutADisplayItSaysSoAndLeavesNothing)
{
    ReaderIsTold(Sample("report.xml"));
    ReadForm3cd(run);
    ReaderIsTold("");
    EXPECT_TRUE(ReadForm3cd(run).blocks.empty());
    EXPECT_NE(Told().find("There is no display"), std::string::npos) << Told();
}
