#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace pgbp {

/// Why a file or a database server refused.
enum class Cause {
    Unknown,
    DiskFull,
    ReadOnly,
    Damaged,
    Locked, ///< another program has it, for longer than a preparer should wait
    Gone,
    WrongPassword,
    NoRights,
    NotADataFile,
    NewerVersion,
    NoDriver,
    DoesNotFit, ///< a text too long, a number too large
    DeviceFailed,
    Uncertain, ///< the session was lost while a save was completed
};

/// What was to be done with it.
enum class Attempt { Open, Read, Save, Backup, Restore };

/// The file or the server.
struct FaultPlace {
    std::string name = {};     ///< path of a file, or name of a server; empty when it is not known
    std::string settings = {}; ///< of a server: the INI file that names it, its user and the password
};

/// A refusal from outside the program. What a preparer is told and what helps the one who mends it stand apart.
class Fault : public std::runtime_error {
  public:
    /// `technical`: the engine's own words and the statement, without values.
    Fault(Cause cause, Attempt attempt, const FaultPlace& place, std::string technical);
    /// A refusal with words of its own for the preparer.
    explicit Fault(const std::string& words, std::string technical = {});

    Cause cause() const { return cause_; }
    const FaultPlace& place() const { return place_; }
    const std::string& technical() const { return technical_; }

  private:
    Cause cause_ = Cause::Unknown;
    FaultPlace place_;
    std::string technical_;
};

/// The cause behind an error number of the operating system.
Cause CauseOf(int systemError);

/// The file that the operating system refused, with its error number.
Fault FileFault(int systemError, Attempt attempt, std::string_view file);

/// What the preparer is told: what could not be done, why and with which file or server, what is left, what to do.
std::string PreparersWords(const std::exception& error);

/// What goes to the log besides; empty where the preparer's words say everything.
std::string TechnicalWords(const std::exception& error);

/// Name of the file that keeps the technical words, in the client folder.
inline constexpr std::string_view kErrorLog = "pgbp-errors.log";

} // namespace pgbp
