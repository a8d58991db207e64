#include "workbook/calculation.h"
#include "workbook/compound_file.h"
#include "workbook/record_reader.h"
#include "workbook/workbook.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

namespace pgbp::xls {
namespace {

/// The most bytes of text in all cells together. Many cells can share one text in a small file, and each gets its own
/// copy.
constexpr std::size_t kMostText = 64u << 20;
/// The most cells of all sheets together: a few bytes of the file can stand for hundreds of them.
constexpr std::size_t kMostCells = 1'000'000;

[[noreturn]] void FailDamaged(const std::string& what)
{
    throw WorkbookError("The workbook is damaged: " + what + '.');
}

/// A whole number or the upper half of a double, either of them in hundredths if it says so.
double RkNumber(std::uint32_t rk)
{
    constexpr std::uint32_t inHundredths = 1, isWhole = 2;
    const double number = rk & isWhole ? static_cast<double>(static_cast<std::int32_t>(rk) >> 2)
                                       : std::bit_cast<double>(static_cast<std::uint64_t>(rk & ~3u) << 32);
    return rk & inHundredths ? number / 100 : number;
}

Value NumberValue(double number) { return std::isfinite(number) ? Value(number) : ErrorCode::BadNumber; }

Value ErrorValue(std::uint8_t code)
{
    const auto error = static_cast<ErrorCode>(code);
    switch (error) {
    case ErrorCode::NoIntersection:
    case ErrorCode::DivisionByZero:
    case ErrorCode::WrongValue:
    case ErrorCode::LostReference:
    case ErrorCode::UnknownName:
    case ErrorCode::BadNumber:
    case ErrorCode::NotAvailable:
        return error;
    }
    FailDamaged("a cell has an error value that does not exist");
}

struct BoundSheet {
    std::size_t offset;
    std::string name;
};

class WorkbookReader {
  public:
    explicit WorkbookReader(std::string_view stream) : stream_(stream) {}

    Workbook Read()
    {
        ReadGlobals();
        Workbook workbook;
        for (BoundSheet& sheet : sheets_)
            workbook.sheets.push_back(ReadSheet(std::move(sheet)));
        return workbook;
    }

  private:
    void ReadGlobals()
    {
        RecordReader record(stream_, 0);
        record.Next();
        if (record.Id() != RecordId::Bof || record.U16() != kBiff8 || record.U16() != kGlobalsBof)
            throw WorkbookError("The file is not a workbook in the Excel 97-2003 format.");
        for (record.Next(); record.Id() != RecordId::Eof; record.Next()) {
            if (record.Id() == RecordId::FilePass)
                throw WorkbookError("The workbook is protected by a password.");
            if (record.Id() == RecordId::BoundSheet)
                ReadBoundSheet(record);
            else if (record.Id() == RecordId::SharedStrings)
                ReadSharedStrings(record);
        }
    }

    void ReadBoundSheet(RecordReader& record)
    {
        constexpr std::uint8_t worksheet = 0;
        const std::size_t offset = record.U32();
        record.Skip(1); // hidden or not
        if (record.U8() != worksheet)
            return;
        const std::size_t length = record.U8();
        sheets_.push_back({offset, record.Text(length)});
    }

    void ReadSharedStrings(RecordReader& record)
    {
        record.Skip(4);
        for (auto left = record.U32(); left > 0; --left)
            strings_.push_back(ReadText(record));
    }

    Sheet ReadSheet(BoundSheet bound)
    {
        RecordReader record(stream_, bound.offset);
        record.Next();
        if (record.Id() != RecordId::Bof || record.U16() != kBiff8)
            FailDamaged("the sheet " + bound.name + " does not begin where it should");
        Sheet sheet{std::move(bound.name)};
        textOf_.reset();
        // Charts on the sheet stand in it with marks of their own.
        for (int depth = 1; depth > 0;) {
            record.Next();
            if (record.Id() == RecordId::Bof)
                ++depth;
            else if (record.Id() == RecordId::Eof)
                --depth;
            else if (depth == 1)
                ReadCells(record, sheet);
        }
        walked_ += record.Offset() - bound.offset;
        if (walked_ > stream_.size())
            FailDamaged("two sheets share the same records");
        WorkOut(sheet);
        return sheet;
    }

    /// What the program that wrote the file left to be calculated.
    void WorkOut(Sheet& sheet)
    {
        for (auto& [position, formula] : waiting_)
            sheet.cells.at(position).formula = std::move(formula);
        const auto results = waiting_.empty() ? std::map<Position, Calculated>() : Calculate(sheet);
        for (const auto& [position, calculated] : results)
            sheet.cells.at(position) = Cell{calculated.result};
        waiting_.clear();
    }

    void ReadCells(RecordReader& record, Sheet& sheet)
    {
        if (record.Id() == RecordId::MultipleRk)
            return ReadMultipleRk(record, sheet);
        if (record.Id() == RecordId::String && textOf_)
            return Put(sheet, *std::exchange(textOf_, {}), ReadText(record));
        for (const auto& [id, read] : kCellKinds)
            if (id == record.Id()) {
                const Position position = ReadPosition(record);
                record.Skip(2); // style
                textOf_.reset();
                return Put(sheet, position, (this->*read)(record, position));
            }
    }

