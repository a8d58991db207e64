#pragma once

#include "store/value.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace pgbp {

/// Name of a member of a control array: "Txt_1(0)".
inline std::string ArrayName(std::string_view array, int index)
{
    return std::string(array) + '(' + std::to_string(index) + ')';
}

/// The line whose `index` a stored row names; none for Null and for a number that no line has.
template <typename Lines>
auto* LineAt(Lines& lines, const Value& index)
{
    const auto found = std::find_if(lines.begin(), lines.end(),
                                    [&](const auto& line) { return !index.IsNull() && index.Number() == line.index; });
    return found == lines.end() ? nullptr : &*found;
}

} // namespace pgbp
