#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace pgbp {

/// The statements of a company that reports under Ind AS.
enum class IndStatement { INDPNL, INDBS };

/// `d_type` of the template in `taxauditjson`.
std::string_view IndTemplateName(IndStatement statement);

/// Rules of the statement's computed lines. A balance sheet has several layouts, told apart by their number of lines;
/// an unknown number takes the rules of the published Ind AS form.
std::span<const std::string_view> IndTotalsRules(IndStatement statement, std::size_t templateRows);

/// Line of the statement of profit and loss that stands behind "Net Profit".
inline constexpr std::size_t kIndNetProfitRow = 149;

/// Lines of the balance sheet that must agree: equity and liabilities, assets.
inline constexpr std::size_t kIndEquityAndLiabilitiesRow = 85;
inline constexpr std::size_t kIndAssetsRow = 204;

} // namespace pgbp
