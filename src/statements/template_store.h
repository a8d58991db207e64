#pragma once

#include "statements/template_row.h"
#include "store/connection.h"

#include <filesystem>
#include <string_view>
#include <vector>

namespace pgbp {

/// Tables of templates in `tax`: the statements of the return, and those under Ind AS.
inline constexpr std::string_view kTemplates = "taxaudit";
inline constexpr std::string_view kIndTemplates = "taxauditjson";

/// Bad debts above one lakh without a PAN: a line that older templates closed, and that must be open.
inline constexpr int kBadDebtsWithoutPan = 540;

/// The lines of the template `dType` in their order, without amounts; none when the table has none. Throws StoreError.
std::vector<StatementRow> LoadTemplate(const Connection& tax, std::string_view table, std::string_view dType);

/// Whether RepairTemplate has something to do.
bool NeedsRepair(const Connection& tax, std::string_view dType, int year);

/// A practice's `tax.mdb` may be older than the program: when it lacks the template `dType`, or holds the greatest one
/// half copied, the template is taken over from `qel.mmm` in the program's folder. The templates from 2019 on have
/// kBadDebtsWithoutPan opened in every template of the file as well. All or nothing. Templates that are in every
/// `tax.mdb`, and years before the template's first, are left alone. Throws StoreError.
void RepairTemplate(const Connection& tax, const std::filesystem::path& programFolder, std::string_view dType,
                    int year);

} // namespace pgbp
