#include "services/options.h"

#include <algorithm>
#include <stdexcept>

namespace pgbp {

std::optional<std::string> TakeOption(std::vector<std::string>& words, const std::string& option)
{
    const auto found = std::find(words.begin(), words.end(), option);
    if (found == words.end())
        return std::nullopt;
    const auto value = found + 1;
    if (value == words.end() || value->empty())
        throw std::runtime_error(option + " wants a value; --help tells more");
    std::string taken = *value;
    words.erase(found, value + 1);
    return taken;
}

} // namespace pgbp
