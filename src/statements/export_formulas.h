#pragma once

#include "statements/statement_form.h"
#include "workbook/workbook.h"

#include <cstddef>
#include <map>
#include <span>
#include <string_view>

namespace pgbp {

/// The generations of the exported statement: each has formulas for the totals of the forms it was made for.
enum class ExportOperation {
    excel_mod,
    excel_mod_17_PL1,
    excel_mod_17_PL4,
    excel_mod_17_PL6,
    excel_mod_21_PL1,
    excel_mod_21_PL4,
    excel_mod_21_PL6
};

/// The operation that exports a statement. It goes by the year and `GlITR` alone: from 2014 an individual's statement
/// is exported as a firm's, whichever lines its own form has.
ExportOperation ExportOperationFor(const StatementForm& form);

struct ExportFormula {
    std::string_view formula;       ///< over the amounts in column C, "=sum(C6:C7)"
    std::string_view unlocked = {}; ///< cells that stay open when the sheet is protected, "C6:C7,C9", or none
};

/// Formulas of the totals by sheet row; row 1 is the heading, so line n of the form is row n + 1.
using ExportFormulas = std::map<int, ExportFormula>;

ExportFormulas ExportFormulasOf(ExportOperation operation);

/// What else the sheets of an operation have.
struct ExportLook {
    bool addsUpPreviousYear; ///< the formulas stand in column F, too
    bool opensCells;         ///< cells that are typed into are not locked
    std::string_view numberFormat;
};
const ExportLook& ExportLookOf(ExportOperation operation);

/// Puts the operation's formulas in place of the amounts of the lines that the statement computes, shades these rows
/// yellow up to the last column with a formula and opens the cells they unlock. A line that is typed keeps its figure
/// and a heading stays empty, where the form is not the one that the operation was made for; so does a total without a
/// formula.
void PutExportFormulas(xls::Sheet& sheet, ExportOperation operation, std::span<const std::size_t> computedLines);

} // namespace pgbp
