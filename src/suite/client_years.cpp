#include "suite/client_years.h"

#include "services/format.h"
#include "suite/head_of_income.h"

#include <cmath>

namespace pgbp {

std::string ExactFigure(double amount)
{
    return FormatAmountIndian(IsExactWhole(amount) ? Rupees(amount) : Amount(amount), kIndianGrouping);
}

std::string RoundFigure(double amount)
{
    constexpr double lakh = 1e5, crore = 1e7;
    const double size = std::fabs(amount);
    const auto grouped = [](double figure) { return FormatAmountIndian(PlainFigure(figure), kIndianGrouping); };
    if (size >= crore)
        return grouped(amount / crore) + " crore";
    return size >= lakh ? grouped(amount / lakh) + " lakh" : grouped(amount);
}

std::string HeadInWords(const ClientYear& year)
{
    if (year.isUnreadable)
        return "cannot be read";
    if (!year.head)
        return "not written yet";
    const std::string amount = *year.head < 0 ? "loss of " + ExactFigure(-*year.head) : ExactFigure(*year.head);
    return amount + (year.writtenFor == 0 ? "" : " (" + MinorInWords(year.writtenFor) + ')');
}

std::string InWords(std::span<const ClientYear> years)
{
    std::string words;
    for (const ClientYear& year : years)
        words += (words.empty() ? "" : "; ") + year.year + ": " + HeadInWords(year);
    return words;
}

} // namespace pgbp
