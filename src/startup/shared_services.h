#pragma once

#include "startup/run.h"

namespace pgbp {

/// Tells that an item is only for some assessees: item + " is only applicable for " + who.
void ShowNotApplicable(const Run& run, const std::string& item, const std::string& who);

/// Leaves the PAN where the checking program looks for it and starts that program, without waiting for it. Where the
/// program is missing a box says so the first time in a run, and the status line where it belongs.
void CheckPAN(Screen& screen, const std::string& pan);

/// `code` of the same assessee in the assessment year before this one in the suite's list; empty when there is none.
std::string PreviousYearCode(const Run& run);

/// Starts a sibling program of the program folder and blocks until it ends, the pointer an hourglass. Gives its exit
/// code. Throws where it cannot be started.
int RunSibling(const Run& run, std::string_view program);

/// Writes the record to the hand-over file, starts the sibling program of the program folder and blocks until it ends.
/// The record is the run's own, but for what that program is to see of it differently.
void HandOverTo(const Run& run, const HandOver& record, const std::string& program);

/// Writes the run's own record to the hand-over file of the link with the accounts product, with what the link is to do
/// in place of `GLrep`, the line of business in place of `SpInc` and a text in place of `Glstatus`.
void WriteOVHandover(const Run& run, const std::string& report, double line, const std::string& status);

} // namespace pgbp
