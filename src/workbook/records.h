#pragma once

#include <cstddef>
#include <cstdint>

namespace pgbp::xls {

/// The kinds of BIFF8 records that are written or read.
enum class RecordId : std::uint16_t {
    Formula = 0x0006,
    Eof = 0x000A,
    Protect = 0x0012,
    Date1904 = 0x0022,
    FilePass = 0x002F,
    Font = 0x0031,
    Continue = 0x003C,
    Window1 = 0x003D,
    CodePage = 0x0042,
    DefaultColumnWidth = 0x0055,
    ColumnInfo = 0x007D,
    BoundSheet = 0x0085,
    Palette = 0x0092,
    MultipleRk = 0x00BD,
    RichString = 0x00D6,
    ExtendedFormat = 0x00E0,
    SharedStrings = 0x00FC,
    SharedStringCell = 0x00FD,
    Dimensions = 0x0200,
    Blank = 0x0201,
    Number = 0x0203,
    Label = 0x0204,
    BooleanOrError = 0x0205,
    String = 0x0207,
    Row = 0x0208,
    Window2 = 0x023E,
    Rk = 0x027E,
    Style = 0x0293,
    Format = 0x041E,
    Bof = 0x0809
};

inline constexpr std::uint16_t kBiff8 = 0x0600;
inline constexpr std::uint16_t kGlobalsBof = 0x0005;
inline constexpr std::uint16_t kWorksheetBof = 0x0010;

/// What the result field of a formula holds when it is no number.
inline constexpr std::uint8_t kTextFollows = 0;
inline constexpr std::uint8_t kBoolean = 1;
inline constexpr std::uint8_t kError = 2;
inline constexpr std::uint8_t kEmptyText = 3;

/// Id and length before the body of a record.
inline constexpr std::size_t kRecordHeader = 4;

/// The most bytes in the body of one record; what is longer goes on in Continue records.
inline constexpr std::size_t kLongestBody = 8224;

} // namespace pgbp::xls
