#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace pgbp {

/// Sibling programs of the suite, started as processes. Each call throws std::runtime_error with the program's name
/// when the program cannot be started.
class Processes {
  public:
    virtual ~Processes() = default;
    /// Starts the program and comes back when it has ended, however long that takes. Gives its exit code.
    virtual int RunAndWait(const std::filesystem::path& program, const std::vector<std::string>& arguments) = 0;
    int RunAndWait(const std::filesystem::path& program) { return RunAndWait(program, {}); }
    /// Starts the program and comes back at once.
    virtual void Start(const std::filesystem::path& program) = 0;
    /// Asks the platform to show a file in the program of its kind, and comes back at once. False when there is nobody
    /// to ask.
    virtual bool Open(const std::filesystem::path& file) = 0;
};

/// Processes of this computer.
class SystemProcesses : public Processes {
  public:
    using Processes::RunAndWait;
    int RunAndWait(const std::filesystem::path& program, const std::vector<std::string>& arguments) override;
    void Start(const std::filesystem::path& program) override;
    bool Open(const std::filesystem::path& file) override;
};

} // namespace pgbp
