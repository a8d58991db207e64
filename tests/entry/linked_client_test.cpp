// The books of the accounts product: found by the suite's settings, and read only.
#include "entry/linked_client.h"
#include "services/text.h"
#include "support/empty_practice.h"

#include <sqlite3.h>

#include <chrono>
#include <fstream>

using namespace pgbp;

namespace {

namespace fs = std::filesystem;

class Books : public testing::Test {
  protected:
    /// A client with the number 5, whose books of 2023-24 have the code " B5 ".
    Books()
    {
        fs::create_directory(folder);
        CreateEmbeddedFile(file, "balancesheet");
        Year("2023-2024", " B5 ");
        OpenFile({.path = file, .dsn = {}}).Insert("clientcomp", {{"c_no", 5}, {"c_status", "06"}});
        Setting(" OVPATH ", {{"linking", " " + folder.string() + " "}});
        Setting("OVLINK ", {{"code", practice.handOver.Glcode}, {"SNO", 5}});
    }

    void Year(const char* year, const char* code, bool actual = false) const
    {
        OpenFile({.path = file, .dsn = {}})
            .Insert("clientasst", {{"c_no", 5}, {"ass_yr", year}, {"actual", actual}, {"code", code}});
    }
    void Setting(const char* type, std::initializer_list<Field> fields) const
    {
        std::vector<Field> row(fields);
        row.push_back({"Type", type});
        practice.Company().Insert("misc_items", row);
    }
    std::string Bytes() const
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    void Write(const std::string& bytes) const { std::ofstream(file, std::ios::binary) << bytes; }

    /// The code under which the books were found; "none" when they were not, which takes no time.
    std::string Found()
    {
        const pgbp::Run& run = practice.run ? *practice.run : practice.Start();
        const auto begun = std::chrono::steady_clock::now();
        const auto client = FindLinkedClient(run);
        EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::milliseconds(500));
        return client ? client->code : "none";
    }

    EmptyPractice practice;
    const fs::path folder = practice.folder.path() / "orvane";
    const fs::path file = folder / "balancesheet.mdb";
};

} // namespace

TEST_F(Books, AreFoundByFolderClientAndYear)
{
    const pgbp::Run& run = practice.Start();
    const auto client = FindLinkedClient(run);
    ASSERT_TRUE(client);
    EXPECT_EQ(client->folder, folder.string());
    EXPECT_EQ(client->number, 5);
    EXPECT_EQ(client->code, "B5");
    EXPECT_EQ(client->Status(), "06");
}

TEST_F(Books, FolderMayBeWrittenWithOtherSlashes)
{
    practice.Company().Execute("update {misc_items} set linking = ? where linking <> ''",
                               Replace(folder.string(), "/", "\\") + '\\');
    EXPECT_EQ(Found(), "B5");
}

TEST_F(Books, YearInFullGoesBeforeTheYearAsTheSuiteWritesIt)
{
    Year("2023-24", "short");
    EXPECT_EQ(Found(), "B5");
    OpenFile({.path = file, .dsn = {}}).Execute("delete from {clientasst} where code = ' B5'");
    EXPECT_EQ(Found(), "short");
    OpenFile({.path = file, .dsn = {}}).Execute("update {clientasst} set actual = ?", true);
    EXPECT_EQ(Found(), "none");
}

TEST_F(Books, WithoutALinkThereAreNone)
{
    practice.Company().Execute("update {misc_items} set SNO = 0 where SNO = 5");
    EXPECT_EQ(Found(), "none");
    practice.Company().Execute("update {misc_items} set SNO = 6 where SNO = 0");
    EXPECT_EQ(Found(), "none") << "of another client";
    practice.Company().Execute("update {misc_items} set SNO = 5, code = 'B0001r2023-24' where SNO = 6");
    EXPECT_EQ(Found(), "none") << "the link of another assessee";
}

TEST_F(Books, ThatCanNotBeReadAreNone)
{
    const std::string whole = Bytes();
    const struct {
        const char* name;
        std::string bytes;
    } cases[] = {
        {"empty", ""},
        {"a letter", "Dear Sir"},
        {"half", whole.substr(0, whole.size() / 2)},
        {"of another platform", std::string("\0\1\0\0Standard Jet DB\0", 20) + whole.substr(20)},
        {"without its pages", whole.substr(0, 100) + std::string(whole.size() - 100, '\xAA')},
    };
    for (const auto& one : cases) {
        Write(one.bytes);
        EXPECT_EQ(Found(), "none") << one.name;
        EXPECT_EQ(Bytes(), one.bytes) << one.name;
    }
    fs::remove(file);
    EXPECT_EQ(Found(), "none");
    fs::create_directory(file);
    EXPECT_EQ(Found(), "none") << "a folder of that name";
    EXPECT_TRUE(practice.boxes.shown.empty());
}

TEST_F(Books, ThatAreInUseAreNotWaitedFor)
{
    sqlite3* product = nullptr;
    sqlite3_open(file.c_str(), &product);
    sqlite3_exec(product, "begin exclusive", nullptr, nullptr, nullptr);
    EXPECT_EQ(Found(), "none");
    sqlite3_exec(product, "rollback", nullptr, nullptr, nullptr);
    EXPECT_EQ(Found(), "B5");
    sqlite3_close(product);
}

TEST_F(Books, AreNeverWrittenTo)
{
    const std::string before = Bytes();
    const auto client = FindLinkedClient(practice.Start());
    ASSERT_TRUE(client);
    EXPECT_THROW(client->books.Execute("update {clientasst} set actual = ?", true), StoreError);
    EXPECT_EQ(Bytes(), before);
}

/// What the product left behind when it was killed is for the product to put right.
TEST_F(Books, OfAKilledProductAreLeftAsTheyAre)
{
    sqlite3* product = nullptr;
    sqlite3_open(file.c_str(), &product);
    sqlite3_exec(product,
                 "pragma cache_size = 1; begin; insert into accounts(code, a_name) with recursive n(i) as (select 1 "
                 "union all select i + 1 from n where i < 5000) select 'B5', 'an account of many' from n",
                 nullptr, nullptr, nullptr);
    const fs::path killed = practice.folder.path() / "killed";
    fs::copy(folder, killed); // half written, with its journal
    sqlite3_close(product);
    fs::remove_all(folder);
    fs::rename(killed, folder);
    const std::string before = Bytes();
    ASSERT_TRUE(fs::exists(folder / "balancesheet.mdb-journal"));
    EXPECT_EQ(Found(), "none");
    EXPECT_EQ(Bytes(), before);
    EXPECT_TRUE(fs::exists(folder / "balancesheet.mdb-journal"));
}
