#include "workbook/compound_file.h"
#include "workbook/record_writer.h"
#include "workbook/sample_workbooks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace pgbp::xls {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

/// Nothing when the bytes are refused with a message; every other exception goes on.
std::optional<Workbook> ReadOrRefuse(const std::string& bytes)
{
    try {
        return ReadXls(bytes);
    } catch (const WorkbookError& error) {
        EXPECT_STRNE(error.what(), "");
        return std::nullopt;
    }
}

std::string StreamOf(const std::string& file) { return *ReadStream(file, "Workbook"); }

using Records = std::function<void(std::string&)>;

void Bof(std::string& stream, std::size_t version, std::size_t kind)
{
    Record(stream, RecordId::Bof).U16(version).U16(kind).U32(0);
}

/// A workbook whose sheets all begin at the same place.
std::string WithRecords(const Records& globals, const Records& cells, std::size_t sheets = 1)
{
    std::string stream;
    Bof(stream, kBiff8, kGlobalsBof);
    globals(stream);
    std::vector<std::size_t> offsets;
    for (; offsets.size() < sheets; offsets.push_back(stream.size() - 10))
        Record(stream, RecordId::BoundSheet).U32(0).U16(0).U8(2).U8(0).Bytes("S1");
    Record(stream, RecordId::Eof);
    for (const std::size_t offset : offsets)
        Overwrite(stream, offset, static_cast<std::uint32_t>(stream.size()));
    Bof(stream, kBiff8, kWorksheetBof);
    cells(stream);
    Record(stream, RecordId::Eof);
    return WriteCompoundFile("Workbook", stream);
}

void Nothing(std::string&) {}

Record& Text(Record&& record, std::size_t length, std::string_view characters)
{
    return record.U16(length).U8(0).Bytes(characters);
}

/// A record of the list of texts that announces `count` of them.
void Texts(std::string& stream, std::size_t count, std::size_t length, std::string_view characters)
{
    Text(std::move(Record(stream, RecordId::SharedStrings).U32(count).U32(count)), length, characters);
}

TEST(DamageTest, AFileCutAtAnyByteIsRefused)
{
    const std::string file = WriteXls(SampleOfAllKinds());
    for (std::size_t size = 0; size < file.size(); ++size)
        ASSERT_FALSE(ReadOrRefuse(file.substr(0, size))) << size;
}

TEST(DamageTest, RecordsCutAtAnyByteAreRefused)
{
    const Workbook workbook = SampleOfAllKinds();
    const std::string stream = StreamOf(WriteXls(workbook));
    const Workbook whole = AsRead(workbook);
    for (std::size_t size = 0; size < stream.size(); ++size) {
        const auto read = ReadOrRefuse(WriteCompoundFile("Workbook", stream.substr(0, size)));
        ASSERT_TRUE(!read || *read == whole) << size; // read where only zeros were cut: they are filled up again
    }
}

TEST(DamageTest, WhatIsWrongIsTold)
{
    const auto cell = [](RecordId id, auto fill) {
        return [=](std::string& stream) { fill(Record(stream, id).U16(0).U16(0).U16(0)); };
    };
    std::string onlyOld, noGlobals;
    Bof(noGlobals, 0x0500, kGlobalsBof);
    const std::pair<std::string, const char*> rows[] = {
        {WriteCompoundFile("Book", onlyOld), "Excel 95 or older"},
        {WriteCompoundFile("WordDocument", onlyOld), "holds no workbook"},
        {WriteCompoundFile("Workbook", noGlobals), "not a workbook"},
        {WriteCompoundFile("Workbook", ""), "not a workbook"},
        {WithRecords([](std::string& s) { Record(s, RecordId::FilePass).U16(0); }, Nothing), "password"},
        {WithRecords([](std::string& s) { Record(s, RecordId::BoundSheet).U32(0).U16(0).U8(9).U8(0).Bytes("S2"); },
                     Nothing),
         "shorter than its contents"},
        {WithRecords([](std::string& s) { Record(s, RecordId::BoundSheet).U32(3).U16(0).U8(2).U8(0).Bytes("S2"); },
                     Nothing),
         "sheet S2 does not begin"},
        {WithRecords(
             [](std::string& s) { Record(s, RecordId::BoundSheet).U32(0xFFFFFFF0).U16(0).U8(2).U8(0).Bytes("S2"); },
             Nothing),
         "break off"},
        {WithRecords([](std::string& s) { Texts(s, 0xFFFFFFFF, 3, "abc"); }, Nothing), "shorter than its contents"},
        {WithRecords([](std::string& s) { Texts(s, 1, 0xFFFF, "abc"); }, Nothing), "shorter than its contents"},
        {WithRecords([](std::string& s) { Texts(s, 1, 3, "abc"); },
                     cell(RecordId::SharedStringCell, [](Record& r) { r.U32(1); })),
         "not in the list of texts"},
        {WithRecords(Nothing, cell(RecordId::Number, [](Record& r) { r.U32(1); })), "shorter than its contents"},
        {WithRecords(Nothing, cell(RecordId::BooleanOrError, [](Record& r) { r.U8(1).U8(1); })), "error value"},
        {WithRecords(Nothing, cell(RecordId::Formula, [](Record& r) { r.U8(9).U32(0).U8(0).U16(0xFFFF); })),
         "result of an unknown kind"},
        {WithRecords(Nothing, [](std::string& s) { Record(s, RecordId::Rk).U16(0).U16(256).U16(0).U32(0); }),
         "outside"},
        {WithRecords(Nothing, [](std::string& s) { Bof(s, kBiff8, kWorksheetBof); }), "break off"},
        {WithRecords(
             Nothing, [](std::string& s) { Record(s, RecordId::Protect).Bytes(std::string(9000, 'r')); }, 2),
         "share the same records"},
    };
    for (const auto& row : rows)
        EXPECT_THAT([&] { ReadXls(row.first); }, ThrowsMessage<WorkbookError>(HasSubstr(row.second)));
}

