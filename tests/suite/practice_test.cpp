#include "store/files.h"
#include "store/schema.h"
#include "suite/assessee_years.h"
#include "suite/clients.h"
#include "suite/fill.h"
#include "suite/new_practice.h"

#include "services/ini_file.h"
#include "services/states.h"

#include <fstream>
#include <gtest/gtest.h>
#include <set>

namespace pgbp {
namespace {

namespace fs = std::filesystem;

double Count(const Connection& connection, const std::string& fromWhere)
{
    return connection.Scalar("select count(*) " + fromWhere).Number();
}

TEST(NewPracticeFolder, HoldsEveryFileThatARunOpens)
{
    const NewPractice made;
    std::vector<DataFile> files;
    for (const char* name : {"company", "balance", "tax", "misc", "export1", "export2"})
        files.push_back({made.folder() / "server" / (std::string(name) + ".mdb"), {}});
    files.push_back({made.folder() / "client" / "data" / "qeltemp.mdb", {}, false});
    EXPECT_EQ(OpenFiles(files).size(), 7u);
    EXPECT_EQ(OpenFile({made.folder() / "VornTemp.mdb", {}}).Query("select * from {main}").Size(), 0u);
    EXPECT_EQ(FirstLine(made.folder() / "Drive.txt"), (made.folder() / "handover").string());
    EXPECT_EQ(OpenFile({made.Open().HandOverFile(), {}}).Query("select * from {main}").Size(), 0u);
    EXPECT_EQ(clsIniFile{made.folder() / "Settings.ini"}.GetValue("DBTYPE", "DB"), "MDB");
    EXPECT_EQ(FileExists(made.folder() / "vorn.hlp"), 1);
}

TEST(NewPracticeFolder, HoldsEveryTemplateInTheStoreAndInTheReference)
{
    const NewPractice made;
    const Practice practice = made.Open();
    const Connection reference = OpenFile({made.folder() / "qel.mmm", {}});
    const auto lines = [](const fs::path& path) {
        std::ifstream in(path);
        std::string line;
        int count = -1; // the heading
        while (std::getline(in, line))
            ++count;
        return count;
    };
    struct Case {
        const Connection& connection;
        std::string table;
        int templates;
    };
    for (const auto& [connection, table, templates] :
         {Case{practice.tax, "taxaudit", 17}, Case{practice.tax, "taxauditjson", 2}, Case{reference, "taxaudit", 17}}) {
        int found = 0;
        for (const auto& entry : fs::directory_iterator(fs::path(PGBP_DATA) / table)) {
            if (entry.path().extension() != ".tsv")
                continue;
            const std::string name = entry.path().stem().string();
            EXPECT_EQ(connection.Scalar("select count(*) from {" + table + "} where d_type = ?", name).Number(),
                      lines(entry.path()))
                << name;
            ++found;
        }
        EXPECT_EQ(found, templates);
    }
    EXPECT_EQ(practice.tax.Scalar("select blocked from {taxaudit} where d_type = 'PL_5_2019' and slno = 549").Flag(),
              false);
}

TEST(NewPracticeFolder, EveryStateHasItsCodeAndEveryAddressAState)
{
    const NewPractice made;
    const Practice practice = made.Open();
    for (const Row row : practice.tax.Query("select nm from {statecode}"))
        EXPECT_NE(StateCode(row.At(0).Text()), "0") << row.At(0).Text();
    for (const Row row : practice.company.Query("select comm, state_o, state_r, pin_o, pin_r from {assessee}")) {
        const bool office = row["comm"].Text() == "O";
        EXPECT_NE(StateCode(row[office ? "state_o" : "state_r"].Text()), "0");
        EXPECT_EQ(row[office ? "pin_o" : "pin_r"].Text().size(), 6u);
    }
}

TEST(NewPracticeFolder, NeverTouchesAFolderThatHoldsSomething)
{
    const TemporaryFolder folder;
    folder.Write("letter.txt", "keep me");
    EXPECT_THROW(CreatePractice(folder.path(), PGBP_DATA), std::runtime_error);
    EXPECT_EQ(folder.Read("letter.txt"), "keep me");
    EXPECT_THROW(CreatePractice(folder.path() / "letter.txt", PGBP_DATA), std::runtime_error);
    fs::create_directory(folder.path() / "empty");
    CreatePractice(folder.path() / "empty", PGBP_DATA);
    EXPECT_TRUE(IsPractice(folder.path() / "empty"));
}

TEST(NewPracticeFolder, AppearsWholeOrNotAtAll)
{
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "data");
    fs::copy(fs::path(PGBP_DATA), folder.path() / "data", fs::copy_options::recursive);
    folder.Write("data/clients/1001-trader.txt", "[company.assessee]\ncompany\tcomp_name\nx\tA\n");
    EXPECT_THROW(CreatePractice(folder.path() / "practice", folder.path() / "data"), std::runtime_error);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1); // the data alone
}

TEST(PracticeThatStands, IsRefusedWithASentenceWhenItIsNone)
{
    const NewPractice made;
    const TemporaryFolder empty;
    EXPECT_THROW(Practice{empty.path()}, std::runtime_error);
    clsIniFile{made.folder() / "Settings.ini"}.WriteValue("DBTYPE", "DB", "sql");
    EXPECT_THROW(made.Open(), std::runtime_error);
}

TEST(FilledPractice, HoldsExactlyTheAssesseeYearsAskedFor)
{
    const NewPractice made;
    const Practice practice = made.Open();
    const double before = Count(practice.company, "from {assessee1}");
    constexpr const char* kTables[] = {"business", "business1", "misc_items", "assessee", "assessee1", "setup"};
    const auto rows = [&] {
        double all = Count(practice.balance, "from {qelgeneral}") + Count(practice.balance, "from {fassets}") +
                     Count(practice.balance, "from {compu}") + Count(practice.balance, "from {misc_items}");
        for (const char* table : kTables)
            all += Count(practice.company, std::string("from {") + table + '}');
        return all;
    };
    const double rowsBefore = rows();
    const long added = FillPractice(practice, PGBP_DATA, 100);
    EXPECT_EQ(Count(practice.company, "from {assessee1}"), before + 100);
    EXPECT_EQ(rows(), rowsBefore + static_cast<double>(added));
    EXPECT_EQ(Count(practice.company, "from {business} group by sno having count(*) > 1"), 0);
    EXPECT_EQ(Count(practice.company, "from {assessee} group by pan having count(*) > 1"), 0);
    EXPECT_EQ(Count(practice.company, "from {assessee} group by company having count(*) > 1"), 0);
    EXPECT_EQ(Count(practice.company, "from {assessee1} group by code having count(*) > 1"), 0);
}

TEST(LineNumbersOfAPractice, LeaveOutTheNumberOfUnsavedLines)
{
    const NewPractice made;
    const Practice practice = made.Open();
    practice.company.Execute("insert into {business} (code, sno) values ('x', 89998)");
    LineNumbers lines(practice.company);
    EXPECT_EQ(lines.Next(), 89999);
    EXPECT_EQ(lines.Next(), 90001);
    EXPECT_EQ(lines.Next(), 90002);
}

} // namespace
} // namespace pgbp
