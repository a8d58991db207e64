#pragma once

#include <QProcess>

#include <filesystem>
#include <functional>

namespace pgbp {

/// A backup of the practice by a process of its own, so that nobody waits for it, and no lock of this process on the
/// data files is in its way.
class BackupProcess {
  public:
    /// `suite` is the program that makes it.
    BackupProcess(const std::filesystem::path& suite, const std::filesystem::path& programFolder);
    ~BackupProcess();

    /// Called when it has ended or could not be started, with what the preparer is told.
    std::function<void(const QString& told, bool isFailure)> ended;

    void Start();
    bool IsRunning() const { return process_.state() != QProcess::NotRunning; }

    /// Has a backup made that goes on when this program has ended: the one that runs, begun anew, else one if it is
    /// due.
    void LeaveBehind();

  private:
    void End(bool isFailure);

    QString program_;
    QStringList words_;
    QProcess process_;
};

} // namespace pgbp
