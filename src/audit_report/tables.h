#pragma once

#include "audit_report/report.h"
#include "store/connection.h"

#include <filesystem>

namespace pgbp {

/// The rows of the three tables that a report becomes, as the annexure's import reads them.
struct ReportTables {
    using Row = std::vector<Field>;
    std::vector<Row> blocks;
    std::vector<Row> additions;
    std::vector<Row> deductions;
    /// What the preparer has to look after himself: blocks whose purchases or sales come to another sum than their
    /// total.
    std::vector<std::string> warnings;
};

/// Throws ReportError that names the block where an amount is no number, a date no date, a name too long.
ReportTables TablesOf(const std::vector<ReportedBlock>& blocks);

/// Makes the file with the tables, anew. One transaction: the tables are filled, or empty.
/// Throws Fault.
void WriteTables(const std::filesystem::path& file, const ReportTables& tables);

/// Takes away what was left last, so that nobody takes it for the report that is asked for now. Throws Fault.
void RemoveTables(const std::filesystem::path& file);

} // namespace pgbp
