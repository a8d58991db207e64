#include "suite/backup_files.h"

#include "services/fault.h"
#include "services/fresh_file.h"
#include "services/text.h"
#include "store/files.h"
#include "suite/practice.h"

#include <algorithm>
#include <iterator>

namespace pgbp {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFolders[] = {"", "server", "client", "accounts"};

/// A practice does not work without these, so something else in their place is not copied as if it were one.
constexpr std::string_view kDataFiles[] = {
    "server/company.mdb", "server/balance.mdb", "server/tax.mdb", "server/misc.mdb",
    "server/export1.mdb", "server/export2.mdb", "qel.mmm",        "VornTemp.mdb"};

/// Journals, locks, logs, copies before an upgrade, and what is in the making.
bool IsPassing(const fs::path& file)
{
    constexpr std::string_view kEndings[] = {"-journal", "-wal", "-shm", ".lock", ".bak", ".log", ".log.1"};
    const std::string name = file.filename().string();
    return IsNameInTheMaking(file) || name.find(".mdb-mj") != std::string::npos || name == "backup.ini" ||
           std::ranges::any_of(kEndings, [&](std::string_view ending) { return name.ends_with(ending); });
}

enum class Kind { Plain, Embedded, Jet };

Kind KindOfFile(const fs::path& programFolder, const std::string& name)
{
    try {
        return KindOf(programFolder / name) == FileKind::Jet ? Kind::Jet : Kind::Embedded;
    } catch (const StoreError& error) {
        const bool isNone = error.cause() == Cause::NotADataFile;
        if (!isNone || std::ranges::find(kDataFiles, name) != std::end(kDataFiles))
            throw StoreError(error.cause(), Attempt::Backup, error.place(), error.technical());
        return Kind::Plain;
    }
}

std::vector<std::string> NamesIn(const fs::path& programFolder, const fs::path& folder)
{
    std::vector<std::string> names;
    if (fs::is_directory(programFolder / folder))
        for (const auto& entry : fs::directory_iterator(programFolder / folder))
            if (!entry.is_symlink() && entry.is_regular_file() && !IsPassing(entry.path()))
                names.push_back((folder / entry.path().filename()).string());
    std::ranges::sort(names);
    return names;
}

} // namespace

BackedUpFiles FilesToBackUp(const fs::path& programFolder)
{
    BackedUpFiles found;
    if (IsOnServer(programFolder))
        found.without.emplace_back("company and balance, which lie on the database server: a copy of them is made by "
                                   "who looks after the server");
    for (const std::string_view folder : kFolders)
        for (const std::string& name : NamesIn(programFolder, folder)) {
            const Kind kind = KindOfFile(programFolder, name);
            if (name.find('\n') != std::string::npos)
                found.without.push_back(Replace(name, "\n", " ") + ", whose name has more than one line");
            else if (kind == Kind::Jet)
                found.without.push_back(name + ", a file of another database engine: copy it while nobody works");
            else
                found.files.push_back({name, kind == Kind::Embedded});
        }
    return found;
}

bool HoldsWork(const std::string& name) { return !name.starts_with("client/") && name != "VornTemp.mdb"; }

} // namespace pgbp
