#include "store/statement.h"

#include <algorithm>
#include <cmath>

namespace pgbp {
namespace {

/// An engine repeats a value between quotes, whole or as much as it has room for.
std::string WithoutValue(std::string words, const std::string& value)
{
    for (auto quote = words.find('\''); quote != std::string::npos; quote = words.find('\'', quote + 1)) {
        const auto begin = words.begin() + static_cast<std::ptrdiff_t>(quote) + 1;
        const auto end = std::mismatch(begin, words.end(), value.begin(), value.end()).first;
        if (end != begin && (end == words.end() || *end == '\'' || *end == '.'))
            words.replace(begin, end, "?");
    }
    return words;
}

} // namespace

std::string_view WithoutTrailingBlanks(std::string_view text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

void CheckValues(const std::string& sql, std::span<const Value> values)
{
    for (const Value& value : values)
        if (const auto* number = std::get_if<double>(&value.Held()); number && !std::isfinite(*number))
            throw EngineError(Cause::DoesNotFit, TechnicalText("A number to be stored is not finite.", sql, values));
}

std::string TechnicalText(std::string_view words, const std::string& sql, std::span<const Value> values)
{
    std::string text(words);
    for (const Value& value : values)
        text = WithoutValue(std::move(text), value.Text());
    return text + "\nStatement: " + sql;
}

} // namespace pgbp
