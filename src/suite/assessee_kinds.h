#pragma once

#include <span>
#include <string>
#include <string_view>

namespace pgbp {

/// What an assessee can be: the status code, and the words that tell it apart from its like.
struct AssesseeKind {
    std::string_view status; ///< two digits
    std::string_view words;
};

/// The kinds that a new assessee can be of, the most frequent ones first.
std::span<const AssesseeKind> AssesseeKinds();

/// "Firm (profession)"; a status that is none of the kinds is told by its code.
std::string KindInWords(std::string_view status);

/// The status that the fourth letter of a PAN tells; empty when it tells none of the kinds, or is not there yet.
std::string_view StatusOfPan(std::string_view pan);

} // namespace pgbp
