#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace pgbp::xls {

inline constexpr int kRows = 65536;
inline constexpr int kColumns = 256;

/// Place of a cell in its sheet, both counted from 0; sorts row by row.
struct Position {
    int row = 0;
    int column = 0;
    auto operator<=>(const Position&) const = default;
};

/// A rectangle of cells, both corners included.
struct Area {
    Position first = {};
    Position last = {};
    bool operator==(const Area&) const = default;
};

/// "C8" of {7, 2}.
std::string NameOf(Position position);

/// Takes a cell name ("C8", "iv65536") off the front of the text; nothing, and the text as it was, where there is none.
std::optional<Position> TakePosition(std::string_view& text);

/// The place that the text names. Throws WorkbookError for a text that is not wholly the name of a cell.
Position PositionOf(std::string_view name);

} // namespace pgbp::xls
