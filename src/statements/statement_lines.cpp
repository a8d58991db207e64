#include "statements/statement_lines.h"

#include "services/format.h"
#include "services/text.h"

#include <algorithm>

namespace pgbp {

StatementLines::StatementLines(std::span<const StatementRow> rows, std::span<const std::string_view> rules)
    : amounts_(rows.size() + 1), totals_(std::in_place, rules, rows.size())
{
    lines_.reserve(rows.size() + 1);
    slnos_.reserve(rows.size() + 1);
    for (const StatementRow& row : rows) {
        slnos_.push_back(static_cast<int>(Val(row[kSlno])));
        lines_.push_back({row[kType], Trim(row[kBlankDescription]) == kWrittenByPreparer});
    }
}

std::optional<std::size_t> StatementLines::Find(int slno) const
{
    const auto found = std::find(slnos_.begin() + 1, slnos_.end(), slno);
    return found == slnos_.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - slnos_.begin()));
}

} // namespace pgbp
