// What a program that was killed in the midst of a commit over several files has left.
#include "store/engines_under_test.h"
#include "store/files.h"
#include "support/new_data_files.h"

#include <chrono>
#include <filesystem>
#include <fstream>

namespace pgbp {
namespace {

std::vector<Connection> Open(const TemporaryFolder& folder)
{
    const DataFile files[] = {{.path = folder.path() / "company.mdb", .dsn = {}},
                              {.path = folder.path() / "balance.mdb", .dsn = {}}};
    return OpenFiles(files);
}

class JointJournal : public testing::Test {
  protected:
    JointJournal() { OpenNewDataFiles(folder, {"company", "balance"}); }

    std::filesystem::path Leave(std::string_view name, const std::string& lists) const
    {
        std::ofstream(folder.path() / name, std::ios::binary) << lists << '\0';
        return folder.path() / name;
    }

    const TemporaryFolder folder;
    const std::string journal = (folder.path() / "balance.mdb-journal").string();
};

TEST_F(JointJournal, ThatNobodyNeedsGoesAtTheNextStart)
{
    const auto left = Leave("company.mdb-mj1B2C3D9E0", journal);
    const auto empty = Leave("balance.mdb-mj0000009FF", "");
    const auto others = Leave("company.mdb-mj-old.txt", "");
    const auto elsewhere = Leave("other.mdb-mj1B2C3D9E0", journal);
    Open(folder);
    EXPECT_FALSE(exists(left));
    EXPECT_FALSE(exists(empty));
    EXPECT_TRUE(exists(others)) << "of no writer";
    EXPECT_TRUE(exists(elsewhere)) << "of a file that is not open";
}

TEST_F(JointJournal, OfACommitUnderWayStays)
{
    const auto left = Leave("company.mdb-mj1B2C3D9E0", journal);
    {
        const auto writer = Open(folder);
        EXPECT_FALSE(exists(left));
        Leave("company.mdb-mj1B2C3D9E0", journal);
        Transaction commit({writer[1]});
        const auto start = std::chrono::steady_clock::now();
        Open(folder);
        EXPECT_TRUE(exists(left));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << "waits for nobody";
    }
    const TemporaryFolder another;
    const auto far = Leave("company.mdb-mj1B2C3D9E0", (another.path() / "third.mdb-journal").string());
    std::ofstream(another.path() / "third.mdb-journal") << "hot";
    Open(folder);
    EXPECT_TRUE(exists(far)) << "a journal of a file elsewhere still needs it";
    remove(another.path() / "third.mdb-journal");
    std::ofstream(folder.path() / "fourth.mdb-journal") << "hot";
    Open(folder);
    EXPECT_TRUE(exists(far)) << "a journal beside it may name it";
    std::filesystem::remove(folder.path() / "fourth.mdb-journal");
    Open(folder);
    EXPECT_FALSE(exists(far));
}

} // namespace
} // namespace pgbp
