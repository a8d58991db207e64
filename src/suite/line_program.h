#pragma once

#include <QProcess>

#include <filesystem>
#include <functional>

namespace pgbp {

/// A program that tells what it does line by line, while the window stays alive.
class LineProgram {
  public:
    explicit LineProgram(const std::filesystem::path& program);
    ~LineProgram();

    std::function<void(const QString& line)> told;
    /// Called behind the last line. `failure` says why it could not be started, or its own words where it ended with
    /// another status than `mayEndWith`; empty where it ended as it should.
    std::function<void(const QString& failure)> ended;

    /// `input` is what the program reads.
    void Start(const QStringList& arguments, const QByteArray& input = {});
    bool IsRunning() const { return process_.state() != QProcess::NotRunning; }
    /// It ends at once; `ended` is called, without a failure.
    void Stop();

    int mayEndWith = 0; ///< a status that is no failure, beside 0

  private:
    void ReadLines();
    void End(int status, bool crashed);

    QString program_;
    QProcess process_;
    bool stopped_ = false;
};

} // namespace pgbp
