#include "store/copies_at_one_moment.h"

#include "store/causes.h"
#include "store/connection.h"
#include "store/embedded_code.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <list>
#include <thread>
#include <vector>

namespace pgbp {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kPagesAtOnce = 1000;
constexpr std::chrono::milliseconds kPause(2);
constexpr std::chrono::seconds kLongestHold(2);
constexpr std::chrono::minutes kLongestTry(1);

bool IsBusy(int code) { return code == SQLITE_BUSY || code == SQLITE_LOCKED; }

/// One file on its way. Of a file that another program changes meanwhile the engine begins the copy anew by itself.
class Copy {
  public:
    explicit Copy(const FileToCopy& file)
        : file_(file), source_(file.from.string(), SQLite::OPEN_READWRITE),
          target_(file.to.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE), backup_(target_, source_)
    {
        target_.exec("pragma synchronous = off"); // the maker of the whole puts it on the disk
        target_.exec("pragma journal_mode = off");
    }

    const FileToCopy& file() const { return file_; }

    /// Nearly all of the file, in pieces between which others get their turn; once through, whatever they change.
    void CopyMost()
    {
        Step(0);
        for (int pieces = Left() / kPagesAtOnce + 1; pieces > 0 && Left() > 1; --pieces) {
            Step(std::min(kPagesAtOnce, Left() - 1));
            std::this_thread::sleep_for(kPause);
        }
    }

    /// From here on the file stays as it is. False when another program is just storing.
    bool Hold()
    {
        source_.exec("begin");
        try {
            source_.execAndGet("select count(*) from sqlite_master"); // the lock is taken when the file is read
            return true;
        } catch (const SQLite::Exception& error) {
            if (!IsBusy(error.getErrorCode()))
                throw;
            return false;
        }
    }

    void Release() { source_.tryExec("rollback"); }

    /// What is left of it. False when that takes until after `end`.
    bool Finish(Clock::time_point end)
    {
        while (Step(kPagesAtOnce) != SQLITE_DONE)
            if (Clock::now() > end)
                return false;
        return true;
    }

  private:
    int Step(int pages) { return backup_.executeStep(pages); }
    int Left() const { return backup_.getRemainingPageCount(); }

    const FileToCopy& file_;
    SQLite::Database source_;
    SQLite::Database target_;
    SQLite::Backup backup_; // it goes before the two
};

/// The files held, those that could be.
class Held {
  public:
    ~Held()
    {
        for (Copy* copy : held_)
            copy->Release();
    }
    Held() = default;
    Held(const Held&) = delete;

    bool Hold(Copy& copy)
    {
        held_.push_back(&copy);
        return copy.Hold();
    }

  private:
    std::vector<Copy*> held_;
};

/// Called at once: the system's error number is that of the engine's last file call. Only the copy can fill a disk.
StoreError Refused(const SQLite::Exception& error, const FileToCopy& file)
{
    const Cause cause = EmbeddedCause(CodeOf(error), errno);
    const auto& place = cause == Cause::DiskFull ? file.to : file.from;
    return {cause, Attempt::Backup, {place.string()}, error.what()};
}

/// Does the work for each file; what the engine refuses becomes a refusal that names it.
template <typename Work>
bool ForEach(std::list<Copy>& copies, Work work)
{
    for (Copy& copy : copies)
        try {
            if (!work(copy))
                return false;
        } catch (const SQLite::Exception& error) {
            throw Refused(error, copy.file());
        }
    return true;
}

std::list<Copy> Opened(std::span<const FileToCopy> files)
{
    std::list<Copy> copies;
    for (const FileToCopy& file : files)
        try {
            copies.emplace_back(file);
        } catch (const SQLite::Exception& error) {
            throw Refused(error, file);
        }
    return copies;
}

enum class Outcome { Done, Busy, TooSlow };

/// All files are held before the first of them is finished: that is the moment. Nobody is waited for with a file in
/// hand, since he may wait for that one.
Outcome FinishAtOneMoment(std::list<Copy>& copies)
{
    Held held;
    if (!ForEach(copies, [&](Copy& copy) { return held.Hold(copy); }))
        return Outcome::Busy;
    const auto end = Clock::now() + kLongestHold;
    return ForEach(copies, [&](Copy& copy) { return copy.Finish(end); }) ? Outcome::Done : Outcome::TooSlow;
}

/// The copies at the first such moment; none when it took too long.
bool Copied(std::span<const FileToCopy> files, Clock::time_point end)
{
    std::list<Copy> copies = Opened(files);
    while (Clock::now() < end) {
        ForEach(copies, [](Copy& copy) { return copy.CopyMost(), true; });
        const Outcome outcome = FinishAtOneMoment(copies);
        if (outcome != Outcome::Busy)
            return outcome == Outcome::Done;
        std::this_thread::sleep_for(kPause);
    }
    return false;
}

} // namespace

void CopyAtOneMoment(std::span<const FileToCopy> files)
{
    const auto end = Clock::now() + kLongestTry;
    while (!Copied(files, end)) {
        if (Clock::now() > end)
            throw StoreError(Cause::Locked, Attempt::Backup, {files.front().from.string()},
                             "The files were never free at one moment.");
        for (const FileToCopy& file : files) // some were finished, at a moment that is past
            std::filesystem::remove(file.to);
    }
}

} // namespace pgbp
