#include "suite/backup.h"

#include "services/fault.h"
#include "services/fresh_file.h"
#include "services/utf8.h"
#include "store/content_check.h"
#include "store/files.h"
#include "store/schema.h"
#include "suite/practice.h"

namespace pgbp {
namespace {

namespace fs = std::filesystem;

Fault NotAsMade(const fs::path& backup, const std::string& name, const std::string& technical)
{
    return Fault("The backup " + backup.string() + " is damaged: " + name +
                     " is not as it was made. Nothing was restored. Take another one: \"pgbp-suite backups\" names "
                     "those there are.",
                 technical);
}

bool IsEmbedded(const fs::path& file)
{
    try {
        return KindOf(file) == FileKind::Embedded;
    } catch (const StoreError&) {
        return false; // a settings file
    }
}

void CheckFile(const fs::path& backup, const BackupFile& file)
{
    if (SumOf(backup / file.name) != file.sum)
        throw NotAsMade(backup, file.name, "Another sum than the record's.");
    if (!IsEmbedded(backup / file.name))
        return;
    if (const auto damage = DamageOfQuiet(backup / file.name))
        throw NotAsMade(backup, file.name, *damage);
}

BackupRecord CheckedRecord(const fs::path& backup)
{
    const auto record = ReadBackupRecord(backup);
    if (!record)
        throw std::runtime_error("There is no whole backup in " + backup.string() +
                                 ". \"pgbp-suite backups\" names those there are.");
    for (const BackupFile& file : record->files)
        CheckFile(backup, file);
    return *record;
}

void CopyFile(const fs::path& backup, const BackupFile& file, const fs::path& to)
{
    fs::create_directories(to.parent_path());
    FreshFile copy(to, Rights::OwnerAlone);
    copy.WriteCopyOf(backup / file.name);
    if (SumOf(copy.path()) != file.sum)
        throw NotAsMade(backup, file.name, "Its copy has another sum.");
    copy.TakeRightsOf(backup / file.name);
    copy.TakePlace();
}

/// What belongs to the place and not to the work: the hand-over and the working file, which each run fills anew.
void AddPassingFiles(const PracticeFolders& made, const fs::path& place)
{
    fs::create_directories(made.Server());
    fs::create_directories(made.NewHandOver());
    fs::create_directories(made.Client() / "data");
    CreateEmbeddedFile(made.NewHandOver() / "VornTemp.mdb", "VornTemp");
    CreateEmbeddedFile(made.Client() / "data" / "qeltemp.mdb", "qeltemp");
    FreshFile drive(made.program / "Drive.txt");
    drive.Write(PracticeFolders{place}.NewHandOver().string() + '\n');
    drive.TakePlace();
}

/// Books that lay in the practice lie in the new one; others stay where they are.
void LinkBooks(const PracticeFolders& made, const PracticeFolders& before, const fs::path& place)
{
    const std::string books = PracticeFolders{place}.NewBooks().string();
    const fs::path company = made.Server() / "company.mdb";
    if (!fs::is_directory(made.NewBooks()) || !IsEmbedded(company) ||
        CharacterCount(books) > ColumnWidth("company", "misc_items", "linking"))
        return;
    OpenFile({company, {}})
        .Execute("update {misc_items} set linking = ? where [Type] = 'OVPATH' and linking = ?", books,
                 before.NewBooks().string());
}

} // namespace

void RestoreBackup(const fs::path& backup, const fs::path& newFolder)
{
    const fs::path place = fs::absolute(newFolder).lexically_normal();
    RefuseUnlessFree(place);
    try {
        const BackupRecord record = CheckedRecord(backup);
        FreshFolder work(place);
        for (const BackupFile& file : record.files)
            CopyFile(backup, file, work.path() / file.name);
        AddPassingFiles({work.path()}, work.place());
        LinkBooks({work.path()}, {record.practice}, work.place());
        work.TakePlace();
    } catch (const Fault& refused) {
        if (refused.place().name.empty())
            throw;
        throw Fault(refused.cause(), Attempt::Restore, refused.place(), refused.technical());
    } catch (const fs::filesystem_error& refused) {
        throw Fault(CauseOf(refused.code().value()), Attempt::Restore, {refused.path1().string()}, refused.what());
    }
}

} // namespace pgbp
