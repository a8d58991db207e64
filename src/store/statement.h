#pragma once

#include "store/connection.h"

#include <span>
#include <string>
#include <string_view>

namespace pgbp {

/// How every engine stores a text: without the blanks at its end, which do not count in any comparison.
std::string_view WithoutTrailingBlanks(std::string_view text);

/// Throws EngineError when a number among the values is not finite: no engine holds one.
void CheckValues(const std::string& sql, std::span<const Value> values);

/// The engine's words with the statement. The values, which engines like to repeat, are left out: they are the
/// client's.
std::string TechnicalText(std::string_view words, const std::string& sql, std::span<const Value> values);

} // namespace pgbp
