#include "statements/no_books.h"

#include "records/lines.h"

#include <algorithm>
#include <array>

namespace pgbp {
namespace {

constexpr std::array kMandatory = {269, 270, 271, 272, 1163, 1164, 1165, 1166};
constexpr std::array kGrossProfits = {270, 1164}; ///< the gross receipts stand directly above
constexpr int kNetProfit = 272;
constexpr int kGuidanceOf2023 = 2023;

template <std::size_t Size>
bool IsAmong(const std::array<int, Size>& slnos, int slno)
{
    return std::ranges::find(slnos, slno) != slnos.end();
}

} // namespace

bool IsNoBooksLine(int slno) { return (slno >= 268 && slno <= 272) || (slno >= 1161 && slno <= 1167); }

std::optional<std::size_t> MissingNoBooksLine(const StatementLines& lines)
{
    for (std::size_t line = 1; line <= lines.Count(); ++line)
        if (IsAmong(kMandatory, lines.Slno(line)) && !(lines.At(line).figure() > 0))
            return line;
    return std::nullopt;
}

bool RefusesLossWithoutBooks(int year, int slno, int businessKind)
{
    return year >= kGuidanceOf2023 && slno == kNetProfit && businessKind == kNormal;
}

bool ProfitExceedsReceipts(const StatementLines& lines, int year, int businessKind)
{
    if (year < kGuidanceOf2023 || businessKind != kNormal)
        return false;
    for (std::size_t line = 1; line <= lines.Count(); ++line)
        if (IsAmong(kGrossProfits, lines.Slno(line)) && lines.At(line - 1).figure() < lines.At(line).figure())
            return true;
    return false;
}

} // namespace pgbp
