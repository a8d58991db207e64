#pragma once

#include "workbook/bytes.h"
#include "workbook/records.h"

#include <concepts>
#include <string>
#include <string_view>

namespace pgbp::xls {

/// One record at the end of a stream. Its length is entered when it goes out of scope, so that a record is one
/// statement: `Record(stream, RecordId::Number).U16(row).U16(column).U16(style).F64(value);`
class Record {
  public:
    Record(std::string& stream, RecordId id);
    ~Record();
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    // The low bytes of any whole number.
    Record& U8(std::integral auto number) { return Put<std::uint8_t>(number); }
    Record& U16(std::integral auto number) { return Put<std::uint16_t>(number); }
    Record& U32(std::integral auto number) { return Put<std::uint32_t>(number); }
    Record& F64(double number);
    Record& Bytes(std::string_view bytes);

  private:
    template <typename Number>
    Record& Put(std::integral auto number)
    {
        Append(stream_, static_cast<Number>(number));
        return *this;
    }

    std::string& stream_;
    std::size_t begin_;
};

/// A text as the format holds it: one byte a character where all of them are below 256, otherwise UTF-16.
struct EncodedText {
    bool wide = false;
    std::string bytes = {};

    std::size_t Length() const { return wide ? bytes.size() / 2 : bytes.size(); }
};

/// Throws WorkbookError for a text that is not UTF-8 or is longer than `longest` UTF-16 units.
EncodedText Encode(std::string_view text, std::size_t longest);

/// A record of any length that holds texts: what does not fit goes on in Continue records. A number is never split, and
/// where a text is, its kind of characters is said again.
class LongRecord {
  public:
    LongRecord(std::string& stream, RecordId id);
    ~LongRecord();
    LongRecord(const LongRecord&) = delete;
    LongRecord& operator=(const LongRecord&) = delete;

    LongRecord& U32(std::size_t number);
    LongRecord& Text(const EncodedText& text);

  private:
    std::size_t Room() const;
    void Begin(RecordId id);
    void End();
    void BeginIfShortOf(std::size_t bytes);

    std::string& stream_;
    std::size_t begin_ = 0;
};

} // namespace pgbp::xls
