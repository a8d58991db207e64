// Data files as they are found: whole, damaged, of others, in use by another program.
#include "store/engines_under_test.h"
#include "store/files.h"
#include "store/schema.h"
#include "support/new_data_files.h"
#include "support/without_rights.h"

#include <sqlite3.h>

#include <chrono>
#include <fstream>
#include <functional>
#include <future>
#include <optional>
#include <random>
#include <thread>

namespace pgbp {
namespace {

using std::filesystem::path;

void Write(const path& file, const std::string& bytes) { std::ofstream(file, std::ios::binary) << bytes; }

std::string Read(const path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void RunInFile(const path& file, const char* statements)
{
    sqlite3* database = nullptr;
    sqlite3_open(file.c_str(), &database);
    EXPECT_EQ(sqlite3_exec(database, statements, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
    sqlite3_close(database);
}

std::string RandomBytes(std::size_t count)
{
    std::mt19937 random(7);
    std::string bytes(count, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

/// A company file with rows on many pages.
std::string FilledFile(const TemporaryFolder& folder)
{
    const auto company = OpenNewDataFiles(folder, {"company"}).front();
    Transaction transaction({company});
    for (int i = 0; i < 2000; ++i)
        company.Insert("business", {{"code", std::to_string(i)}, {"name1", "a line of business"}});
    transaction.Commit();
    return Read(folder.path() / "company.mdb");
}

/// Why the file can not be opened and read; the error names it. Nothing when it can.
std::optional<Cause> Refusal(const path& file)
{
    try {
        OpenFile({.path = file, .dsn = {}}).Query("select * from {business}");
        return std::nullopt;
    } catch (const StoreError& error) {
        EXPECT_NE(std::string(error.what()).find(file.string()), std::string::npos) << error.what();
        return error.cause();
    }
}

TEST(DataFiles, AWrongFileIsNamedAndLeftAsItIs)
{
    const TemporaryFolder folder;
    const std::string whole = FilledFile(folder);
    std::string scrambled = whole;
    scrambled.replace(100, 4096, RandomBytes(4096));
    const struct {
        const char* name;
        std::string bytes;
        Cause cause;
    } cases[] = {
        {"empty", "", Cause::NotADataFile},
        {"text", "code,name\n1,A\n", Cause::NotADataFile},
        {"random", RandomBytes(20000), Cause::NotADataFile},
        {"header alone", whole.substr(0, 64), Cause::Damaged},
        {"cut", whole.substr(0, whole.size() / 2), Cause::Damaged},
        {"scrambled", scrambled, Cause::Damaged},
        {"jet", std::string("\0\1\0\0Standard Jet DB\0", 20) + RandomBytes(4000), Cause::NoDriver},
    };
    for (const auto& one : cases) {
        const path file = folder.path() / "company.mdb";
        Write(file, one.bytes);
        EXPECT_EQ(Refusal(file), one.cause) << one.name;
        EXPECT_EQ(Read(file), one.bytes) << one.name;
    }
}

TEST(DataFiles, NothingIsMadeWhereNoFileIs)
{
    const TemporaryFolder folder;
    EXPECT_EQ(Refusal(folder.path() / "company.mdb"), Cause::Gone);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "company.mdb"));
    EXPECT_EQ(Refusal(folder.path() / "."), Cause::NotADataFile);
    EXPECT_EQ(Refusal(folder.path() / "nowhere/company.mdb"), Cause::Gone);
}

TEST(DataFiles, TheKindIsReadFromTheFileAndNotFromItsName)
{
    const TemporaryFolder folder;
    OpenNewDataFiles(folder, {"company"});
    Write(folder.path() / "jet.db", std::string("\0\1\0\0Standard Jet DB\0", 20) + RandomBytes(100));
    Write(folder.path() / "ace.db", std::string("\0\1\0\0Standard ACE DB\0", 20) + RandomBytes(100));
    EXPECT_EQ(KindOf(folder.path() / "company.mdb"), FileKind::Embedded);
    EXPECT_EQ(KindOf(folder.path() / "jet.db"), FileKind::Jet);
    EXPECT_EQ(KindOf(folder.path() / "ace.db"), FileKind::Jet);
}

TEST(DataFiles, ANewFileNeverTakesTheOldOnesPlace)
{
    const TemporaryFolder folder;
    OpenNewDataFiles(folder, {"company"}).front().Insert("business", {{"code", "A"}});
    EXPECT_THROW(CreateEmbeddedFile(folder.path() / "company.mdb", "company"), StoreError);
    const auto company = OpenFile({.path = folder.path() / "company.mdb", .dsn = {}});
    EXPECT_EQ(company.Scalar("select count(*) from {business}").Number(), 1);
}

TEST(DataFiles, ATransactionLocksTheFilesThatItNamesAlone)
{
    const TemporaryFolder folder;
    OpenNewDataFiles(folder, {"company", "balance"});
    const auto other = OpenFile({.path = folder.path() / "balance.mdb", .dsn = {}});
    const DataFile files[] = {{.path = folder.path() / "company.mdb", .dsn = {}},
                              {.path = folder.path() / "balance.mdb", .dsn = {}}};
    const auto connections = OpenFiles(files);
    const Transaction transaction({other});
    EXPECT_NO_THROW(Transaction({connections[0]}).Commit());
    EXPECT_EQ(connections[1].Scalar("select count(*) from {compu}").Number(), 0) << "reading needs no wait";
    connections[1].CheckWritable(); // another program can write, so this one can
    try {
        Transaction({connections[0], connections[1]});
        ADD_FAILURE() << "balance.mdb is locked";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.cause(), Cause::Locked);
        EXPECT_NE(std::string(error.what()).find("balance.mdb"), std::string::npos) << error.what();
    }
}

TEST(DataFiles, WhatIsReadTogetherIsReadInOneState)
{
    const TemporaryFolder folder;
    const Connection reader = OpenNewDataFiles(folder, {"company"}).front();
    const Connection writer = OpenFile({.path = folder.path() / "company.mdb", .dsn = {}});
    const auto lines = [&] { return reader.Scalar("select count(*) from {business}").Number(); };
    Transaction save({writer});
    {
        const Reading reading(reader);
        EXPECT_EQ(lines(), 0);
        writer.Insert("business", {{"code", "A"}});
        {
            const Reading inner(reader);
            EXPECT_EQ(lines(), 0);
        }
        EXPECT_THROW(Transaction({reader}), StoreError) << "one within another does not end it";
        EXPECT_THROW(reader.Query("select no_such_column from {business}"), StoreError);
        EXPECT_EQ(lines(), 0) << "a failure does not end it";
    }
    save.Commit(); // would wait for the reader in vain
    EXPECT_EQ(lines(), 1);
    EXPECT_NO_THROW(Transaction({reader}).Commit());
    {
        const Reading reading(reader);
        EXPECT_EQ(lines(), 1);
        reader.Insert("business", {{"code", "B"}});
        EXPECT_EQ(lines(), 2);
        Transaction change({reader});
        reader.Insert("business", {{"code", "C"}});
        change.Commit();
    }
    EXPECT_EQ(lines(), 3) << "what is changed while it lives is stored";
}

TEST(DataFiles, AFileInUseTellsWhyItRefuses)
{
    const TemporaryFolder folder;
    const path file = folder.path() / "company.mdb";
    const std::string whole = FilledFile(folder);
    const auto update = [](const Connection& company, const std::string& text) {
        Transaction transaction({company});
        company.Execute("update {business} set name1 = ?", text);
        transaction.Commit();
    };
    const auto anyText = [&](const Connection& company) { update(company, std::string(200, 'x')); };
    const struct {
        std::function<void(const Connection&)> work;
        Cause cause;
        const char* words;
    } cases[] = {
        {[&](const Connection& company) {
             company.Query("pragma max_page_count = 1");
             anyText(company);
         },
         Cause::DiskFull, "The changes could not be saved: the disk that holds the file \""},
        {[&](const Connection& company) { update(company, std::string(256, 'x')); }, Cause::DoesNotFit,
         "The changes could not be saved: an entry is too long or too large for the file \""},
        {[&](const Connection& company) {
             std::filesystem::remove(file);
             anyText(company);
         },
         Cause::Gone, "The changes could not be saved: the file \""},
        {[&](const Connection& company) {
             Write(file, whole.substr(0, whole.size() / 2) + RandomBytes(whole.size() / 2));
             company.Query("select * from {business}");
         },
         Cause::Damaged, "The data could not be read: the file \""},
    };
    for (const auto& one : cases) {
        Write(file, whole);
        const auto company = OpenFile({.path = file, .dsn = {}});
        try {
            one.work(company);
            ADD_FAILURE() << one.words;
        } catch (const StoreError& error) {
            EXPECT_EQ(error.cause(), one.cause) << error.what() << '|' << error.technical();
            EXPECT_TRUE(std::string(error.what()).starts_with(one.words + file.string() + '"')) << error.what();
            EXPECT_EQ(error.technical().find("xxx"), std::string::npos) << "no values: " << error.technical();
        }
    }
}

TEST(DataFiles, AFileLeftInAnotherJournalModeComesBackToRollback)
{
    const TemporaryFolder folder;
    OpenNewDataFiles(folder, {"company", "balance"});
    RunInFile(folder.path() / "balance.mdb", "pragma journal_mode = wal; insert into compu (code) values ('A')");
    const DataFile files[] = {{.path = folder.path() / "company.mdb", .dsn = {}},
                              {.path = folder.path() / "balance.mdb", .dsn = {}}};
    const auto connections = OpenFiles(files);
    EXPECT_EQ(connections[1].Scalar("select count(*) from {compu}").Number(), 1);
    EXPECT_EQ(Read(folder.path() / "balance.mdb")[18], '\1') << "the header's byte for the way of writing";
}

TEST(DataFiles, StatementsOfTheScreensReadTheAssesseesRowsOnly)
{
    const TemporaryFolder folder;
    const auto files = OpenNewDataFiles(folder, {"company", "balance", "tax", "qeltemp"});
    const auto& words = files[0].dialect();
    const auto inOrder = std::string(words.insertionOrder);
    const std::pair<int, std::string> statements[] = {
        {0, "select sum(net) from {business} where code = ? and [Type] = ?"},
        {0, "select * from {business} where code = ? and [Type] = ?" + inOrder},
        {0, "select * from {business} where code = ? and sno = ?"},
        {0, "select max(sno) from {business}"},
        {0, "delete from {business1} where code = ? and sno = ?"},
        {0, "select * from {business1} where code = ? and [Type] in ('LIC', 'UTI')" + inOrder},
        {0, "select distinct code from {business1} where [Type] in ('PARTINTT', 'PARTREMU') and name2 = ?"},
        {0, "select linking from {misc_items} where " + words.Trim("type") + " = 'OVPATH'"},
        {0, "delete from {misc_items} where code = ? and sno = ? and " + words.Left("type", 4) + " = 'PGBP'"},
        {0, "select code from {assessee1} where company = ? and year = ? order by code"},
        {0, "select * from {assessee} where pan = ?"},
        {1, "select distinct amt2 from {qelgeneral} where code = ? and [Type] = 'NEWPL' and amt2 <> 99999999"},
        {1, "select name8 from {qelgeneral} where code = ? and [Type] = 'NEWPL' and amt2 = ? and amt1 = 255"},
        {1, "update {fassets} set sno = ? where code = ? and [Type] = 'P' and sno = 90000"},
        {1, "select gross from {compu} where code = ?"},
        {2, "select * from {taxaudit} where d_type = ? order by pslno"},
        {3, "select * from {temp1} where code = ? and [Type] = ?" + inOrder},
        {3, "select * from {temp} where code = ? and linking = ? and amt1 = ?"},
    };
    for (const auto& [file, statement] : statements) {
        const std::vector<Value> values(std::count(statement.begin(), statement.end(), '?'), Value("A"));
        for (const Row& step : files[file].QueryBound("explain query plan " + statement, values)) {
            const std::string detail = step["detail"].Text();
            EXPECT_NE(detail.rfind("SCAN", 0), 0u) << statement << ": " << detail;
        }
    }
}

} // namespace
} // namespace pgbp
