#pragma once

#include "statements/ind_as_totals.h"
#include "statements/statement_totals.h"
#include "statements/template_files.h"
#include "statements/totals_rules.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace pgbp::test {

/// The rules that the module runs over the template.
inline std::span<const std::string_view> RulesOf(const TemplateFile& file)
{
    struct Served {
        const char* name;
        int year, glITR;
    };
    static constexpr Served kServed[] = {
        {"PL_4", 2012, 4},      {"PL_5", 2012, 5},       {"PL_6", 2012, 6},      {"PL_5_1", 2016, 4},
        {"PL_5_2015", 2016, 5}, {"PL_6_1", 2017, 6},     {"PL_5_2", 2017, 4},    {"PL_5_2017", 2017, 5},
        {"PL_5_2018", 2018, 4}, {"PL_5_2018a", 2018, 5}, {"PL_6_2018", 2018, 6}, {"PL_3_2019", 2026, 4},
        {"PL_5_2019", 2026, 5}, {"PL_6_2019", 2026, 6},
    };
    const auto served = std::ranges::find(kServed, file.name, &Served::name);
    if (served == std::end(kServed)) {
        const auto statement = file.name == "INDASPL" ? IndStatement::INDPNL : IndStatement::INDBS;
        return IndTotalsRules(statement, file.rows.size());
    }
    const auto form = OpenStatementForm(served->year, served->glITR, StatementKind::ProfitAndLoss);
    EXPECT_EQ(TemplateName(form), file.name);
    return TotalsRules(OperationFor(form), form);
}

inline StatementTotals TotalsOf(const TemplateFile& file) { return {RulesOf(file), file.rows.size()}; }

inline bool IsEntry(const TemplateRow& row) { return row.isNumber && !row.isBlocked; }

} // namespace pgbp::test
