#include "workbook/styles.h"

#include "workbook/record_writer.h"

#include <algorithm>
#include <cmath>

namespace pgbp::xls {
namespace {

constexpr std::size_t kFirstColour = 8;
constexpr std::size_t kSkippedFont = 4; // no font has this number
constexpr std::size_t kFirstOwnNumberFormat = 164;
constexpr std::size_t kMostFonts = 500;
constexpr std::size_t kMostStyles = 4000;
constexpr std::size_t kBuiltInStyles = 15; // "Normal" and the outline levels, which programs expect before all others
constexpr std::size_t kAutomaticColour = 0x7FFF;

/// Red, green and blue of the colours that a workbook has without being told.
constexpr std::uint32_t kStandardColours[] = {
    0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF, 0x800000, 0x008000,
    0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080, 0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF,
    0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF, 0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000,
    0x008080, 0x0000FF, 0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99,
    0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696, 0x003366, 0x339966,
    0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333};

Colour ColourOf(std::uint32_t rgb)
{
    return {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8), static_cast<std::uint8_t>(rgb)};
}

/// One extended format, either of a cell or of the built-in styles that all cells derive from.
void WriteFormat(std::string& stream, std::size_t font, std::size_t numberFormat, std::size_t flags,
                 std::size_t ownAttributes, std::size_t fill)
{
    constexpr std::size_t bottom = 0x20;
    constexpr std::size_t solid = std::size_t{1} << 26;
    constexpr std::size_t windowColours = 0x20C0;
    constexpr std::size_t windowBackground = std::size_t{65} << 7;
    Record(stream, RecordId::ExtendedFormat)
        .U16(font)
        .U16(numberFormat)
        .U16(flags)
        .U8(bottom)
        .U8(0)
        .U8(0)
        .U8(ownAttributes)
        .U32(0)
        .U32(fill > 0 ? solid : 0)
        .U16(fill > 0 ? fill | windowBackground : windowColours);
}

void WriteBuiltInStyles(std::string& stream)
{
    constexpr std::size_t lockedStyleWithoutParent = 0xFFF5;
    for (std::size_t i = 0; i < kBuiltInStyles; ++i)
        WriteFormat(stream, 0, 0, lockedStyleWithoutParent, i == 0 ? 0 : 0xF4, 0);
}

void WriteFont(std::string& stream, double points, bool bold)
{
    constexpr std::string_view name = "Arial";
    Record(stream, RecordId::Font)
        .U16(std::lround(points * 20))
        .U16(bold) // said again as a weight
        .U16(kAutomaticColour)
        .U16(bold ? 700 : 400)
        .U16(0)
        .U32(0) // underline, family, character set
        .U8(name.size())
        .U8(0)
        .Bytes(name);
}

} // namespace

Palette::Palette()
{
    for (const std::uint32_t rgb : kStandardColours)
        places_.push_back({ColourOf(rgb)});
}

std::size_t Palette::NumberOf(Colour colour)
{
    auto place = std::ranges::find(places_, colour, &Place::colour);
    if (place == places_.end()) {
        const auto lastUnused = std::ranges::find(places_.rbegin(), places_.rend(), false, &Place::isUsed);
        if (lastUnused == places_.rend())
            throw WorkbookError("the workbook has more than " + std::to_string(places_.size()) + " fill colours.");
        place = lastUnused.base() - 1;
    }
    *place = {colour, true};
    return kFirstColour + static_cast<std::size_t>(place - places_.begin());
}

void Palette::Write(std::string& stream) const
{
    Record record(stream, RecordId::Palette);
    record.U16(places_.size());
    for (const Place& place : places_)
        record.U8(place.colour.red).U8(place.colour.green).U8(place.colour.blue).U8(0);
}

StyleTable::StyleTable()
    // The built-in styles use the first font, and the numbers before the skipped one must exist.
    : fonts_(kSkippedFont, Font(10, false)), numberFormats_{{"General", 0}, {"0", 1}, {"0.00", 2}, {"@", 49}}
{
    NumberOf(Style{});
}

std::size_t StyleTable::NumberOf(const Style& style)
{
    if (!(style.fontSize >= 1 && style.fontSize <= 409))
        throw WorkbookError("the font size is not between 1 and 409 points.");
    if (const auto known = numbers_.find(style); known != numbers_.end())
        return known->second;
    if (formats_.size() == kMostStyles)
        throw WorkbookError("the workbook has more than " + std::to_string(kMostStyles) + " styles.");
    formats_.push_back({FontNumber({style.fontSize, style.bold}), NumberFormatNumber(style.numberFormat),
                        style.fill ? palette_.NumberOf(*style.fill) : 0, style.locked});
    return numbers_[style] = kBuiltInStyles + formats_.size() - 1;
}

std::size_t StyleTable::FontNumber(const Font& font)
{
    auto place = std::ranges::find(fonts_, font);
    if (place == fonts_.end() && fonts_.size() == kMostFonts)
        throw WorkbookError("the workbook has more than " + std::to_string(kMostFonts) + " fonts.");
    if (place == fonts_.end())
        place = fonts_.insert(place, font);
    const auto number = static_cast<std::size_t>(place - fonts_.begin());
    return number < kSkippedFont ? number : number + 1;
}

std::size_t StyleTable::NumberFormatNumber(const std::string& format)
{
    if (const auto known = numberFormats_.find(format); known != numberFormats_.end())
        return known->second;
    Encode(format, 255);
    const std::size_t number = kFirstOwnNumberFormat + numberFormats_.size();
    return numberFormats_[format] = number;
}

void StyleTable::Write(std::string& stream) const
{
    for (const auto& [points, bold] : fonts_)
        WriteFont(stream, points, bold);
    for (const auto& [format, number] : numberFormats_)
        if (number >= kFirstOwnNumberFormat) {
            const EncodedText text = Encode(format, 255);
            Record(stream, RecordId::Format).U16(number).U16(text.Length()).U8(text.wide).Bytes(text.bytes);
        }
    WriteBuiltInStyles(stream);
    for (const Format& format : formats_)
        WriteFormat(stream, format.font, format.numberFormat, format.locked ? 1 : 0, 0xFC, format.fill);
    Record(stream, RecordId::Style).U16(0x8000).U8(0).U8(0xFF); // "Normal" is the first style
    palette_.Write(stream);
}

} // namespace pgbp::xls
