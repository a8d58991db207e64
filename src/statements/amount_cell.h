#pragma once

#include <string>
#include <string_view>

namespace pgbp {

/// Number in an amount cell: what its text begins with, without the grouping commas; 0 for an empty cell.
double CellValue(std::string_view cell);

/// Writes a figure to an amount cell through "###0.00" and the grouping, and gives the figure as the cell now shows it.
/// Places of zero are not shown: 1500 is "1,500", 1500.5 is "1,500.5". Throws std::overflow_error for one not finite.
double WriteRounded(std::string& cell, double figure);

/// Writes a figure with grouping and all the places it has.
double WriteAsItStands(std::string& cell, double figure);

/// The figure as plain text, without grouping.
std::string PlainFigure(double figure);

} // namespace pgbp
