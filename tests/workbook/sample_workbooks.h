#pragma once

#include "support/temporary_folder.h"
#include "workbook/workbook.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace pgbp::xls {

/// A filled-in statement of that many rows, as it is exported: a bold header, serial, description, amount, two hidden
/// columns, previous year and detail; each tenth row is the total of the nine before it, the last row takes all
/// totals together.
Workbook SampleStatement(int rows);

/// All kinds of values, formulas and styles on two sheets.
Workbook SampleOfAllKinds();

/// The workbook as it is read back: results in place of formulas, cells without a value and all looks gone.
Workbook AsRead(const Workbook& workbook);

/// The file with this as the stored result of every formula that gives a number or a truth value, and these marks on
/// it.
std::string WithStoredResults(const std::string& file, std::uint64_t result, std::uint16_t marks = 0);

/// Bytes of a file in the samples folder.
std::string SampleFile(const std::string& name);

std::string ReadBytes(const std::filesystem::path& path);
void WriteBytes(const std::filesystem::path& path, const std::string& bytes);

} // namespace pgbp::xls
