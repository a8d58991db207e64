#include "services/fault.h"

#include "services/text.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <typeinfo>
#include <utility>

namespace pgbp {
namespace {

/// `{}` is the file or the server, `{ini}` the server's settings, `{log}` the file of technical words.
struct Words {
    Cause cause;
    std::string_view why;
    std::string_view adviceOnFile;
    std::string_view adviceOnServer;
};

constexpr Words kWords[] = {
    {Cause::DiskFull, "the disk that holds {} is full", "Make room on that disk, then try again.",
     "Ask who looks after the server to make room on its disk, then try again."},
    {Cause::ReadOnly, "{} can only be read", "Allow changes to the file and to its folder, then try again.",
     "Ask who looks after the server to open the database for changes, then try again."},
    {Cause::Damaged, "{} is damaged", "Stop working with this file, and put the last copy of it in its place.",
     "Stop working with it, and ask who looks after the server to check the database."},
    {Cause::Locked, "another program is using {}", "Wait a moment, then try again.", "Wait a moment, then try again."},
    {Cause::Gone, "{} can not be reached", "Check that the folder and the network drive are there, then try again.",
     "Check the network and the name of the server in {ini}, then try again."},
    {Cause::WrongPassword, "{} does not accept the user or the password",
     "Ask who looks after the practice's data which password the file has.",
     "Correct the user and the password in {ini}, then try again."},
    {Cause::NoRights, "you have no rights to {}",
     "Ask who looks after the computers for the right to read and change it, then try again.",
     "Ask who looks after the server for the rights of the user that {ini} names, then try again."},
    {Cause::NotADataFile, "{} is no data file of this program", "Put a copy of the right file in its place.",
     "Check the name of the server in {ini}."},
    {Cause::NewerVersion, "{} was written by a newer version of this program", "Install that version on this computer.",
     "Install that version on this computer."},
    {Cause::NoDriver, "the database driver for {} is missing on this computer",
     "Have the driver installed, then try again.",
     "Have the driver installed that SQLTYPE in Settings.ini asks for, then try again."},
    {Cause::DoesNotFit, "an entry is too long or too large for {}", "Shorten the entry, then try again.",
     "Shorten the entry, then try again."},
    {Cause::DeviceFailed, "the disk or the network with {} failed", "Check the disk and the network, then try again.",
     "Check the network, then try again."},
    {Cause::Uncertain, "the connection to {} was lost while the save was completed",
     "Look whether it is stored before you save again.", "Look whether it is stored before you save again."},
    {Cause::Unknown, "{} gave an answer that this program does not know",
     "Try again. If it comes back, show the file {log} in the client folder to who looks after the program.",
     "Try again. If it comes back, show the file {log} in the client folder to who looks after the program."},
};

constexpr std::string_view kOwnMistake =
    "The program could not finish this because of a mistake of its own.\n\nNothing that is stored has changed. Try "
    "again. If it comes back, show the file {log} in the client folder to who looks after the program.";

constexpr std::string_view kAttempts[] = {"The data could not be opened", "The data could not be read",
                                          "The changes could not be saved", "The backup could not be made",
                                          "The backup could not be restored"};

std::string InWords(const FaultPlace& place)
{
    if (place.name.empty())
        return "the data";
    return (place.settings.empty() ? "the file \"" : "the database server \"") + place.name + '"';
}

/// A damaged file is a loss, whatever becomes of this change.
std::string_view WhatIsLeft(Cause cause, Attempt attempt)
{
    if (cause == Cause::Uncertain)
        return "";
    if (attempt == Attempt::Backup)
        return "The earlier backups stay as they are. ";
    return attempt == Attempt::Save && cause != Cause::Damaged ? "Nothing is lost. " : "Nothing was changed. ";
}

std::string Told(Cause cause, Attempt attempt, const FaultPlace& place)
{
    const Words& words =
        *std::find_if(std::begin(kWords), std::end(kWords), [&](const Words& each) { return each.cause == cause; });
    std::string text(kAttempts[static_cast<int>(attempt)]);
    text.append(": ").append(words.why).append(".\n\n").append(WhatIsLeft(cause, attempt));
    text.append(place.settings.empty() ? words.adviceOnFile : words.adviceOnServer);
    text = Replace(Replace(text, "{log}", kErrorLog), "{ini}", place.settings);
    return Replace(text, "{}", InWords(place));
}

} // namespace

Fault::Fault(Cause cause, Attempt attempt, const FaultPlace& place, std::string technical)
    : std::runtime_error(Told(cause, attempt, place)), cause_(cause), place_(place), technical_(std::move(technical))
{
}

Fault::Fault(const std::string& words, std::string technical)
    : std::runtime_error(words), technical_(std::move(technical))
{
}

Cause CauseOf(int systemError)
{
    constexpr std::pair<int, Cause> causes[] = {
        {ENOSPC, Cause::DiskFull},    {EDQUOT, Cause::DiskFull},  {EFBIG, Cause::DiskFull},
        {EROFS, Cause::ReadOnly},     {EACCES, Cause::NoRights},  {EPERM, Cause::NoRights},
        {ENOENT, Cause::Gone},        {ENOTDIR, Cause::Gone},     {ESTALE, Cause::Gone},
        {ENODEV, Cause::Gone},        {EHOSTDOWN, Cause::Gone},   {EHOSTUNREACH, Cause::Gone},
        {ETIMEDOUT, Cause::Gone},     {EIO, Cause::DeviceFailed}, {ENXIO, Cause::DeviceFailed},
        {EAGAIN, Cause::Locked},      {EBUSY, Cause::Locked},     {ETXTBSY, Cause::Locked},
        {EISDIR, Cause::NotADataFile}};
    const auto found =
        std::find_if(std::begin(causes), std::end(causes), [&](const auto& each) { return each.first == systemError; });
    return found == std::end(causes) ? Cause::Unknown : found->second;
}

Fault FileFault(int systemError, Attempt attempt, std::string_view file)
{
    return {CauseOf(systemError), attempt, {std::string(file)}, std::generic_category().message(systemError)};
}

std::string PreparersWords(const std::exception& error)
{
    if (const auto* refused = dynamic_cast<const std::filesystem::filesystem_error*>(&error))
        return Told(CauseOf(refused->code().value()), Attempt::Open, {refused->path1().string()});
    if (const auto* refused = dynamic_cast<const std::system_error*>(&error))
        return Told(CauseOf(refused->code().value()), Attempt::Open, {});
    if (dynamic_cast<const std::runtime_error*>(&error))
        return error.what();
    return Replace(kOwnMistake, "{log}", kErrorLog);
}

std::string TechnicalWords(const std::exception& error)
{
    if (const auto* fault = dynamic_cast<const Fault*>(&error))
        return fault->technical();
    const bool isForPreparers =
        dynamic_cast<const std::runtime_error*>(&error) && !dynamic_cast<const std::system_error*>(&error);
    return isForPreparers ? "" : std::string(typeid(error).name()) + ": " + error.what();
}

} // namespace pgbp
