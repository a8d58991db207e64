#pragma once

#include "annexure/annexure_row.h"
#include "store/files.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

class Run;

/// One block of the depreciation schedule in an audit report (Form 3CD, clause 18), as the entry fields of the annexure
/// take it. Amounts are whole rupees.
struct Form3cdBlock {
    struct Heading {
        std::string name;
        std::string_view group;
        double rate; ///< percent a year
        bool operator==(const Heading&) const = default;
    };
    /// None for a block number that the annexure does not know: name, group and rate then stay as they stand.
    std::optional<Heading> heading{};
    double opening = 0;
    double purchases1 = 0; ///< put to use for 180 days of the previous year or more
    double purchases2 = 0; ///< for less
    double sales1 = 0;     ///< out of the opening value and the purchases of the first half
    double sales2 = 0;

    bool operator==(const Form3cdBlock&) const = default;
};

/// What was read of a report, in its order.
struct Form3cdSchedule {
    std::vector<Form3cdBlock> blocks;
    std::vector<std::string> unknownNumbers; ///< of the blocks without a heading, as they stand in the report
    int undatedAdditions = 0;                ///< without a date that can be read: they count as of the first half
};

/// Has the sibling program ask for the report and leave its tables in the client folder, waits for its end and reads
/// them. A schedule without blocks where it left none, or where they cannot be read; the log then says why. Throws
/// where the sibling program cannot be started.
Form3cdSchedule ReadForm3cd(const Run& run);

/// The same from the tables that are there, for the assessment year.
Form3cdSchedule ReadForm3cdTables(const Connection& tables, int year);

/// The file that the sibling program leaves.
DataFile Form3cdFile(const std::filesystem::path& clientFolder);

/// Puts the block into the fields it fills; all others, depreciation and total sales among them, stay.
void PutInto(AnnexureRow& entry, const Form3cdBlock& block);

/// What the status line tells when so many of the blocks were added.
std::string NoticeOfImport(const Form3cdSchedule& schedule, std::size_t added);

} // namespace pgbp
