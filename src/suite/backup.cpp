#include "suite/backup.h"

#include "services/fault.h"
#include "services/fresh_file.h"
#include "services/ini_file.h"
#include "services/name_lock.h"
#include "services/text.h"
#include "store/connection.h"
#include "store/content_check.h"
#include "store/copies_at_one_moment.h"
#include "suite/backup_files.h"
#include "suite/practice.h"

#include <algorithm>
#include <ctime>
#include <sys/stat.h>

namespace pgbp {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kNotes = "backup.ini"; // in the client folder: how the last one ended

std::string DayOf(const DateTime& moment) { return IsoText(moment).substr(0, 10); }

/// A day and a number, "2026-11-23-1"; the number, or 0 for any other name.
int NumberIn(const std::string& name)
{
    constexpr std::size_t kDay = 10;
    const bool hasDay = name.size() > kDay + 1 && name[kDay] == '-' && FromIsoText(name.substr(0, kDay));
    const std::string digits = hasDay ? name.substr(kDay + 1) : "";
    const bool isNumber = !digits.empty() && digits.size() < 6 && digits.find_first_not_of("0123456789") == digits.npos;
    return isNumber ? std::stoi(digits) : 0;
}

fs::path FreePlace(const fs::path& folder, const std::string& day)
{
    for (int number = 1;; ++number)
        if (fs::path place = folder / (day + '-' + std::to_string(number)); !fs::exists(fs::symlink_status(place)))
            return place;
}

/// What a killed backup was making, or one was removing. Nobody else makes one meanwhile: the lock is ours.
void RemoveLeftovers(const fs::path& folder)
{
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder))
        if (IsNameInTheMaking(entry.path()) && NumberIn(entry.path().stem().stem().string()) != 0)
            fs::remove_all(entry.path(), ignored);
}

/// Out of the way in one step first: half a backup never stands where a whole one does. What can not be removed now is
/// no reason to take back the new one.
void RemoveOlderThanKept(const fs::path& programFolder, const Backup& newest)
try {
    std::error_code ignored;
    std::size_t kept = 1; // the new one, also where the clock was set back
    for (const Backup& each : Backups(programFolder)) {
        if (each.folder == newest.folder || ++kept <= kKeptBackups)
            continue;
        const fs::path aside = NameInTheMaking(each.folder);
        fs::rename(each.folder, aside, ignored);
        fs::remove_all(aside, ignored);
    }
} catch (const std::runtime_error&) { // the next one removes them
}

std::int64_t ChangedAt(const fs::path& file)
{
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    struct stat its {};
    return stat(file.c_str(), &its) == 0 ? its.st_mtim.tv_sec * kNanoseconds + its.st_mtim.tv_nsec : 0;
}

/// The day on which the file was written last, on this computer's clock.
std::string DayOfChange(const fs::path& file)
{
    struct stat its {};
    struct tm local {};
    if (stat(file.c_str(), &its) != 0 || !localtime_r(&its.st_mtime, &local))
        return "";
    return DayOf({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday});
}

/// Makes one backup in a folder that nobody sees yet.
class BackupInWork {
  public:
    BackupInWork(const fs::path& practice, const fs::path& place, const DateTime& now)
        : practice_(practice), work_(place)
    {
        record_.practice = practice.string();
        record_.moment = IsoText(now);
    }

    void Make()
    {
        BackedUpFiles found = FilesToBackUp(practice_);
        record_.without = std::move(found.without);
        std::vector<FileToCopy> embedded;
        for (const PracticeFile& file : found.files) {
            record_.files.push_back({.name = file.name, .changed = ChangedAt(practice_ / file.name)});
            fs::create_directories(CopyOf(file.name).parent_path());
            if (file.isEmbedded)
                embedded.push_back({practice_ / file.name, CopyOf(file.name)});
            else
                CopyPlain(file.name);
        }
        CopyAtOneMoment(embedded);
        for (const FileToCopy& each : embedded)
            Check(each);
        for (BackupFile& file : record_.files) {
            file.size = fs::file_size(CopyOf(file.name));
            file.sum = SumOf(CopyOf(file.name));
        }
        WriteBackupRecord(work_.path(), record_);
    }

    /// From here on it counts.
    Backup Finish()
    {
        work_.TakePlace();
        return {work_.place(), record_};
    }

    /// The path of a file in the making as the one that it would have had.
    std::string InItsPlace(const std::string& path) const
    {
        return work_.path().empty() ? path : Replace(path, work_.path().string(), work_.place().string());
    }

  private:
    fs::path CopyOf(const std::string& name) const { return work_.path() / name; }

    void CopyPlain(const std::string& name) const
    {
        FreshFile copy(CopyOf(name), Rights::OwnerAlone);
        copy.WriteCopyOf(practice_ / name);
        copy.TakeRightsOf(practice_ / name);
        copy.TakePlace();
    }

    static void Check(const FileToCopy& file)
    {
        if (const auto damage = DamageOfQuiet(file.to))
            throw StoreError(Cause::Damaged, Attempt::Backup, {file.from.string()}, *damage);
        std::error_code ignored; // a disk of another kind knows no such rights
        fs::permissions(file.to, fs::status(file.from).permissions(), ignored);
    }

    const fs::path practice_;
    FreshFolder work_;
    BackupRecord record_;
};