    static Position ReadPosition(RecordReader& record)
    {
        const Position position{record.U16(), record.U16()};
        if (position.column >= kColumns)
            FailDamaged("a cell lies outside its sheet");
        return position;
    }

    void ReadMultipleRk(RecordReader& record, Sheet& sheet)
    {
        constexpr std::size_t styleAndNumber = 6;
        Position position = ReadPosition(record);
        for (; record.Left() >= styleAndNumber && position.column < kColumns; ++position.column) {
            record.Skip(2);
            Put(sheet, position, NumberValue(RkNumber(record.U32())));
        }
    }

    Value ReadNumber(RecordReader& record, Position) { return NumberValue(std::bit_cast<double>(record.U64())); }

    Value ReadRk(RecordReader& record, Position) { return NumberValue(RkNumber(record.U32())); }

    Value ReadLabel(RecordReader& record, Position) { return ReadText(record); }

    Value ReadBooleanOrError(RecordReader& record, Position)
    {
        const auto value = record.U8();
        const bool isError = record.U8() != 0;
        return isError ? ErrorValue(value) : Value(value != 0);
    }

    Value ReadSharedString(RecordReader& record, Position)
    {
        const auto number = record.U32();
        if (number >= strings_.size())
            FailDamaged("a cell has a text that is not in the list of texts");
        return strings_[number];
    }

    Value ReadFormula(RecordReader& record, Position position)
    {
        const auto result = record.U64();
        TakeUncalculated(record, position, result);
        if (result >> 48 != 0xFFFF)
            return NumberValue(std::bit_cast<double>(result));
        const auto value = static_cast<std::uint8_t>(result >> 16);
        switch (static_cast<std::uint8_t>(result)) {
        case kBoolean:
            return value != 0;
        case kError:
            return ErrorValue(value);
        case kTextFollows:
            textOf_ = position;
            return std::string();
        case kEmptyText:
            return std::string();
        }
        FailDamaged("a formula has a result of an unknown kind");
    }

    /// Keeps a formula that has no result of its own: it is marked as to be calculated, or has the empty text, which
    /// writers leave that do not calculate. One that is not understood keeps what stands there.
    void TakeUncalculated(RecordReader& record, Position position, std::uint64_t result)
    {
        constexpr std::size_t marksAndLength = 8;
        constexpr std::uint16_t toBeCalculated = 0x0003; // always, or when the file is opened
        if (record.Left() < marksAndLength)
            return;
        const bool isMarked = (record.U16() & toBeCalculated) != 0;
        const bool isEmptyText = result >> 48 == 0xFFFF && static_cast<std::uint8_t>(result) == kEmptyText;
        if (!isMarked && !isEmptyText)
            return;
        record.Skip(4);
        std::string tokens(std::min<std::size_t>(record.U16(), record.Left()), '\0');
        for (char& byte : tokens)
            byte = static_cast<char>(record.U8());
        if (auto formula = DecodeFormula(tokens))
            waiting_.insert_or_assign(position, *std::move(formula));
    }

    static std::string ReadText(RecordReader& record)
    {
        const std::size_t length = record.U16();
        return record.Text(length);
    }

    void Put(Sheet& sheet, Position position, Value value)
    {
        if (const auto* text = std::get_if<std::string>(&value)) {
            text_ += text->size();
            if (text_ > kMostText)
                throw WorkbookError("The workbook holds more text than can be read.");
        }
        if (++cells_ > kMostCells)
            throw WorkbookError("The workbook holds more cells than can be read.");
        sheet.cells.insert_or_assign(sheet.cells.end(), position, Cell{std::move(value)});
    }

    using ReadValue = Value (WorkbookReader::*)(RecordReader&, Position);
    static constexpr std::pair<RecordId, ReadValue> kCellKinds[] = {
        {RecordId::Number, &WorkbookReader::ReadNumber},
        {RecordId::SharedStringCell, &WorkbookReader::ReadSharedString},
        {RecordId::Rk, &WorkbookReader::ReadRk},
        {RecordId::Formula, &WorkbookReader::ReadFormula},
        {RecordId::BooleanOrError, &WorkbookReader::ReadBooleanOrError},
        {RecordId::Label, &WorkbookReader::ReadLabel},
        {RecordId::RichString, &WorkbookReader::ReadLabel}};

    const std::string_view stream_;
    std::vector<BoundSheet> sheets_;
    std::vector<std::string> strings_;
    std::map<Position, std::string> waiting_; // formulas of the sheet that are without a result
    std::optional<Position> textOf_;          // the formula whose text is still to come
    std::size_t text_ = 0;                    // bytes of text in cells so far
    std::size_t cells_ = 0;
    std::size_t walked_ = 0; // bytes of the stream that sheets took so far
};

std::string StreamOf(std::string_view file)
{
    if (auto stream = ReadStream(file, "Workbook"))
        return *std::move(stream);
    throw WorkbookError(ReadStream(file, "Book")
                            ? "The workbook is in the format of Excel 95 or older; save it as Excel 97-2003 first."
                            : "The file holds no workbook, or one that is protected by a password.");
}

} // namespace

Workbook ReadXls(std::string_view bytes)
{
    if (bytes.size() > kLargestFile)
        throw WorkbookError("The workbook is larger than " + std::to_string(kLargestFile >> 20) + " megabytes.");
    const std::string stream = StreamOf(bytes);
    return WorkbookReader(stream).Read();
}

} // namespace pgbp::xls
