#include "workbook/record_writer.h"

#include "workbook/unicode.h"
#include "workbook/workbook.h"

#include <algorithm>

namespace pgbp::xls {
namespace {

constexpr std::size_t kLengthSize = 2;

/// Writes id and an open length; gives where the length stands.
std::size_t BeginRecord(std::string& stream, RecordId id)
{
    Append(stream, static_cast<std::uint16_t>(id));
    Append(stream, std::uint16_t{0});
    return stream.size() - kLengthSize;
}

std::size_t BodySize(const std::string& stream, std::size_t begin) { return stream.size() - begin - kLengthSize; }

void EndRecord(std::string& stream, std::size_t begin)
{
    Overwrite(stream, begin, static_cast<std::uint16_t>(BodySize(stream, begin)));
}

} // namespace

Record::Record(std::string& stream, RecordId id) : stream_(stream), begin_(BeginRecord(stream, id)) {}

Record::~Record() { EndRecord(stream_, begin_); }

Record& Record::F64(double number)
{
    Append(stream_, number);
    return *this;
}

Record& Record::Bytes(std::string_view bytes)
{
    stream_ += bytes;
    return *this;
}

EncodedText Encode(std::string_view text, std::size_t longest)
{
    const auto units = Utf16FromUtf8(text);
    if (!units)
        throw WorkbookError("the text is not UTF-8.");
    if (units->size() > longest)
        throw WorkbookError("the text is longer than " + std::to_string(longest) + " characters.");
    EncodedText encoded{std::ranges::any_of(*units, [](char16_t unit) { return unit > 0xFF; })};
    encoded.bytes.reserve(units->size() * (encoded.wide ? 2 : 1));
    for (const char16_t unit : *units) {
        encoded.bytes += static_cast<char>(unit & 0xFF);
        if (encoded.wide)
            encoded.bytes += static_cast<char>(unit >> 8);
    }
    return encoded;
}

LongRecord::LongRecord(std::string& stream, RecordId id) : stream_(stream) { Begin(id); }

LongRecord::~LongRecord() { End(); }

std::size_t LongRecord::Room() const { return kLongestBody - BodySize(stream_, begin_); }

void LongRecord::Begin(RecordId id) { begin_ = BeginRecord(stream_, id); }

void LongRecord::End() { EndRecord(stream_, begin_); }

void LongRecord::BeginIfShortOf(std::size_t bytes)
{
    if (Room() >= bytes)
        return;
    End();
    Begin(RecordId::Continue);
}

LongRecord& LongRecord::U32(std::size_t number)
{
    BeginIfShortOf(4);
    Append(stream_, static_cast<std::uint32_t>(number));
    return *this;
}

LongRecord& LongRecord::Text(const EncodedText& text)
{
    constexpr std::size_t lengthAndKind = 3;
    const std::size_t unit = text.wide ? 2 : 1;
    const auto kind = static_cast<std::uint8_t>(text.wide);
    BeginIfShortOf(lengthAndKind + unit);
    Append(stream_, static_cast<std::uint16_t>(text.Length()));
    Append(stream_, kind);
    std::string_view rest = text.bytes;
    while (true) {
        const std::size_t part = std::min(rest.size(), Room() / unit * unit);
        stream_ += rest.substr(0, part);
        rest.remove_prefix(part);
        if (rest.empty())
            return *this;
        BeginIfShortOf(kLongestBody);
        Append(stream_, kind);
    }
}

} // namespace pgbp::xls
