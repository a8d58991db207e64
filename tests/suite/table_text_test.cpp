#include "suite/table_text.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

TEST(TablesAsText, KeepNullApartFromEmptyAndReadEachKindOfColumn)
{
    const TemporaryFolder folder;
    folder.Write("client.txt", "# a remark\n[balance.misc_items]\tType=REMINDER\n"
                               "year\tname1\tamt1\tdate1\t#who\n"
                               "2023-24\tRent\t-12.5\t2024-03-31 14:05:00\tme\n"
                               "\n2023-24\n"
                               "[company.setup]\nyear\tauto_rem\n2023-24\tno\n");
    const auto tables = ReadTables(folder.path() / "client.txt");
    ASSERT_EQ(tables.size(), 2u);
    EXPECT_EQ(tables[0].columns, (std::vector<std::string>{"Type", "year", "name1", "amt1", "date1"}));
    const auto& full = tables[0].rows.at(0);
    EXPECT_EQ(full[0].Text(), "REMINDER");
    EXPECT_EQ(full[3].Number(), -12.5);
    EXPECT_EQ(full[4].Date(), (DateTime{2024, 3, 31, 14, 5, 0}));
    const auto& shortRow = tables[0].rows.at(1);
    EXPECT_EQ(shortRow[0].Text(), "REMINDER");
    EXPECT_TRUE(shortRow[2].IsNull());
    EXPECT_FALSE(tables[1].rows.at(0)[1].IsNull());
    EXPECT_FALSE(tables[1].rows.at(0)[1].Flag());
}

TEST(TablesAsText, TellTheLineThatIsWrong)
{
    struct Case {
        const char* name;
        const char* text;
        const char* message;
    };
    constexpr Case kCases[] = {
        {"unknown table", "[company.wages]\n", "line 1: there is no table company.wages"},
        {"unknown column", "[company.setup]\nyear\tcolour\n", "line 2: the table setup has no column colour"},
        {"number", "[company.business]\nyear\tPNL\n2023-24\t12,000\n", "line 3: \"12,000\" is no number"},
        {"infinite number", "[company.business]\nyear\tPNL\n2023-24\tinf\n", "line 3: \"inf\" is no number"},
        {"flag", "[company.setup]\nyear\tauto_rem\n2023-24\tperhaps\n", "line 3: \"perhaps\" is neither yes nor no"},
        {"date", "[company.capital1]\nyear\tdate1\n2023-24\t31.3.2024\n", "line 3: \"31.3.2024\" is no date"},
        {"too many fields", "[company.setup]\nyear\n2023-24\tno\n", "line 3: the row has more fields"},
        {"no table", "year\n", "line 1: a line \"[file.table]\" must come first"},
    };
    const TemporaryFolder folder;
    for (const Case& each : kCases) {
        folder.Write("client.txt", each.text);
        try {
            ReadTables(folder.path() / "client.txt");
            FAIL() << each.name;
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find(each.message), std::string::npos) << error.what();
        }
    }
    EXPECT_THROW(ReadTables(folder.path() / "missing.txt"), std::runtime_error);
}

} // namespace
} // namespace pgbp
