#include "suite/line_program.h"

#include "desktop/captions.h"

namespace pgbp {

LineProgram::LineProgram(const std::filesystem::path& program) : program_(Text(program.string()))
{
    QObject::connect(&process_, &QProcess::readyReadStandardOutput, [this] { ReadLines(); });
    QObject::connect(&process_, &QProcess::finished,
                     [this](int status, QProcess::ExitStatus how) { End(status, how == QProcess::CrashExit); });
    QObject::connect(&process_, &QProcess::errorOccurred, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            ended("The program " + program_ + " could not be started.");
    });
}

LineProgram::~LineProgram()
{
    process_.disconnect();
    process_.kill();
    process_.waitForFinished();
}

void LineProgram::Start(const QStringList& arguments, const QByteArray& input)
{
    stopped_ = false;
    process_.start(program_, arguments);
    process_.write(input);
    process_.closeWriteChannel();
}

void LineProgram::Stop()
{
    stopped_ = true;
    process_.kill();
}

void LineProgram::ReadLines()
{
    while (process_.canReadLine()) {
        QString line = QString::fromUtf8(process_.readLine());
        line.chop(1);
        told(line);
    }
}

void LineProgram::End(int status, bool crashed)
{
    ReadLines();
    QString failure;
    if (!stopped_ && (crashed || (status != 0 && status != mayEndWith))) {
        failure = QString::fromUtf8(process_.readAllStandardError()).trimmed();
        if (failure.isEmpty())
            failure = "The program " + program_ + " ended before it was finished.";
    }
    ended(failure);
}

} // namespace pgbp
