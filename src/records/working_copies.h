#pragma once

#include "startup/run.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

// What a screen of a line of business works on until it is saved: `temp1` holds the detail rows of the line that is
// open, `temp` those of the one list that is open. Both hold nothing that outlives the screen.

/// Empties both working tables of the assessee, also of what a run left behind that did not end.
void EmptyWorkingCopies(const Run& run);

enum class DetailRows { All, WithFirstAmount };

/// Copies the stored detail rows of a line to `temp1`, in place of what it held. The deductions of the summary, and the
/// mark that the partners changed, stay out. `name2` comes without blanks around it. Gives the rows as they are stored.
Recordset CopyLineToWork(const Run& run, double sno, DetailRows which);

/// All of `temp1`.
Recordset ReadWork(const Run& run);

/// Those rows as one text, to tell whether they have changed: list by list, since a save of one moves its rows behind
/// the others. Null, "" and 0 are one, as nothing was entered.
std::string AsComparedText(const Recordset& work);

enum class Apostrophes { Keep, Blank };

/// Copies the rows of `temp1` to the line's detail rows. Inside a transaction of the caller, which has deleted what was
/// stored. `takes` says by the `Type` which rows go along, `inName2` what becomes of the apostrophes there.
void CopyWorkToLine(const Run& run, double sno, const std::function<bool(std::string_view type)>& takes,
                    Apostrophes inName2);

/// An item of the list that is open, a row of `temp`. An amount that the list has no use for is Null.
struct WorkItem {
    std::string name1{};
    std::string name2{};
    std::string name3{};
    std::optional<double> amt1{}; ///< rupees, like the others; the year's number in the allowances
    std::optional<double> amt2{};
    std::optional<double> amt3{};
    std::optional<double> amt4{};

    bool operator==(const WorkItem&) const = default;
};

/// The rows of one list of `temp1`, in order of insertion.
std::vector<WorkItem> ReadWorkList(const Run& run, std::string_view type);

/// Adds items to one list of `temp1`, all or none.
void AddToWork(const Run& run, std::string_view type, const std::vector<WorkItem>& items);

/// Puts the items of the open list into `temp`, in place of what it held.
void WriteWorkList(const Run& run, const std::vector<WorkItem>& items);

/// The same for the rows of a list with other columns; `code` is added.
void WriteWorkRows(const Run& run, std::vector<std::vector<Field>> rows);

/// Replaces the rows of one list in `temp1` by the rows of `temp`, and empties that. Inside a transaction of the
/// caller.
void SaveWorkList(const Run& run, std::string_view type);

/// Leaves the open list: `temp1` stays as it was.
void DropWorkList(const Run& run);

} // namespace pgbp