TEST(DamageTest, ASmallFileCannotAskForMuchText)
{
    const auto file = WithRecords([](std::string& stream) { Texts(stream, 1, 8000, std::string(8000, 't')); },
                                  [](std::string& stream) {
                                      for (std::size_t row = 0; row < 10000; ++row)
                                          Record(stream, RecordId::SharedStringCell).U16(row).U16(0).U16(0).U32(0);
                                  });
    EXPECT_LT(file.size(), 200000u);
    EXPECT_THAT([&] { ReadXls(file); }, ThrowsMessage<WorkbookError>(HasSubstr("more text than can be read")));
}

TEST(DamageTest, WhatOtherProgramsMayWriteIsUnderstood)
{
    const std::string wide("\x15\x09\x3D\xD8", 4); // a letter and half of a pair
    const auto file = WithRecords(
        [&](std::string& stream) {
            Record(stream, RecordId::SharedStrings)
                .U32(2)
                .U32(2)
                // formatting runs and pronunciation behind the text
                .Bytes(std::string("\x02\0\x0D\x01\0\x03\0\0\0", 9) + wide + "runspro")
                // one byte a character first, two after the cut
                .Bytes(std::string("\x03\0\0", 3) + "a");
            Record(stream, RecordId::Continue).U8(1).Bytes(std::string("b\0\x15\x09", 4));
            Record(stream, RecordId::BoundSheet).U32(0).U8(0).U8(2).U8(5).U8(0).Bytes("Chart");
        },
        [](std::string& stream) {
            Record(stream, RecordId::SharedStringCell).U16(0).U16(0).U16(0).U32(0);
            Record(stream, RecordId::SharedStringCell).U16(0).U16(1).U16(0).U32(1);
            Text(std::move(Record(stream, RecordId::Label).U16(1).U16(0).U16(0)), 3, "old");
            Text(std::move(Record(stream, RecordId::RichString).U16(1).U16(1).U16(0)), 4, "richruns");
            // whole and shifted doubles, as they are and in hundredths
            Record(stream, RecordId::MultipleRk)
                .U16(2)
                .U16(0)
                .U16(0)
                .U32(0xFFFFFFF6)
                .U16(0)
                .U32(0x4062C001)
                .U16(0)
                .U32(12345 * 4 + 3)
                .U16(2);
            Record(stream, RecordId::Rk).U16(2).U16(3).U16(0).U32(0x3FF80000);
            Record(stream, RecordId::Number).U16(2).U16(4).U16(0).F64(1.0 / 0.0);
            Bof(stream, kBiff8, 0x0020);
            Record(stream, RecordId::Number).U16(9).U16(9).U16(0).F64(9); // of a chart
            Record(stream, RecordId::Eof);
            Record(stream, RecordId::Formula).U16(3).U16(0).U16(0).U32(0).U16(0).U16(0xFFFF).U32(0).U16(0);
            Record(stream, static_cast<RecordId>(0x04BC)).U32(0); // a formula shared by several cells
            Text(Record(stream, RecordId::String), 4, "text");
        });
    Sheet sheet{"S1"};
    const std::pair<const char*, Value> cells[] = {{"A1", "क\xEF\xBF\xBD"},
                                                   {"B1", "abक"},
                                                   {"A2", "old"},
                                                   {"B2", "rich"},
                                                   {"A3", -3.0},
                                                   {"B3", 1.5},
                                                   {"C3", 123.45},
                                                   {"D3", 1.5},
                                                   {"A4", "text"},
                                                   {"E3", ErrorCode::BadNumber}};
    for (const auto& [name, value] : cells)
        sheet.cells[PositionOf(name)] = {value};
    EXPECT_EQ(ReadXls(file), Workbook{{sheet}});
}

} // namespace
} // namespace pgbp::xls
