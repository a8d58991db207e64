#pragma once

#include "suite/practice.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// One amount of the head of income, as the module stores it, in words.
struct HeadLine {
    std::string caption;
    double amount = 0;
};

/// The lines of the head of income of an assessee-year, the final figure last; nothing until the module has written it.
std::optional<std::vector<HeadLine>> HeadOfIncome(const Practice& practice, std::string_view code);

/// Marks the head of income that stands before a run, and tells after it whether another one stands in its place, be it
/// of the same amounts. What else is written to the file meanwhile, here or on another workstation, does not count.
void MarkHeadOfIncome(const Practice& practice, std::string_view code);
bool HeadOfIncomeCameBack(const Practice& practice, std::string_view code);

/// The lines as text, captions left, amounts on one edge.
std::string InWords(const std::vector<HeadLine>& lines);

} // namespace pgbp
