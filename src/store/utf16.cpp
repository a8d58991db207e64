#include "store/utf16.h"

#include "services/utf8.h"

namespace pgbp {
namespace {

constexpr char32_t kFirstPair = 0x10000;
constexpr char32_t kFirstHigh = 0xD800;
constexpr char32_t kFirstLow = 0xDC00;
constexpr char32_t kAfterLow = 0xE000;
constexpr char32_t kUnknown = 0xFFFD;

bool IsHigh(char16_t unit) { return unit >= kFirstHigh && unit < kFirstLow; }
bool IsLow(char16_t unit) { return unit >= kFirstLow && unit < kAfterLow; }

} // namespace

std::u16string ToUtf16(std::string_view text)
{
    std::u16string units;
    units.reserve(text.size());
    for (const char32_t character : Characters(text)) {
        if (character < kFirstPair) {
            units += static_cast<char16_t>(character);
            continue;
        }
        units += static_cast<char16_t>(kFirstHigh + ((character - kFirstPair) >> 10));
        units += static_cast<char16_t>(kFirstLow + ((character - kFirstPair) & 0x3FF));
    }
    return units;
}

std::string ToUtf8(std::u16string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (IsHigh(text[i]) && i + 1 < text.size() && IsLow(text[i + 1]))
            character = kFirstPair + ((character - kFirstHigh) << 10) + (text[++i] - kFirstLow);
        else if (IsHigh(text[i]) || IsLow(text[i]))
            character = kUnknown;
        bytes += Utf8(character);
    }
    return bytes;
}

} // namespace pgbp
