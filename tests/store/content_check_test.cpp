// A turned byte in a data file is found before its figure is believed.
#include "store/content_check.h"
#include "store/engines_under_test.h"
#include "store/files.h"
#include "support/new_data_files.h"

#include <fstream>
#include <random>

namespace pgbp {
namespace {

class ContentCheck : public testing::Test {
  protected:
    ContentCheck()
    {
        const Connection company = OpenNewDataFiles(folder, {"company"}).front();
        Transaction transaction({company});
        for (int i = 0; i < 200; ++i)
            company.Insert("business", {{"code", "A" + std::to_string(i)},
                                        {"Type", "1"},
                                        {"SNO", i},
                                        {"name1", "a line"},
                                        {"PNL", 1000 + i + 0.25},
                                        {"NET", 7 * i}});
        transaction.Commit();
        std::ifstream stream(file, std::ios::binary);
        whole.assign(std::istreambuf_iterator<char>(stream), {});
    }

    void Write(const std::string& bytes) const { std::ofstream(file, std::ios::binary) << bytes; }

    /// All figures of all lines in one text; empty when the engine refuses the file.
    std::string Figures() const
    {
        std::string figures;
        try {
            for (const Row& row :
                 OpenFile({.path = file, .dsn = {}})
                     .Query("select code, [Type], SNO, PNL, NET, Minor from {business} order by rowid"))
                for (std::size_t column = 0; column < 6; ++column)
                    figures += row.At(column).Text() + '|';
        } catch (const StoreError&) {
            return "";
        }
        return figures;
    }

    const TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "company.mdb";
    std::string whole;
};

TEST_F(ContentCheck, FindsEachTurnedByteThatChangesAFigure)
{
    EXPECT_FALSE(DamageOf(file, {}));
    const std::string figures = Figures();
    std::mt19937 random(7);
    int changed = 0;
    for (int round = 0; round < 600; ++round) {
        std::string bytes = whole;
        const auto at = random() % bytes.size();
        bytes[at] = static_cast<char>(bytes[at] ^ (1 + random() % 255));
        Write(bytes);
        const std::string now = Figures();
        if (now.empty() || now == figures)
            continue;
        ++changed;
        ASSERT_TRUE(DamageOf(file, {})) << "byte " << at << " of round " << round;
    }
    EXPECT_GT(changed, 10) << "the test shows nothing";
}

TEST_F(ContentCheck, TellsDamageFromAFileThatCanNotBeRead)
{
    Write(whole.substr(0, whole.size() / 2));
    EXPECT_TRUE(DamageOf(file, {}));
    Write("no data file at all, though long enough for the beginning of one ................................");
    EXPECT_TRUE(DamageOf(file, {}));
    std::filesystem::remove(file);
    EXPECT_THROW(DamageOf(file, {}), StoreError);
}

TEST_F(ContentCheck, CanBeStopped)
{
    std::stop_source stop;
    stop.request_stop();
    const Connection company = OpenFile({.path = file, .dsn = {}});
    {
        Transaction transaction({company});
        for (int i = 0; i < 40000; ++i)
            company.Insert("business", {{"code", std::to_string(i)}});
        transaction.Commit();
    }
    EXPECT_THROW(DamageOf(file, stop.get_token()), StoreError);
}

} // namespace
} // namespace pgbp
