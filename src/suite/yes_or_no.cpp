#include "suite/yes_or_no.h"

#include "services/text.h"

#include <algorithm>
#include <initializer_list>

namespace pgbp {

std::optional<bool> YesOrNo(std::string_view word)
{
    const auto isOneOf = [word](std::initializer_list<std::string_view> words) {
        return std::ranges::any_of(words, [&](std::string_view each) { return EqualsIgnoringCase(each, word); });
    };
    if (isOneOf({"yes", "true", "1", "-1"}))
        return true;
    if (isOneOf({"no", "false", "0"}))
        return false;
    return std::nullopt;
}

} // namespace pgbp
