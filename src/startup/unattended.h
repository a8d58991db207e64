#pragma once

#include "startup/run.h"

namespace pgbp {

/// Message boxes of a run that nobody sits at: a question is answered by Yes, an error is thrown to whoever started
/// it.
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

} // namespace pgbp
