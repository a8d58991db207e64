#pragma once

#include "startup/run.h"

#include <functional>
#include <string_view>

namespace pgbp {

// What a screen of a line of business works on until it is saved: `temp1` holds the detail rows of the line that is
// open, `temp` those of the one list that is open. Both hold nothing that outlives the screen.

/// Empties both working tables of the assessee, also of what a run left behind that did not end.
void EmptyWorkingCopies(const Run& run);

enum class DetailRows { All, WithFirstAmount };

/// Copies the stored detail rows of a line to `temp1`, in place of what it held. The deductions of the summary, and the
/// mark that the partners changed, stay out.
void CopyLineToWork(const Run& run, double sno, DetailRows which);

enum class Apostrophes { Keep, Blank };

/// Copies the rows of `temp1` to the line's detail rows. Inside a transaction of the caller, which has deleted what was
/// stored. `takes` says by the `Type` which rows go along, `inName2` what becomes of the apostrophes there.
void CopyWorkToLine(const Run& run, double sno, const std::function<bool(std::string_view type)>& takes,
                    Apostrophes inName2);

/// Copies the rows of one list from `temp1` to `temp`, in place of what it held; Null texts come as empty ones.
void OpenWorkList(const Run& run, std::string_view type);

/// Replaces the rows of one list in `temp1` by the rows of `temp`, and empties that. Inside a transaction of the
/// caller.
void SaveWorkList(const Run& run, std::string_view type);

/// Leaves the open list: `temp1` stays as it was.
void DropWorkList(const Run& run);

} // namespace pgbp
