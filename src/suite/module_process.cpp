#include "suite/module_process.h"

#include "desktop/captions.h"

namespace pgbp {

ModuleProcess::ModuleProcess(const std::filesystem::path& program) : program_(program)
{
    QObject::connect(&process_, &QProcess::finished, [this](int exitCode, QProcess::ExitStatus how) {
        const bool failed = how == QProcess::CrashExit || exitCode != 0;
        ended(failed ? "The module ended with a failure." : "",
              QString::fromUtf8(process_.readAllStandardError()).trimmed());
    });
    QObject::connect(&process_, &QProcess::errorOccurred, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            ended("The program " + Text(program_.string()) + " could not be started.", "");
    });
}

ModuleProcess::~ModuleProcess() { process_.disconnect(); }

void ModuleProcess::Start(const std::filesystem::path& programFolder)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PGBP_PROGRAM_FOLDER", Text(programFolder.string()));
    process_.setProcessEnvironment(environment);
    process_.start(Text(program_.string()), QStringList());
}

} // namespace pgbp