Backup Made(const fs::path& practice, const fs::path& place, const DateTime& now)
{
    BackupInWork work(practice, place, now);
    try {
        work.Make();
        return work.Finish();
    } catch (const Fault& refused) {
        if (refused.place().name.empty())
            throw;
        throw Fault(refused.cause(), Attempt::Backup, {work.InItsPlace(refused.place().name)}, refused.technical());
    } catch (const fs::filesystem_error& refused) {
        throw Fault(CauseOf(refused.code().value()), Attempt::Backup, {work.InItsPlace(refused.path1().string())},
                    refused.what());
    }
}

Backup MadeAlone(const fs::path& practice, const DateTime& now)
{
    const fs::path folder = BackupFolder(practice);
    try {
        fs::create_directories(folder);
        const NameLock lock(folder / "pgbp.lock", "backup");
        if (lock.IsTaken())
            throw Fault("Another backup is being made just now. Wait until it is finished, then try again.");
        RemoveLeftovers(folder);
        Backup made = Made(practice, FreePlace(folder, DayOf(now)), now);
        RemoveOlderThanKept(practice, made);
        return made;
    } catch (const fs::filesystem_error& refused) {
        throw Fault(CauseOf(refused.code().value()), Attempt::Backup, {folder.string()}, refused.what());
    } catch (const Fault& refused) {
        if (refused.place().name.empty())
            throw;
        throw Fault(refused.cause(), Attempt::Backup, refused.place(), refused.technical());
    }
}

fs::path FolderOfPractice(const fs::path& programFolder)
{
    if (!IsPractice(programFolder) && !IsOnServer(programFolder))
        throw NoPractice(programFolder);
    return fs::canonical(programFolder);
}

/// How the last one ended is told at the next start: who made it at the end of a day saw nothing of it.
void NoteEnd(const fs::path& practice, const std::string& failure)
{
    const clsIniFile notes{PracticeFolders{practice}.Client() / kNotes};
    try {
        if (notes.GetValue("LAST", "Failure") != failure)
            notes.WriteValue("LAST", "Failure", failure);
    } catch (const Fault&) { // a folder without room tells the same by itself
        return;
    }
}

/// The files in which work is stored, with the time of the last change.
std::vector<std::pair<std::string, std::int64_t>> WorkIn(const BackupRecord& record)
{
    std::vector<std::pair<std::string, std::int64_t>> work;
    for (const BackupFile& file : record.files)
        if (HoldsWork(file.name))
            work.emplace_back(file.name, file.changed);
    return work;
}

std::vector<std::pair<std::string, std::int64_t>> WorkIn(const fs::path& practice)
{
    std::vector<std::pair<std::string, std::int64_t>> work;
    for (const PracticeFile& file : FilesToBackUp(practice).files)
        if (HoldsWork(file.name))
            work.emplace_back(file.name, ChangedAt(practice / file.name));
    return work;
}

std::string LastDayOfWork(const fs::path& practice)
{
    std::string last;
    for (const PracticeFile& file : FilesToBackUp(practice).files)
        if (HoldsWork(file.name))
            last = std::max(last, DayOfChange(practice / file.name));
    return last;
}

std::string DaysWords(const std::string& isoDay) { return DayText(FromIsoText(isoDay).value_or(DateTime())); }

} // namespace

fs::path BackupFolder(const fs::path& programFolder)
{
    const std::string told = clsIniFile{programFolder / "Settings.ini"}.GetValue("BACKUP", "Folder");
    return fs::absolute(programFolder) / (told.empty() ? "backups" : told);
}

std::vector<Backup> Backups(const fs::path& programFolder)
{
    std::vector<Backup> found;
    const fs::path folder = BackupFolder(programFolder);
    if (!fs::is_directory(folder))
        return found;
    const std::string practice = fs::canonical(programFolder).string();
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (NumberIn(entry.path().filename().string()) == 0)
            continue;
        if (auto record = ReadBackupRecord(entry.path()); record && record->practice == practice)
            found.push_back({entry.path(), std::move(*record)});
    }
    const auto order = [](const Backup& each) { return std::pair(each.Name().substr(0, 10), NumberIn(each.Name())); };
    std::ranges::sort(found, std::greater(), order);
    return found;
}

Backup MakeBackup(const fs::path& programFolder, const DateTime& now)
{
    const fs::path practice = FolderOfPractice(programFolder);
    try {
        Backup made = MadeAlone(practice, now);
        NoteEnd(practice, "");
        return made;
    } catch (const std::exception& failure) {
        NoteEnd(practice, Replace(PreparersWords(failure), "\n\n", " "));
        throw;
    }
}

bool IsBackupDue(const fs::path& programFolder, const DateTime& now)
{
    const fs::path practice = FolderOfPractice(programFolder);
    const auto made = Backups(practice);
    return made.empty() || (made.front().Day() != DayOf(now) && WorkIn(made.front().record) != WorkIn(practice));
}

std::string BackupWarning(const fs::path& programFolder, const DateTime& now)
{
    const fs::path practice = FolderOfPractice(programFolder);
    const std::string failure = clsIniFile{PracticeFolders{practice}.Client() / kNotes}.GetValue("LAST", "Failure");
    if (!failure.empty())
        return failure + " (Alt+B makes one.)";
    const auto made = Backups(practice);
    const std::string backedUp = made.empty() ? "" : std::string(made.front().Day());
    const std::string worked = LastDayOfWork(practice);
    if (worked <= backedUp || worked >= DayOf(now) ||
        (!made.empty() && WorkIn(made.front().record) == WorkIn(practice)))
        return "";
    return "What was stored on " + DaysWords(worked) + " is in no backup yet. Alt+B makes one.";
}

} // namespace pgbp
