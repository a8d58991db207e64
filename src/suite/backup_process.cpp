#include "suite/backup_process.h"

#include "desktop/captions.h"

namespace pgbp {

BackupProcess::BackupProcess(const std::filesystem::path& suite, const std::filesystem::path& programFolder)
    : program_(Text(suite.string())), words_{"--program-folder", Text(programFolder.string()), "backup"}
{
    QObject::connect(&process_, &QProcess::finished, [this](int exitCode, QProcess::ExitStatus how) {
        End(how == QProcess::CrashExit || exitCode != 0);
    });
    QObject::connect(&process_, &QProcess::errorOccurred, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            ended("The program " + program_ + " could not be started: no backup was made.", true);
    });
}

BackupProcess::~BackupProcess() { process_.disconnect(); }

void BackupProcess::Start() { process_.start(program_, words_); }

void BackupProcess::End(bool isFailure)
{
    const QString said =
        QString::fromUtf8(isFailure ? process_.readAllStandardError() : process_.readAllStandardOutput());
    const QString told = said.simplified().remove(0, said.startsWith("pgbp-suite: ") ? 12 : 0);
    ended(told.isEmpty() ? "The backup ended before it was finished. The earlier ones stay as they are." : told,
          isFailure);
}

void BackupProcess::LeaveBehind()
{
    process_.disconnect();
    const bool wasRunning = IsRunning();
    if (wasRunning) {
        process_.kill(); // what it made does not count
        process_.waitForFinished();
    }
    QProcess::startDetached(program_, wasRunning ? words_ : words_ + QStringList{"if-due"});
}

} // namespace pgbp
