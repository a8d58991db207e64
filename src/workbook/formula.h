#pragma once

#include "workbook/position.h"

#include <string>
#include <string_view>
#include <vector>

namespace pgbp::xls {

/// What a step of a formula does: put an operand on the stack, or work on the topmost ones.
enum class Operation { Number, Cell, Cells, Add, Subtract, Minus, Brackets, Sum };

struct Token {
    Operation operation;
    double number = 0;         ///< of Number
    Area area = {};            ///< of Cell (its first corner) and Cells
    std::size_t arguments = 0; ///< of Sum
    /// Cell and Cells as an argument of their own: texts in them are passed over, where an operator would take their
    /// value.
    bool isReference = false;
    bool operator==(const Token&) const = default;
};

/// A formula in postfix order, as the file holds it and as it is calculated.
using Formula = std::vector<Token>;

/// Takes SUM over areas, cells and expressions, + and -, signs, brackets, cells and constants; blanks anywhere and any
/// letter case. Throws WorkbookError that quotes the place that is not understood.
Formula ParseFormula(std::string_view text);

/// The longest text of a formula.
inline constexpr std::size_t kLongestFormula = 1024;

/// The tokens of the format.
std::string EncodeFormula(const Formula& formula);

} // namespace pgbp::xls
