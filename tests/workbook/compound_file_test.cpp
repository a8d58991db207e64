#include "workbook/bytes.h"
#include "workbook/compound_file.h"
#include "workbook/workbook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pgbp::xls {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

constexpr std::size_t kSector = 512;

/// No two sectors are alike, so that one in the wrong place is seen.
std::string Content(std::size_t size)
{
    std::string content(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        content[i] = static_cast<char>(i / kSector * 7 + i % kSector + i / 65536);
    return content;
}

std::uint32_t NumberIn(const std::string& file, std::size_t at) { return *NumberAt<std::uint32_t>(file, at); }

std::size_t PlaceOf(std::uint32_t sector) { return (sector + std::size_t{1}) * kSector; }

TEST(CompoundFileTest, StreamsOfEverySizeComeBack)
{
    const std::size_t tableInHeader = 109 * 128 * kSector; // where the header has no room for more of the table
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{1}, std::size_t{4095}, std::size_t{4096}, std::size_t{4097}, 126 * kSector,
          127 * kSector, tableInHeader - 200 * kSector, tableInHeader, 2 * tableInHeader + 5000}) {
        const std::string file = WriteCompoundFile("Workbook", Content(size));
        EXPECT_EQ(file.size() % kSector, 0u) << size;
        const auto stream = ReadStream(file, "WORKBOOK");
        ASSERT_TRUE(stream) << size;
        EXPECT_EQ(stream->size(), std::max<std::size_t>(size, 4096));
        EXPECT_TRUE(stream->starts_with(Content(size))) << size;
        EXPECT_FALSE(ReadStream(file, "Book"));
    }
}

TEST(CompoundFileTest, TheLastSectorNeedNotBeWhole)
{
    // The stream is moved behind the table, to the end of the file.
    std::string file = WriteCompoundFile("Workbook", Content(4100));
    file += file.substr(PlaceOf(8), 4);
    const auto table = PlaceOf(NumberIn(file, 0x4C));
    Overwrite(file, table + 7 * 4, std::uint32_t{11});
    Overwrite(file, table + 11 * 4, std::uint32_t{0xFFFFFFFE});
    EXPECT_EQ(ReadStream(file, "Workbook"), Content(4100));
    file.pop_back();
    EXPECT_THROW(ReadStream(file, "Workbook"), WorkbookError);
}

TEST(CompoundFileTest, AShortStreamIsReadFromSmallSectors)
{
    // The stream's own sectors become those of the small kind, in turned order, with a table of their own behind the
    // file.
    std::string file = WriteCompoundFile("Workbook", Content(4096));
    const std::uint32_t smallTable = static_cast<std::uint32_t>(file.size() / kSector - 1);
    const auto root = PlaceOf(NumberIn(file, 0x30)), table = PlaceOf(NumberIn(file, 0x4C));
    Overwrite(file, 0x3C, smallTable);
    Overwrite(file, table + smallTable * 4, std::uint32_t{0xFFFFFFFE});
    Overwrite(file, root + 116, std::uint32_t{0});
    Overwrite(file, root + 120, std::uint32_t{4096});
    Overwrite(file, root + 128 + 116, std::uint32_t{63});
    Overwrite(file, root + 128 + 120, std::uint32_t{64 * 63 + 10});
    for (std::uint32_t i = 0; i < 128; ++i)
        Append(file, i == 0 ? std::uint32_t{0xFFFFFFFE} : i - 1);
    std::string expected;
    for (std::size_t i = 64; i-- > 0;)
        expected += Content(4096).substr(i * 64, 64);
    EXPECT_EQ(ReadStream(file, "Workbook"), expected.substr(0, 64 * 63 + 10));
}

TEST(CompoundFileTest, DamageIsTold)
{
    const std::string file = WriteCompoundFile("Workbook", Content(6000));
    const std::size_t table = PlaceOf(NumberIn(file, 0x4C)), stream = PlaceOf(NumberIn(file, 0x30)) + 128;
    struct Row {
        const char* what;
        std::size_t at;
        std::uint32_t number;
        const char* message;
    };
    const Row rows[] = {
        {"signature", 0, 0, "not a workbook"},
        {"a zip archive", 0, 0x04034B50, ".xlsx"},
        {"sectors of 2^60 bytes", 0x1C, 0x003CFFFE, "unknown kind"},
        {"sectors of 4096 bytes", 0x1C, 0x000CFFFE, "table is too short"},
        {"directory behind the end", 0x30, 0x00FFFFFF, "table is too short"},
        {"directory in a circle", table + 12 * 4, 12, "less than it announces"},
        {"directory over the stream", 0x30, 3, "no directory"},
        {"table behind the end", 0x4C, 4000, "behind the end"},
        {"no table", 0x4C, 0xFFFFFFFF, "table is too short"},
        {"stream larger than the file", stream + 120, 0x7FFFFFFF, "less than it announces"},
        {"stream behind the end", stream + 116, 5000, "behind the end"},
        {"stream ends early", table + 3 * 4, 0xFFFFFFFE, "behind the end"},
        {"small stream without small sectors", 0x38, 7000, "less than it announces"},
    };
    for (const Row& row : rows) {
        std::string damaged = file;
        Overwrite(damaged, row.at, row.number);
        EXPECT_THAT([&] { ReadStream(damaged, "Workbook"); }, ThrowsMessage<WorkbookError>(HasSubstr(row.message)))
            << row.what;
    }
}

} // namespace
} // namespace pgbp::xls
