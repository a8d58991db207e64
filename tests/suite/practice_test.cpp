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

} // namespace
} // namespace pgbp
