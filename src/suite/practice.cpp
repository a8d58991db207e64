#include "suite/practice.h"

#include "services/ini_file.h"
#include "services/text.h"
#include "store/files.h"

#include <stdexcept>

namespace pgbp {
namespace {

void CheckIsPractice(const std::filesystem::path& folder)
{
    if (!IsPractice(folder))
        throw NoPractice(folder);
    if (IsOnServer(folder))
        throw std::runtime_error("The practice in " + folder.string() +
                                 " keeps its data on a database server (Settings.ini, DB=SQL). "
                                 "pgbp-suite works on data files only.");
}

} // namespace

std::runtime_error NoPractice(const std::filesystem::path& folder)
{
    return std::runtime_error("There is no practice in " + folder.string() +
                              ". \"pgbp-suite new FOLDER\" makes one; \"--program-folder FOLDER\" names another.");
}

bool IsOnServer(const std::filesystem::path& programFolder)
{
    return EqualsIgnoringCase(clsIniFile{programFolder / "Settings.ini"}.GetValue("DBTYPE", "DB"), "SQL");
}

bool IsPractice(const std::filesystem::path& programFolder)
{
    return FileExists(PracticeFolders{programFolder}.Server() / "company.mdb") == 1;
}

Practice::Practice(const std::filesystem::path& programFolder) : folders{std::filesystem::absolute(programFolder)}
{
    CheckIsPractice(folders.program);
    std::vector<DataFile> files;
    for (const char* name : {"company.mdb", "balance.mdb", "tax.mdb"})
        files.push_back({folders.Server() / name, {}});
    const auto opened = OpenFiles(files);
    company = opened[0];
    balance = opened[1];
    tax = opened[2];
}

std::filesystem::path Practice::HandOverFile() const
{
    const std::filesystem::path drive = FirstLine(folders.program / "Drive.txt");
    if (!std::filesystem::is_directory(drive))
        throw std::runtime_error(
            "Drive.txt of the practice names the hand-over folder \"" + drive.string() +
            "\", which does not exist. Write the path of the hand-over folder into its first line.");
    return drive / "VornTemp.mdb";
}

} // namespace pgbp
