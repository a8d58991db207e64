#include "suite/assessee_kinds.h"

#include <algorithm>
#include <utility>

namespace pgbp {
namespace {

// The remuneration of a firm's partners had one limit for a business and another for a profession up to 2009-10. No
// rule of the module tells the companies apart.
constexpr AssesseeKind kKinds[] = {
    {"01", "Individual"},
    {"02", "HUF"},
    {"05", "Firm (business)"},
    {"06", "Firm (profession)"},
    {"07", "AOP"},
    {"09", "BOI"},
    {"08", "Charitable trust"},
    {"12", "Company (public)"},
    {"13", "Company (private)"},
    {"15", "Company (foreign)"},
};

} // namespace

std::span<const AssesseeKind> AssesseeKinds() { return kKinds; }

std::string KindInWords(std::string_view status)
{
    const auto* kind = std::ranges::find(kKinds, status, &AssesseeKind::status);
    return kind == std::end(kKinds) ? "Status " + std::string(status) : std::string(kind->words);
}

std::string_view StatusOfPan(std::string_view pan)
{
    // of the two kinds of firms and the three of companies the one that is met most
    constexpr std::pair<char, std::string_view> kLetters[] = {{'P', "01"}, {'H', "02"}, {'F', "05"}, {'A', "07"},
                                                              {'B', "09"}, {'T', "08"}, {'C', "13"}};
    constexpr std::size_t kPlace = 3;
    for (const auto& [letter, status] : kLetters)
        if (pan.size() > kPlace && pan[kPlace] == letter)
            return status;
    return {};
}

} // namespace pgbp
