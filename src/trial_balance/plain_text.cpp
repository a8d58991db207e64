#include "trial_balance/plain_text.h"

#include "services/text.h"
#include "services/utf8.h"
#include "trial_balance/table.h"
#include "workbook/unicode.h"

#include <array>

namespace pgbp::trial {
namespace {

/// The characters 0x80 to 0x9F of Windows-1252; the others stand where Unicode has them. The five that are none are the
/// control characters of that number.
constexpr std::array<char32_t, 32> kWindows1252 = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178,
};

std::string FromWindows1252(std::string_view bytes)
{
    constexpr unsigned char first = 0x80;
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < first)
            text += byte;
        else
            text += Utf8(code < first + kWindows1252.size() ? kWindows1252[code - first] : char32_t{code});
    }
    return text;
}

std::string FromUtf16(std::string_view bytes, bool isBigEndian)
{
    std::u16string units;
    units.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned char>(bytes[isBigEndian ? at + 1 : at]);
        const auto high = static_cast<unsigned char>(bytes[isBigEndian ? at : at + 1]);
        units += static_cast<char16_t>(high << 8 | low);
    }
    return xls::Utf8FromUtf16(units);
}

std::string Decoded(std::string_view bytes)
{
    constexpr std::string_view kUtf8 = "\xEF\xBB\xBF", kLittleEndian = "\xFF\xFE", kBigEndian = "\xFE\xFF";
    if (bytes.starts_with(kLittleEndian) || bytes.starts_with(kBigEndian))
        return FromUtf16(bytes.substr(2), bytes.starts_with(kBigEndian));
    if (bytes.starts_with(kUtf8))
        bytes.remove_prefix(kUtf8.size());
    return xls::Utf16FromUtf8(bytes) ? std::string(bytes) : FromWindows1252(bytes);
}

} // namespace

std::string Utf8Text(std::string_view bytes)
{
    std::string text = Replace(Replace(Decoded(bytes), "\r\n", "\n"), "\r", "\n");
    if (text.find('\0') != std::string::npos)
        throw TrialBalanceError("This is neither a text nor a workbook (.xls). Export the trial balance as CSV.");
    return text;
}

} // namespace pgbp::trial
