#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// One line of a statement as the return of a year prints it: a record of the template tables, whose texts it views.
struct TemplateRow {
    /// Lasting number of the line; saved amounts are found by it in every year's form.
    int slno = 0;
    /// `head1`, `head2`, `s_1` to `s_4`: the first that is not blank is printed.
    std::array<std::string_view, 6> serials{};
    /// `Descr1` to `Descr4`, from the widest level to the deepest.
    std::array<std::string_view, 4> captions{};
    bool isChoice = false;  // `flag`
    bool isNumber = false;  // `text_numeric`
    bool isBlocked = false; // heading or computed total
};

/// Columns of the statement grid. Row 0 of the grid is its heading.
enum StatementColumn : int {
    kSerial,
    kDescription,
    kAmount,
    kType,
    kSlno,
    kPreviousYear,
    kDetail,
    kBlankDescription,
    kStatementColumns
};

/// Texts of a line of the statement grid, by column.
using StatementRow = std::vector<std::string>;

/// Caption of a line on which the preparer writes the description.
inline constexpr std::string_view kWrittenByPreparer = "__";

inline constexpr std::string_view kDetailsPossible = "=>";
inline constexpr std::string_view kDetailsFilled = "Filled";

/// Serial, indented description, type (NUM, TXT, CBO or none on a blocked line), number and detail mark of a line,
/// before any amount is filled in.
StatementRow ToStatementRow(const TemplateRow& row);

/// What the choice list of the line `slno` offers, in order.
std::span<const std::string_view> ChoiceItems(int slno);

/// Item of its list that a choice cell selects on opening, -1 for none. "Cash System" selects none.
int ChoiceOnOpening(std::string_view cell);

} // namespace pgbp
