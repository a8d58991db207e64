// Files that are older, newer or another program's, and what an upgrade makes of them.
#include "store/engines_under_test.h"
#include "store/files.h"

#include <sqlite3.h>

#include <atomic>
#include <thread>

namespace pgbp {
namespace {

using std::filesystem::path;

std::string Ask(const path& file, const std::string& statements)
{
    std::string answer;
    sqlite3* database = nullptr;
    sqlite3_open(file.c_str(), &database);
    const auto keepLast = [](void* last, int, char** cells, char**) {
        *static_cast<std::string*>(last) = cells[0] ? cells[0] : "Null";
        return 0;
    };
    EXPECT_EQ(sqlite3_exec(database, statements.c_str(), keepLast, &answer, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
    return answer;
}

/// A file as another program leaves it: one table of ours with a column less and one more, no index, no version.
path OldFile(const TemporaryFolder& folder)
{
    const path file = folder.path() / "company.mdb";
    Ask(file, "create table Business (code text collate nocase, Type text collate nocase, sno double, extra text);"
              "insert into Business values ('B', '1', 2, 'kept'), ('A', '1', 1, 'kept too')");
    return file;
}

constexpr auto kIndexes = "select count(*) from sqlite_master where type = 'index' and name like 'business%'";

TEST(Upgrade, AFileWithoutOurIndexesGetsThemAndKeepsItsRowsAndACopy)
{
    const TemporaryFolder folder;
    const path file = OldFile(folder);
    const auto rights = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
    std::filesystem::permissions(file, rights);
    const auto company = OpenFile({.path = file, .dsn = {}});
    const Recordset rows = company.Query("select * from {business}");
    ASSERT_EQ(rows.Size(), 2u);
    EXPECT_EQ(rows[0]["extra"].Text(), "kept");
    EXPECT_TRUE(rows[0]["turnover"].IsNull());
    company.Insert("business1", {{"code", "A"}});
    EXPECT_EQ(Ask(file, "pragma user_version"), "2");
    EXPECT_EQ(Ask(file, kIndexes), "6") << "two of business, two of business1, and the second copies of both";

    const path copy = file.string() + ".v0.bak";
    EXPECT_EQ(Ask(copy, "select count(*) from business"), "2");
    EXPECT_EQ(status(copy).permissions(), rights) << "a copy shows what the file hides";
    EXPECT_EQ(Ask(copy, kIndexes), "0");
    std::filesystem::remove(copy);
    OpenFile({.path = file, .dsn = {}});
    EXPECT_FALSE(std::filesystem::exists(copy)) << "a file of the present version is left alone";
}

TEST(Upgrade, AStepThatFailsLeavesTheFileAsItWas)
{
    const TemporaryFolder folder;
    const path file = OldFile(folder);
    Ask(file, "create view business1 as select 1 as one"); // stands where a table has to be made
    EXPECT_THROW(OpenFile({.path = file, .dsn = {}}), StoreError);
    EXPECT_EQ(Ask(file, "pragma user_version"), "0");
    EXPECT_EQ(Ask(file, kIndexes), "0");
    EXPECT_EQ(Ask(file, "select count(*) from pragma_table_info('business')"), "4");
}

TEST(Upgrade, NewerAndForeignFilesAreRefusedAndOthersAreNotTouched)
{
    const TemporaryFolder folder;
    const auto refusal = [&](const char* name, const std::string& statements) -> std::string {
        const path file = folder.path() / name;
        Ask(file, statements);
        try {
            OpenFile({.path = file, .dsn = {}});
        } catch (const StoreError& error) {
            return error.what();
        }
        return "opened";
    };
    EXPECT_NE(refusal("tax.mdb", "create table system (type text); pragma user_version = 3").find("newer version"),
              std::string::npos);
    EXPECT_NE(refusal("balance.mdb", "create table songs (title text)").find("is no data file of this program"),
              std::string::npos);
    EXPECT_EQ(refusal("balancesheet.mdb", "create table accounts (code text)"), "opened");
    EXPECT_EQ(Ask(folder.path() / "balancesheet.mdb", "select count(*) from sqlite_master"), "1");
    EXPECT_EQ(refusal("export1.mdb", "create table anything (code text)"), "opened");
}

} // namespace
} // namespace pgbp
