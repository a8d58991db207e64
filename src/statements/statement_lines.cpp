#include "statements/statement_lines.h"

#include "services/format.h"
#include "services/text.h"

namespace pgbp {

StatementLines::StatementLines(std::vector<StatementRow> rows, std::span<const std::string_view> rules)
    : rows_(std::move(rows)), slnos_(1), amounts_(rows_.size() + 1), totals_(std::in_place, rules, rows_.size())
{
    for (const StatementRow& row : rows_) {
        slnos_.push_back(static_cast<int>(Val(row.cells[kSlno])));
        lines_.try_emplace(slnos_.back(), slnos_.size() - 1);
    }
}

std::optional<std::size_t> StatementLines::Find(int slno) const
{
    const auto found = lines_.find(slno);
    return found == lines_.end() ? std::nullopt : std::optional(found->second);
}

bool StatementLines::TakesDescription(std::size_t line) const
{
    return Trim(Row(line).cells[kBlankDescription]) == kWrittenByPreparer;
}

} // namespace pgbp
