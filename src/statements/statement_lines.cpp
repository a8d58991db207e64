#include "statements/statement_lines.h"

#include "services/format.h"
#include "services/text.h"

namespace pgbp {

StatementLines::StatementLines(std::span<const StatementRow> rows, std::span<const std::string_view> rules)
    : amounts_(rows.size() + 1), totals_(std::in_place, rules, rows.size())
{
    lines_.reserve(rows.size() + 1);
    for (const StatementRow& row : rows) {
        const int slno = static_cast<int>(Val(row.cells[kSlno]));
        bySlno_.try_emplace(slno, lines_.size());
        lines_.push_back({slno, row.cells[kType], Trim(row.cells[kBlankDescription]) == kWrittenByPreparer});
    }
}

std::optional<std::size_t> StatementLines::Find(int slno) const
{
    const auto found = bySlno_.find(slno);
    return found == bySlno_.end() ? std::nullopt : std::optional(found->second);
}

} // namespace pgbp
