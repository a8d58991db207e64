#pragma once

#include "startup/run.h"

#include <filesystem>
#include <string>

namespace pgbp::report {

/// Message boxes of a run that nobody sits at: a question is answered by Yes, an error is thrown to whoever asked for
/// the report.
class SilentBoxes : public MessageBoxes {
  public:
    Answer Show(const Message& message) override;
};

class NoFiles : public FileDialogs {
  public:
    std::optional<std::filesystem::path> AskOpen(const std::string&, const std::string&) override { return {}; }
    std::optional<std::filesystem::path> AskSave(const std::string&, const std::string&) override { return {}; }
};

/// Starts nothing.
class NoProcesses : public Processes {
  public:
    int RunAndWait(const std::filesystem::path&, const std::vector<std::string>&) override { return 0; }
    void Start(const std::filesystem::path&) override {}
    bool Open(const std::filesystem::path&) override { return false; }
};

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
