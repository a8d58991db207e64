#include "store/statement.h"

#include "services/utf8.h"

#include <algorithm>
#include <cmath>

namespace pgbp {
namespace {

constexpr int kShownCharacters = 60;

/// How the engines tell that another session's lock was waited for in vain.
constexpr std::string_view kLockWords[] = {"locked", "Lock wait timeout", "Lock request time out", "eadlock",
                                           "max_statement_time"};

bool TellsOfALock(std::string_view words)
{
    return std::ranges::any_of(kLockWords,
                               [&](std::string_view word) { return words.find(word) != std::string_view::npos; });
}

std::string Shown(const Value& value)
{
    if (value.IsNull())
        return "Null";
    const std::string text = value.Text();
    const auto cut = ByteOfCharacter(text, kShownCharacters);
    return cut == text.size() ? text : text.substr(0, cut) + "...";
}

} // namespace

std::string_view WithoutTrailingBlanks(std::string_view text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

void CheckValues(const std::string& sql, std::span<const Value> values)
{
    for (const Value& value : values)
        if (const auto* number = std::get_if<double>(&value.Held()); number && !std::isfinite(*number))
            throw StatementError("A number to be stored is not finite.", sql, values);
}

StoreError StatementError(std::string_view words, const std::string& sql, std::span<const Value> values)
{
    std::string text(words);
    if (TellsOfALock(text))
        text = "Another program is writing to the data files. Nothing was changed; please try again.\n" + text;
    text += "\nStatement: " + sql;
    for (const Value& value : values)
        text += (&value == values.data() ? "\nValues: " : ", ") + Shown(value);
    return StoreError(text);
}

StoreError FileError(const std::filesystem::path& file, std::string_view words)
{
    return StoreError("The data file \"" + file.string() + "\" " + std::string(words));
}

} // namespace pgbp
