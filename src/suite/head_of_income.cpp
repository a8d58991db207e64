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

// The module replaces the row and leaves SNO empty in it. Neither the amounts nor the place of the row in the file
// would tell: a second run may well write the same amounts, and a row deleted at the end of the table gives its place
// to the next one.
void MarkHeadOfIncome(const Practice& practice, std::string_view code)
{
    practice.balance.Execute("update {qelgeneral} set SNO = 1 where code = ? and [Type] = 'BUSI'", code);
}

bool HeadOfIncomeCameBack(const Practice& practice, std::string_view code)
{
    return !practice.balance
                .Query("select code from {qelgeneral} where code = ? and [Type] = 'BUSI' and SNO is null", code)
                .Empty();
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
