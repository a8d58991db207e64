#include "workbook/calculation.h"
#include "workbook/compound_file.h"
#include "workbook/record_writer.h"
#include "workbook/shared_strings.h"
#include "workbook/styles.h"
#include "workbook/workbook.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace pgbp::xls {
namespace {

constexpr std::size_t kLongestSheetName = 31;

template <typename... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};

template <typename... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

/// Does something of a sheet or cell; what it cannot do is told with the name in front.
template <typename Work>
void Naming(const char* kind, const std::string& name, Work work)
{
    try {
        work();
    } catch (const WorkbookError& error) {
        throw WorkbookError(kind + name + ": " + error.what());
    }
}

void WriteBof(std::string& stream, std::uint16_t kind)
{
    Record(stream, RecordId::Bof).U16(kBiff8).U16(kind).U16(0x0DBB).U16(1996).U32(0).U32(6);
}

void CheckPosition(Position position)
{
    if (position.row < 0 || position.row >= kRows || position.column < 0 || position.column >= kColumns)
        throw WorkbookError("row " + std::to_string(position.row + 1) + ", column " +
                            std::to_string(position.column + 1) + " lies outside the sheet.");
}

void CheckSheetName(const std::string& name)
{
    using namespace std::string_view_literals;
    Encode(name, kLongestSheetName);
    if (name.empty())
        throw WorkbookError("a sheet needs a name.");
    if (name.find_first_of("[]:*?/\\\0"sv) != std::string::npos || name.starts_with('\'') || name.ends_with('\''))
        throw WorkbookError("the name has a character that is not allowed there.");
}

