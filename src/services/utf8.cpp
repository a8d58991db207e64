#include "services/utf8.h"

#include <algorithm>

namespace pgbp {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool Continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// Bytes of the character that begins with this byte; 1 for a byte that begins none.
std::size_t LengthOf(unsigned char first)
{
    if (first >= 0xF0 && first < 0xF8)
        return 4;
    if (first >= 0xE0)
        return first < 0xF0 ? 3 : 1;
    return first >= 0xC0 ? 2 : 1;
}

} // namespace

int CharacterCount(std::string_view text)
{
    return static_cast<int>(std::count_if(text.begin(), text.end(), [](char byte) { return !Continues(byte); }));
}

std::size_t ByteOfCharacter(std::string_view text, int character)
{
    for (std::size_t at = 0; at < text.size(); ++at)
        if (!Continues(text[at]) && character-- == 0)
            return at;
    return text.size();
}

std::string Utf8(char32_t c)
{
    const auto tail = [c](int shift) { return static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80)
        return {static_cast<char>(c)};
    if (c < 0x800)
        return {static_cast<char>(0xC0 | (c >> 6)), tail(0)};
    if (c < 0x10000)
        return {static_cast<char>(0xE0 | (c >> 12)), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | (c >> 18)), tail(12), tail(6), tail(0)};
}

std::u32string Characters(std::string_view text)
{
    std::u32string characters;
    for (std::size_t at = 0; at < text.size();) {
        const auto first = static_cast<unsigned char>(text[at]);
        const std::size_t length = LengthOf(first);
        const bool whole = at + length <= text.size() &&
                           std::all_of(&text[at] + 1, &text[at] + length, [](char byte) { return Continues(byte); });
        if (first < 0x80) {
            characters += first;
        } else if (length == 1 || !whole) {
            characters += kReplacement;
            ++at;
            continue;
        } else {
            char32_t c = first & (0x7F >> length);
            for (std::size_t i = 1; i < length; ++i)
                c = (c << 6) | (static_cast<unsigned char>(text[at + i]) & 0x3F);
            characters += c;
        }
        at += length;
    }
    return characters;
}

} // namespace pgbp
