#pragma once

#include "report/document.h"

#include <filesystem>
#include <functional>
#include <ostream>
#include <span>
#include <string>

namespace pgbp::report {

/// The report on the client of the hand-over record, as the module starts this program. Throws Fault where the record
/// names nobody.
Document HandedOver(const std::filesystem::path& programFolder);

/// The report on an assessee-year of the practice. Throws std::runtime_error where it has none of this code.
Document ReportOn(const std::filesystem::path& programFolder, const std::string& code);

/// Writes a document into the folder and gives the name of its file.
using Writer = std::function<std::string(const Document& document, const std::filesystem::path& folder)>;
std::string WriteAsPdf(const Document& document, const std::filesystem::path& folder);
std::string WriteAsWorkbook(const Document& document, const std::filesystem::path& folder);

/// One file a client, named by PAN and year; one line of `out` each, "3/12 CODE FILE". One that fails is told by
/// "3/12 CODE failed: ..." and the others follow. Gives how many failed.
int WriteAll(const std::filesystem::path& programFolder, std::span<const std::string> codes,
             const std::filesystem::path& folder, const Writer& write, std::ostream& out);

/// The reports as text, one after the other. Gives how many failed.
int PrintAll(const std::filesystem::path& programFolder, std::span<const std::string> codes, std::ostream& out);

} // namespace pgbp::report
