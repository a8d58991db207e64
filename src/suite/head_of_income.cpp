#include "suite/head_of_income.h"

#include "services/format.h"

#include <algorithm>
#include <array>

namespace pgbp {
namespace {

/// What `amt1` to `amt14` hold. Specified business, professional income and audit adjustments are in the total only.
constexpr std::array<std::string_view, 14> kCaptions = {
    "Normal business",
    "Speculation business",
    "Business u/s 44AD",
    "Transport business u/s 44AE",
    "Retail trading u/s 44AF",
    "Remuneration and interest from firms",
    "Share from AOP/BOI",
    "Commission from LIC, UTI etc.",
    "Total",
    "Less: interest to partners",
    "Less: remuneration to partners",
    "Income after partners",
    "Set off against losses of earlier years",
    "Profits & gains from business or profession",
};

} // namespace

std::optional<std::vector<HeadLine>> HeadOfIncome(const Practice& practice, std::string_view code)
{
    const Recordset rows =
        practice.balance.Query("select * from {qelgeneral} where code = ? and [Type] = 'BUSI'", code);
    if (rows.Empty())
        return std::nullopt;
    std::vector<HeadLine> lines;
    for (std::size_t i = 0; i < kCaptions.size(); ++i)
        lines.push_back({std::string(kCaptions[i]), rows.First()["amt" + std::to_string(i + 1)].Number()});
    return lines;
}

std::string InWords(const std::vector<HeadLine>& lines)
{
    constexpr std::size_t captionWidth = 46, amountWidth = 20;
    std::string text;
    for (const HeadLine& line : lines) {
        const std::string amount = FormatAmountIndian(Amount(line.amount), kIndianGrouping);
        text += line.caption + std::string(captionWidth - std::min(captionWidth, line.caption.size()), ' ') +
                std::string(amountWidth - std::min(amountWidth, amount.size()), ' ') + amount + '\n';
    }
    return text;
}

} // namespace pgbp
