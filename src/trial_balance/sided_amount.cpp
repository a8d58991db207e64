#include "trial_balance/sided_amount.h"

#include "services/amount_text.h"
#include "services/format.h"
#include "services/text.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace pgbp::trial {
namespace {

struct SideWord {
    std::string_view text;
    Side side;
};

// a longer one stands before the one it ends with
constexpr std::array kSideWords = {
    SideWord{"DEBIT", Side::Debit}, SideWord{"CREDIT", Side::Credit}, SideWord{"DR.", Side::Debit},
    SideWord{"CR.", Side::Credit},  SideWord{"DR", Side::Debit},      SideWord{"CR", Side::Credit},
    SideWord{"D", Side::Debit},     SideWord{"C", Side::Credit},
};

std::string WithoutBrackets(const std::string& text)
{
    return text.size() > 1 && text.front() == '(' && text.back() == ')' ? Trim(text.substr(1, text.size() - 2)) : text;
}

/// Takes the side off the text: "1250 (DR)", "CR 40".
Side TakeSide(std::string& text)
{
    for (const auto& [word, side] : kSideWords)
        for (const std::string& written : {'(' + std::string(word) + ')', std::string(word)}) {
            const bool isBehind = text.ends_with(written);
            if (!isBehind && !text.starts_with(written))
                continue;
            text = Trim(isBehind ? text.substr(0, text.size() - written.size()) : text.substr(written.size()));
            return side;
        }
    return Side::None;
}

bool IsNothing(const std::string& text)
{
    return text.empty() || text == "NIL" || text.find_first_not_of('-') == std::string::npos;
}

} // namespace

Side SideOf(std::string_view word)
{
    const std::string text = WithoutBrackets(Upper(Trim(word)));
    const auto found = std::ranges::find(kSideWords, std::string_view(text), &SideWord::text);
    return found == kSideWords.end() ? Side::None : found->side;
}

double SidedAmount::Balance(Side column) const
{
    return (side == Side::None ? column : side) == Side::Credit ? 0 - rupees : rupees;
}

std::optional<SidedAmount> ReadSidedAmount(std::string_view text)
{
    constexpr int kPlaces = 6; // of a sheet that works its figures out
    std::string rest = Upper(Trim(Replace(Replace(text, "\u00A0", " "), "\u2013", "-")));
    if (IsNothing(rest))
        return SidedAmount{};
    SidedAmount amount;
    amount.side = TakeSide(rest);
    const AmountReading reading = ReadAmount(rest, kPlaces);
    if (reading.text.empty() || rest.find_first_of("DC") != std::string::npos)
        return std::nullopt;
    amount.rupees = Val(reading.text);
    return amount;
}

} // namespace pgbp::trial
