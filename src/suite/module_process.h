#pragma once

#include <QProcess>

#include <filesystem>
#include <functional>

namespace pgbp {

/// The module as a child program of a window that stays alive meanwhile.
class ModuleProcess {
  public:
    explicit ModuleProcess(const std::filesystem::path& program);
    ~ModuleProcess();

    /// Called when it has ended or could not be started, with what went wrong, empty after an ordinary end, and with
    /// what it wrote on its error stream: the reason when it ended silently.
    std::function<void(const QString& failure, const QString& said)> ended;

    /// Starts it on the program folder of a practice.
    void Start(const std::filesystem::path& programFolder);
    bool IsRunning() const { return process_.state() != QProcess::NotRunning; }

  private:
    std::filesystem::path program_;
    QProcess process_;
};

} // namespace pgbp
