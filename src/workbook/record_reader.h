#pragma once

#include "workbook/bytes.h"
#include "workbook/records.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace pgbp::xls {

/// Walks the records of a stream. The body of the current record is read field by field; what goes on in Continue
/// records is one body with it. Everything throws WorkbookError where the stream or the body ends too early.
class RecordReader {
  public:
    /// Stands before the record at `offset`.
    RecordReader(std::string_view stream, std::size_t offset);

    /// Goes to the next record, over what is left of the current one.
    void Next();

    RecordId Id() const { return id_; }

    /// Where the next record begins; between two calls of Next it grows by what was walked over.
    std::size_t Offset() const { return offset_; }

    /// What is left of the record's own body, without what goes on in others.
    std::size_t Left() const { return body_.size(); }

    std::uint8_t U8() { return Field<std::uint8_t>(); }
    std::uint16_t U16() { return Field<std::uint16_t>(); }
    std::uint32_t U32() { return Field<std::uint32_t>(); }
    std::uint64_t U64() { return Field<std::uint64_t>(); }
    void Skip(std::size_t bytes);

    /// A text of `length` UTF-16 units with its marks in front, as UTF-8; its formatting runs and pronunciation are
    /// passed over.
    std::string Text(std::size_t length);

  private:
    template <typename Number>
    Number Field()
    {
        if (body_.empty())
            Continue();
        const auto number = NumberAt<Number>(body_, 0);
        if (!number)
            FailShort();
        body_.remove_prefix(sizeof(Number));
        return *number;
    }

    [[noreturn]] static void FailShort();
    void Take();
    void Continue();
    std::string Characters(std::size_t length, std::uint8_t marks);

    std::string_view stream_;
    std::size_t offset_;
    RecordId id_{};
    std::string_view body_;
};

} // namespace pgbp::xls
