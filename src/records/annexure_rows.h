#pragma once

#include "startup/run.h"

#include <optional>
#include <string>

namespace pgbp {

/// Told when the working rows of the annexure turn out to be another run's: the line is not saved.
inline constexpr const char* kAnnexureOfAnotherRun =
    "The depreciation annexure was opened by another run on this assessee-year meanwhile. Nothing was saved, and what "
    "you keyed is still here.\n"
    "The annexure of this line has been read anew: check the depreciation and save again.";

/// The depreciation annexure of the line of business that is open. Working rows with the number of the unsaved line
/// stand for the stored ones until the line is saved; the annexure's screen works on them. All runs on an assessee-year
/// share these rows, so each remembers which ones it made.
class WorkAnnexure {
  public:
    explicit WorkAnnexure(const Run& run) : run_(run) {}

    /// Copies the annexure of a line to the working rows, in place of those that there were; without a line there are
    /// none then.
    void Open(std::optional<double> sno);
    /// Puts assets of other books in place of the working rows, all or nothing: the columns that the rows have.
    void Replace(const Recordset& assets);
    /// The annexure's screen was open: the working rows are what it left.
    void TakeOver();
    bool Altered() const { return mine_ != opened_; }
    /// The working rows are still those of this run, and stay so to the end of the caller's transaction.
    bool Claim(const Transaction& proof) const;

    /// Ends the working rows: where the annexure was altered, or the line has another number than the one it was opened
    /// with, they replace the stored rows of the line; else the stored ones stay as they are. Inside a transaction of
    /// the caller, when they are this run's.
    void Store(double sno, const Transaction& proof) const;
    /// Deletes the working rows unless they are another run's.
    void Drop() const;

    /// Depreciation of the working rows when they were opened or taken over, rupees; nothing when there were none.
    std::optional<double> Depreciation() const { return depreciation_; }

  private:
    bool IsMine() const;
    void MoveTo(double sno) const;
    Recordset WorkingRows() const;
    void Take(const Recordset& working);

    const Run& run_;
    std::optional<double> sno_;
    std::string opened_;
    std::string mine_;
    std::optional<double> depreciation_;
};

/// Depreciation of the stored annexure of a line, rupees; nothing where it has none.
std::optional<double> StoredDepreciation(const Run& run, double sno);

} // namespace pgbp
