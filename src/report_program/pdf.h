#pragma once

#include "report_program/page_layout.h"

#include <filesystem>

namespace pgbp::report {

/// Writes the pages as a PDF with text that can be selected and bookmarks, in one step: an existing file is replaced by
/// a whole one. Throws Fault.
void WritePdf(const PageLayout& layout, const std::filesystem::path& path);

} // namespace pgbp::report
