#pragma once

#include <string>
#include <string_view>

namespace pgbp {

// What the module tells apart by the status code of the assessee.

inline bool IsFirm(std::string_view status) { return status == "05" || status == "06"; }
/// Firms, associations and bodies of individuals: partners or members share the income.
inline bool HasPartners(std::string_view status) { return IsFirm(status) || status == "07" || status == "09"; }
inline bool IsCompany(std::string_view status) { return status == "12" || status == "13" || status == "15"; }
inline bool IsTrust(std::string_view status) { return status == "08"; }
inline bool IsIndividual(std::string_view status) { return status == "01"; }

/// The status in words, for the status line.
std::string StatusInWords(std::string_view status);

} // namespace pgbp
