#include "store/schema.h"

#include "services/text.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

namespace pgbp {
namespace {

TEST(Schema, EachNameStandsOnceAndEachIndexIsOverColumnsOfItsTable)
{
    std::set<std::string> tables;
    for (const Table& table : Tables()) {
        const std::string name = Upper(table.file) + '.' + Upper(table.name);
        EXPECT_TRUE(tables.insert(name).second) << name;
        std::set<std::string> columns;
        for (const Column& column : table.columns)
            EXPECT_TRUE(columns.insert(Upper(column.name)).second) << name << '.' << column.name;
        for (const std::string_view index : table.indexes) {
            const auto end = index.find_first_of(",)");
            const auto begin = index.find('(') == std::string_view::npos ? 0 : index.find('(') + 1;
            EXPECT_TRUE(columns.contains(Upper(index.substr(begin, end - begin)))) << name << ": " << index;
        }
    }
}

TEST(Schema, ColumnsHaveTheWidthsAndKindsThatTheSuiteRelies)
{
    EXPECT_EQ(ColumnWidth("company", "business", "TYPE"), 1);
    EXPECT_EQ(ColumnWidth("company", "business", "name1"), 255);
    EXPECT_EQ(ColumnWidth("balance", "misc_items", "add1"), 0) << "a note of any length";
    EXPECT_EQ(ColumnWidth("VornTemp", "main", "Glyear"), 7);
    EXPECT_EQ(ColumnWidth("balance", "fassets", "f_opbal"), 0);
    EXPECT_THROW(ColumnWidth("company", "business", "no_such"), std::out_of_range);
    EXPECT_THROW(ColumnWidth("company", "no_such", "code"), std::out_of_range);
}

TEST(Schema, ATableIsDeclaredInTheWordsOfItsEngine)
{
    const Table table{
        "f", "t", {{"Type", ColumnKind::Text, 9}, {"From", ColumnKind::Number}, {"on", ColumnKind::Flag}}, {}};
    EXPECT_EQ(CreateTableText(table, kServerDialect),
              "create table [t] ([Type] nvarchar(9), [From] double precision, [on] bit)");
    EXPECT_EQ(CreateTableText(table, kEmbeddedDialect),
              "create table [t] ([Type] text collate nocase check (length([Type]) <= 9), [From] double check "
              "(typeof([From]) <> 'text'), [on] boolean check (typeof([on]) <> 'text'))");
}

} // namespace
} // namespace pgbp
