#pragma once

#include <string>
#include <string_view>

namespace pgbp::trial {

/// The text of a file, as UTF-8 and with "\n" at the end of its lines. UTF-16 is known by its mark; bytes that are no
/// UTF-8 are Windows-1252, which older programs write. Throws TrialBalanceError for bytes that are no text.
std::string Utf8Text(std::string_view bytes);

} // namespace pgbp::trial
