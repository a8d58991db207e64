#pragma once

#include "startup/run.h"
#include "startup/unattended.h"

#include <filesystem>
#include <string>

namespace pgbp::report {

/// The data files of a practice, open.
struct PracticeFiles {
    std::filesystem::path programFolder;
    Connection company;
    Connection balance;
    Connection tax;
};

/// A run on a copy of one client's rows: the year of the record and the year before it, with what of the practice's
/// settings the computation asks for. The copy lies in memory and is gone with the run: whatever a screen stores while
/// it is looked at stays there. The year counts as not locked, or the lists of a locked one could not be opened.
class ClientCopy {
  public:
    ClientCopy(const PracticeFiles& practice, const HandOver& record, double returnForm);

    Run& run() { return run_; }
    const std::string& pan() const { return pan_; }

  private:
    void CopyRows(const PracticeFiles& practice);

    SilentBoxes boxes_;
    NoFiles files_;
    NoProcesses processes_;
    Run run_;
    std::string pan_;
};

} // namespace pgbp::report
