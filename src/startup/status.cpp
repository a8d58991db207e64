#include "startup/status.h"

#include <utility>

namespace pgbp {

std::string StatusInWords(std::string_view status)
{
    constexpr std::pair<std::string_view, std::string_view> kWords[] = {
        {"01", "Individual"},
        {"02", "HUF"},
        {"03", "HUF"},
        {"05", "Firm"},
        {"06", "Firm"},
        {"07", "AOP/BOI"},
        {"08", "Charitable Trust"},
        {"09", "AOP/BOI"},
        {"12", "Company"},
        {"13", "Company"},
        {"15", "Company"},
    };
    for (const auto& [code, words] : kWords)
        if (code == status)
            return std::string(words);
    return "Status " + std::string(status);
}

} // namespace pgbp
