#pragma once

#include "suite/assessee_years.h"

#include <optional>
#include <span>
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

/// Completes assessee-years, at least one, with the amounts of their heads of income and whose run wrote them; in one
/// read, which asks for these alone.
void ReadHeads(const Practice& practice, std::span<AssesseeYear* const> assesseeYears);

/// The same of one.
void ReadHead(const Practice& practice, AssesseeYear& assesseeYear);

/// Notes before a run whose run it is: a minor's, or with 0 the assessee's own. A minor's run writes the child's
/// figures where the assessee's stood, so a head of income is told together with whose run wrote it. The note lies in
/// the practice: it holds when this program has ended before the module did.
void NoteRun(const Practice& practice, std::string_view code, double minor);

/// Tells after a run whether another head of income stands in the place of the one before it, be it of the same
/// amounts. What else is written to the file meanwhile, here or on another workstation, does not count.
bool HeadOfIncomeCameBack(const Practice& practice, std::string_view code);

/// The amount of the head of income, and whose it is where it is not the assessee's: "1,06,100.00 (minor 1)"; "-"
/// when it is not written yet.
std::string HeadInWords(const AssesseeYear& assesseeYear);

/// Why the assessee's own run is due: where a minor's run wrote the head of income; empty elsewhere.
std::string WhyOwnRunIsDue(const AssesseeYear& assesseeYear);

/// "minor 1"
std::string MinorInWords(double minor);

/// The lines as text, captions left, amounts on one edge.
std::string InWords(const std::vector<HeadLine>& lines);

} // namespace pgbp
