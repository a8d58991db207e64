#include "workbook/record_reader.h"

#include "workbook/unicode.h"
#include "workbook/workbook.h"

#include <algorithm>

namespace pgbp::xls {
namespace {

constexpr std::uint8_t kWide = 0x01;
constexpr std::uint8_t kPronunciation = 0x04;
constexpr std::uint8_t kFormattingRuns = 0x08;

bool IsAscii(std::string_view text)
{
    return std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) > 0x7F; });
}

} // namespace

RecordReader::RecordReader(std::string_view stream, std::size_t offset) : stream_(stream), offset_(offset) {}

void RecordReader::Next()
{
    do
        Take();
    while (id_ == RecordId::Continue);
}

void RecordReader::Take()
{
    const auto id = NumberAt<std::uint16_t>(stream_, offset_);
    const auto length = NumberAt<std::uint16_t>(stream_, offset_ + 2);
    if (!id || !length || stream_.size() - offset_ - kRecordHeader < *length)
        throw WorkbookError("The workbook is damaged or cut short: its records break off before their end mark.");
    id_ = static_cast<RecordId>(*id);
    body_ = stream_.substr(offset_ + kRecordHeader, *length);
    offset_ += kRecordHeader + *length;
}

void RecordReader::Continue()
{
    const auto id = id_;
    Take();
    if (id_ != RecordId::Continue)
        FailShort();
    id_ = id;
}

void RecordReader::FailShort()
{
    throw WorkbookError("The workbook is damaged: a record is shorter than its contents.");
}

void RecordReader::Skip(std::size_t bytes)
{
    while (bytes > body_.size()) {
        bytes -= body_.size();
        Continue();
    }
    body_.remove_prefix(bytes);
}

std::string RecordReader::Text(std::size_t length)
{
    const auto marks = U8();
    const std::size_t runs = marks & kFormattingRuns ? U16() : 0;
    const std::size_t pronunciation = marks & kPronunciation ? U32() : 0;
    std::string text = Characters(length, marks);
    Skip(runs * 4 + pronunciation);
    return text;
}

std::string RecordReader::Characters(std::size_t length, std::uint8_t marks)
{
    if (!(marks & kWide) && length <= body_.size() && IsAscii(body_.substr(0, length))) {
        std::string text(body_.substr(0, length));
        body_.remove_prefix(length);
        return text;
    }
    std::u16string units;
    while (units.size() < length) {
        if (body_.empty()) {
            Continue();
            // Some writers go on without saying the kind of characters again.
            if (NumberAt<std::uint8_t>(body_, 0).value_or(0) <= kWide)
                marks = U8();
        }
        units += marks & kWide ? static_cast<char16_t>(U16()) : static_cast<char16_t>(U8());
    }
    return Utf8FromUtf16(units);
}

} // namespace pgbp::xls
