#pragma once

#include "startup/run.h"

namespace pgbp {

/// What the stored profit and loss account of a line of business tells its computation, rupees.
struct StatementFigures {
    double netProfit = 0;
    double depreciation = 0; ///< debited to the account
};

/// Reads the schedule cells of the line. Net profit is cell 255 of the statement (that of the Ind AS statement under
/// `FormCheckDone`), without it, or where it is 0, cell 272 of the plain no-books case, and for a company from 2018
/// without either the Ind AS cell 7149; from 2017 cell 1166, the profession's net profit without books, is added.
/// Depreciation is the sum of cells 254 and 8015.
StatementFigures ReadStatement(const Run& run, double sno);

/// Net profit for a speculation or specified line: always of the plain statement, cell 255, without it or where it is 0
/// cell 272.
double ReadPlainNetProfit(const Run& run, double sno);

} // namespace pgbp
