#pragma once

#include "workbook/workbook.h"

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace pgbp::xls {

/// The 56 colours that a workbook can use: the standard ones, of which unused ones give way to others as needed.
class Palette {
  public:
    Palette();

    /// The colour's number in records. Throws WorkbookError when all places are taken.
    std::size_t NumberOf(Colour colour);

    void Write(std::string& stream) const;

  private:
    struct Place {
        Colour colour;
        bool isUsed = false;
    };
    std::vector<Place> places_;
};

/// Gives each style of a workbook its number and writes the fonts, number formats, styles and colours.
class StyleTable {
  public:
    StyleTable();

    /// Throws WorkbookError for a style that the format cannot hold.
    std::size_t NumberOf(const Style& style);

    void Write(std::string& stream) const;

  private:
    using Font = std::pair<double, bool>; // points and bold

    struct Format {
        std::size_t font;
        std::size_t numberFormat;
        std::size_t fill; // 0 for none
        bool locked;
    };

    std::size_t FontNumber(const Font& font);
    std::size_t NumberFormatNumber(const std::string& format);

    std::vector<Font> fonts_;
    std::map<std::string, std::size_t> numberFormats_;
    std::map<Style, std::size_t> numbers_;
    std::vector<Format> formats_;
    Palette palette_;
};

} // namespace pgbp::xls