std::string LowerAscii(std::string text)
{
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

void CheckSheetNames(const Workbook& workbook)
{
    if (workbook.sheets.empty())
        throw WorkbookError("A workbook needs at least one sheet.");
    std::set<std::string> names;
    for (const Sheet& sheet : workbook.sheets)
        Naming("Sheet ", sheet.name, [&] {
            CheckSheetName(sheet.name);
            if (!names.insert(LowerAscii(sheet.name)).second)
                throw WorkbookError("another sheet has the same name.");
        });
}

double Finite(double number)
{
    if (!std::isfinite(number))
        throw WorkbookError("the number is not finite.");
    return number;
}

/// Row, column and style, with which the record of every cell begins.
std::string PlaceOf(Position position, std::size_t style)
{
    std::string place;
    for (const auto number : {static_cast<std::size_t>(position.row), static_cast<std::size_t>(position.column), style})
        Append(place, static_cast<std::uint16_t>(number));
    return place;
}

/// A result that is no number says its kind and, where it fits, its value.
std::string ResultField(std::uint8_t kind, std::uint8_t value)
{
    const char field[] = {static_cast<char>(kind), 0, static_cast<char>(value), 0, 0, 0, '\xFF', '\xFF'};
    return {field, sizeof field};
}

std::string ResultField(const Value& result)
{
    const Overloaded field{
        [](double number) {
            std::string bytes;
            Append(bytes, number);
            return bytes;
        },
        [](const std::string& text) { return ResultField(text.empty() ? kEmptyText : kTextFollows, 0); },
        [](bool truth) { return ResultField(kBoolean, truth); },
        [](ErrorCode code) { return ResultField(kError, static_cast<std::uint8_t>(code)); },
        [](std::monostate) { return ResultField(kEmptyText, 0); }};
    return std::visit(field, result);
}

/// The records of one sheet; numbers of texts and styles are given out by the workbook's tables.
class SheetWriter {
  public:
    SheetWriter(const Sheet& sheet, bool isFirst, SharedStrings& strings, StyleTable& styles)
        : sheet_(sheet), isFirst_(isFirst), strings_(strings), styles_(styles), calculated_(Calculate(sheet))
    {
    }

    std::string Write()
    {
        WriteBof(stream_, kWorksheetBof);
        if (sheet_.isProtected)
            Record(stream_, RecordId::Protect).U16(1);
        Record(stream_, RecordId::DefaultColumnWidth).U16(8);
        for (const auto& [number, column] : sheet_.columns)
            WriteColumn(number, column);
        WriteDimensions();
        WriteCells();
        WriteWindow();
        Record(stream_, RecordId::Eof).Bytes("");
        return std::move(stream_);
    }

  private:
    void WriteColumn(int number, const Column& column)
    {
        CheckPosition({0, number});
        if (!(column.width >= 0 && column.width <= 255))
            throw WorkbookError("the width of column " + std::to_string(number + 1) +
                                " is not between 0 and 255 characters.");
        Record(stream_, RecordId::ColumnInfo)
            .U16(number)
            .U16(number)
            .U16(std::lround(column.width * 256))
            .U16(styles_.NumberOf(column.style))
            .U16(column.hidden)
            .U16(0);
    }

    /// First and one-behind-last row and column that are in use.
    void WriteDimensions()
    {
        Position first{kRows, kColumns}, end{0, 0};
        for (const auto& [position, cell] : sheet_.cells) {
            CheckPosition(position);
            first = {std::min(first.row, position.row), std::min(first.column, position.column)};
            end = {std::max(end.row, position.row + 1), std::max(end.column, position.column + 1)};
        }
        if (sheet_.cells.empty())
            first = {};
        Record(stream_, RecordId::Dimensions).U32(first.row).U32(end.row).U16(first.column).U16(end.column).U16(0);
    }

    void WriteCells()
    {
        for (auto row = sheet_.cells.begin(); row != sheet_.cells.end();) {
            const auto end = sheet_.cells.lower_bound({row->first.row + 1, 0});
            WriteRow(row, end);
            for (; row != end; ++row)
                Naming("cell ", NameOf(row->first), [&] { WriteCell(row->first, row->second); });
        }
    }

    /// The row's height follows its largest font, as programs do when they are left to fit it.
    template <typename Iterator>
    void WriteRow(Iterator begin, Iterator end)
    {
        double points = 10;
        for (auto cell = begin; cell != end; ++cell)
            points = std::max(points, cell->second.style.fontSize);
        constexpr long kTallestRow = 8192;
        const auto twips = std::min(std::lround(points * 25.5), kTallestRow);
        Record(stream_, RecordId::Row)
            .U16(begin->first.row)
            .U16(begin->first.column)
            .U16(std::prev(end)->first.column + 1)
            .U16(twips)
            .U32(0)
            .U32(0x0F0100); // no style of its own
    }

    void WriteCell(Position position, const Cell& cell)
    {
        const std::string place = PlaceOf(position, styles_.NumberOf(cell.style));
        if (!cell.formula.empty())
            return WriteFormula(place, calculated_.at(position));
        const Overloaded write{
            [&](std::monostate) { Record(stream_, RecordId::Blank).Bytes(place); },
            [&](double number) { Record(stream_, RecordId::Number).Bytes(place).F64(Finite(number)); },
            [&](bool truth) { Record(stream_, RecordId::BooleanOrError).Bytes(place).U8(truth).U8(0); },
            [&](ErrorCode code) {
                Record(stream_, RecordId::BooleanOrError).Bytes(place).U8(static_cast<std::size_t>(code)).U8(1);
            },
            [&](const std::string& text) {
                Record(stream_, RecordId::SharedStringCell).Bytes(place).U32(strings_.NumberOf(text));
            }};
        std::visit(write, cell.value);
    }

    void WriteFormula(const std::string& place, const Calculated& formula)
    {
        Record(stream_, RecordId::Formula)
            .Bytes(place)
            .Bytes(ResultField(formula.result))
            .U16(0)
            .U32(0)
            .U16(formula.tokens.size())
            .Bytes(formula.tokens);
        if (const auto* text = std::get_if<std::string>(&formula.result); text && !text->empty())
            LongRecord(stream_, RecordId::String).Text(Encode(*text, kLongestText));
    }

    void WriteWindow()
    {
        constexpr std::size_t gridHeadingsZerosColourOutline = 0x00B6;
        constexpr std::size_t selectedAndOnTop = 0x0600;
        Record(stream_, RecordId::Window2)
            .U16(gridHeadingsZerosColourOutline | (isFirst_ ? selectedAndOnTop : 0))
            .U32(0) // first row and column to show
            .U32(64)
            .U32(0) // standard magnification
            .U32(0);
    }

    const Sheet& sheet_;
    bool isFirst_;
    SharedStrings& strings_;
    StyleTable& styles_;
    std::map<Position, Calculated> calculated_;
    std::string stream_;
};

/// The part of the stream before the sheets.
std::string Globals(const Workbook& workbook, const std::vector<std::string>& sheets, const SharedStrings& strings,
                    const StyleTable& styles)
{
    constexpr std::size_t utf16 = 1200;
    std::string stream;
    WriteBof(stream, kGlobalsBof);
    Record(stream, RecordId::CodePage).U16(utf16);
    Record(stream, RecordId::Window1).U16(0).U16(0).U16(20000).U16(12000).U16(0x38).U16(0).U16(0).U16(1).U16(600);
    Record(stream, RecordId::Date1904).U16(0);
    styles.Write(stream);
    std::vector<std::size_t> offsets;
    for (const Sheet& sheet : workbook.sheets) {
        const EncodedText name = Encode(sheet.name, kLongestSheetName);
        offsets.push_back(stream.size() + kRecordHeader);
        Record(stream, RecordId::BoundSheet).U32(0).U16(0).U8(name.Length()).U8(name.wide).Bytes(name.bytes);
    }
    strings.Write(stream);
    Record(stream, RecordId::Eof).Bytes("");
    std::size_t begin = stream.size();
    for (std::size_t i = 0; i < sheets.size(); begin += sheets[i++].size())
        Overwrite(stream, offsets[i], static_cast<std::uint32_t>(begin));
    return stream;
}

} // namespace

std::string WriteXls(const Workbook& workbook)
{
    CheckSheetNames(workbook);
    SharedStrings strings;
    StyleTable styles;
    std::vector<std::string> sheets;
    for (const Sheet& sheet : workbook.sheets)
        Naming("Sheet ", sheet.name,
               [&] { sheets.push_back(SheetWriter(sheet, sheets.empty(), strings, styles).Write()); });
    std::string stream = Globals(workbook, sheets, strings, styles);
    for (const std::string& sheet : sheets)
        stream += sheet;
    return WriteCompoundFile("Workbook", stream);
}

} // namespace pgbp::xls
