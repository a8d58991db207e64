#include "services/text.h"

#include <algorithm>

namespace pgbp {
namespace {

char UpperLetter(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

} // namespace

std::string Trim(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

std::string Upper(std::string_view text)
{
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperLetter);
    return upper;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return UpperLetter(x) == UpperLetter(y); });
}

std::string Replace(std::string_view text, std::string_view from, std::string_view to)
{
    std::string result;
    while (true) {
        const auto at = text.find(from);
        result.append(text.substr(0, at));
        if (at == std::string_view::npos)
            return result;
        result.append(to);
        text.remove_prefix(at + from.size());
    }
}

} // namespace pgbp
