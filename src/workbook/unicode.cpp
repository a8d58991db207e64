#include "workbook/unicode.h"

#include <bit>

namespace pgbp::xls {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstBehindBmp = 0x10000;
constexpr char32_t kLast = 0x10FFFF;

bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// A shorter sequence would have done, a surrogate, or beyond the last character.
bool IsBadCharacter(char32_t character, int length)
{
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, kFirstBehindBmp};
    return character < smallest[length] || character > kLast || IsHighSurrogate(character) || IsLowSurrogate(character);
}

/// Takes one character off the front of a text that is not empty.
std::optional<char32_t> TakeCharacter(std::string_view& text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const int ones = std::countl_one(lead);
    const int length = ones == 0 ? 1 : ones;
    if (ones == 1 || length > 4 || text.size() < static_cast<std::size_t>(length))
        return std::nullopt;
    char32_t character = ones == 0 ? lead : lead & (0x7Fu >> ones);
    for (int i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[static_cast<std::size_t>(i)]);
        if ((next & 0xC0) != 0x80)
            return std::nullopt;
        character = character << 6 | (next & 0x3Fu);
    }
    if (IsBadCharacter(character, length))
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(length));
    return character;
}

void Append(std::u16string& text, char32_t character)
{
    if (character < kFirstBehindBmp) {
        text += static_cast<char16_t>(character);
        return;
    }
    const char32_t offset = character - kFirstBehindBmp;
    text += static_cast<char16_t>(0xD800 + (offset >> 10));
    text += static_cast<char16_t>(0xDC00 + (offset & 0x3FF));
}

void Append(std::string& text, char32_t character)
{
    const auto put = [&](char32_t lead, int shift) {
        text += static_cast<char>(lead | character >> shift);
        for (shift -= 6; shift >= 0; shift -= 6)
            text += static_cast<char>(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x80)
        put(0, 0);
    else if (character < 0x800)
        put(0xC0, 6);
    else if (character < kFirstBehindBmp)
        put(0xE0, 12);
    else
        put(0xF0, 18);
}

} // namespace

std::optional<std::u16string> Utf16FromUtf8(std::string_view text)
{
    std::u16string units;
    units.reserve(text.size());
    while (!text.empty()) {
        const auto character = TakeCharacter(text);
        if (!character)
            return std::nullopt;
        Append(units, *character);
    }
    return units;
}

std::string Utf8FromUtf16(std::u16string_view text)
{
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (IsHighSurrogate(character) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]))
            character = kFirstBehindBmp + ((character - 0xD800) << 10) + (text[++i] - 0xDC00u);
        else if (IsHighSurrogate(character) || IsLowSurrogate(character))
            character = kReplacement;
        Append(utf8, character);
    }
    return utf8;
}

} // namespace pgbp::xls
