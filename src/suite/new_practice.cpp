#include "services/fresh_file.h"
#include "services/ini_file.h"
#include "services/utf8.h"
#include "store/files.h"
#include "suite/assessee_years.h"
#include "suite/client_settings.h"
#include "suite/clients.h"
#include "suite/row_writer.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <stdexcept>

namespace pgbp {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesIn(const fs::path& folder, std::string_view extension)
{
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == extension)
            files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

void WriteTextFile(const fs::path& path, std::string_view text)
{
    std::ofstream out(path);
    out << text;
    if (!out.flush())
        throw std::runtime_error("The file " + path.string() + " cannot be written.");
}

void CreateDataFiles(const PracticeFolders& folders)
{
    fs::create_directories(folders.Server());
    fs::create_directories(folders.Client() / "data");
    fs::create_directories(folders.NewHandOver());
    for (const std::string name : {"company", "balance", "tax", "misc", "export1", "export2"})
        CreateEmbeddedFile(folders.Server() / (name + ".mdb"), name);
    CreateEmbeddedFile(folders.Client() / "data" / "qeltemp.mdb", "qeltemp");
    CreateEmbeddedFile(folders.program / "qel.mmm", "qel");
    CreateEmbeddedFile(folders.program / "VornTemp.mdb", "VornTemp");
    fs::copy_file(folders.program / "VornTemp.mdb", folders.NewHandOver() / "VornTemp.mdb");
    fs::create_directories(folders.NewBooks());
    CreateEmbeddedFile(folders.NewBooks() / "balancesheet.mdb", "balancesheet");
}

void AddRows(const Connection& connection, std::string_view table, const TableText& text)
{
    const RowWriter writer(connection, table, text.columns);
    for (const auto& row : text.rows)
        writer.Add(row);
}

/// The tables for which the data folder holds a file under their name.
void AddTableFiles(const Connection& connection, std::string_view file, const fs::path& dataFolder)
{
    for (const Table& table : Tables()) {
        const fs::path path = dataFolder / file / (std::string(table.name) + ".tsv");
        if (table.file == file && FileExists(path))
            AddRows(connection, table.name, ReadTable(path, table));
    }
}

const Table& TemplateTable(std::string_view name)
{
    return *std::ranges::find_if(Tables(),
                                 [&](const Table& table) { return table.file == "tax" && table.name == name; });
}

/// The statement templates: one file each, under the name by which a template is chosen.
void AddTemplates(const Connection& connection, std::string_view table, const fs::path& dataFolder)
{
    for (const fs::path& path : FilesIn(dataFolder / table, ".tsv")) {
        TableText text = ReadTable(path, TemplateTable(table));
        text.columns.emplace_back("d_type");
        for (auto& row : text.rows)
            row.emplace_back(path.stem().string());
        AddRows(connection, table, text);
    }
}

void AddClients(const Practice& practice, const fs::path& dataFolder)
{
    LineNumbers lines(practice.company);
    for (const fs::path& path : FilesIn(dataFolder / "clients", ".txt")) {
        const Client client = ReadClient(path);
        WriteClient(practice, client, {client.number}, lines);
        const TableText& years = client.Years();
        for (const auto& row : years.rows)
            SetReturnForm(practice, CodeOf(client.number, row[years.IndexOf("year")].Text()),
                          row[years.IndexOf("itr")].Number());
    }
}

void FillBooks(const fs::path& folder, const fs::path& dataFolder)
{
    const Connection books = OpenFile({folder / "balancesheet.mdb", {}});
    Transaction transaction({books});
    AddTableFiles(books, "balancesheet", dataFolder);
    transaction.Commit();
}

/// A folder whose path is longer than the setting's column stays without the link.
void SetFolderOfBooks(const Connection& company, const std::string& folder)
{
    if (CharacterCount(folder) <= ColumnWidth("company", "misc_items", "linking"))
        company.Insert("misc_items", {{"Type", "OVPATH"}, {"linking", folder}});
}

void FillDataFiles(const fs::path& programFolder, const fs::path& place, const fs::path& dataFolder)
{
    const Practice practice(programFolder);
    const Connection reference = OpenFile({programFolder / "qel.mmm", {}});
    FillBooks(practice.folders.NewBooks(), dataFolder);
    Transaction transaction({practice.company, practice.balance, practice.tax, reference});
    SetFolderOfBooks(practice.company, PracticeFolders{place}.NewBooks().string());
    AddTableFiles(practice.company, "company", dataFolder);
    AddTableFiles(practice.tax, "tax", dataFolder);
    AddTemplates(practice.tax, "taxaudit", dataFolder);
    AddTemplates(practice.tax, "taxauditjson", dataFolder);
    AddTemplates(reference, "taxaudit", dataFolder);
    AddClients(practice, dataFolder);
    transaction.Commit();
}

/// Nothing stands there, or a link of ours that leads to another place: that of another version, or nowhere.
bool WantsLink(const fs::path& place, const fs::path& program)
{
    std::error_code ignored;
    const fs::file_status status = fs::symlink_status(place, ignored);
    if (!fs::is_symlink(status))
        return !fs::exists(status);
    const fs::path target = fs::read_symlink(place, ignored);
    return target != program && (target.filename() == program.filename() || !fs::exists(place, ignored));
}

} // namespace

void RefuseUnlessFree(const std::filesystem::path& folder)
{
    if (fs::exists(folder) && (!fs::is_directory(folder) || !fs::is_empty(folder)))
        throw std::runtime_error("The folder " + folder.string() +
                                 " is not empty. A new practice wants an empty folder, or one that does not exist.");
}

void CreatePractice(const std::filesystem::path& programFolder, const std::filesystem::path& dataFolder)
{
    const fs::path place = fs::absolute(programFolder).lexically_normal();
    RefuseUnlessFree(place);
    FreshFolder work(place);
    const PracticeFolders folders{work.path()};
    CreateDataFiles(folders);
    WriteTextFile(folders.program / "Settings.ini", "[DBTYPE]\nDB=MDB\n");
    WriteTextFile(folders.program / "Drive.txt", PracticeFolders{place}.NewHandOver().string() + '\n');
    fs::copy_file(dataFolder / "vorn.hlp", folders.program / "vorn.hlp");
    FillDataFiles(folders.program, place, dataFolder);
    work.TakePlace();
}

void LinkStandIns(const std::filesystem::path& programFolder, const StandIns& standIns)
{
    const std::pair<const char*, const fs::path&> siblings[] = {{"Audit3CDReader.exe", standIns.auditReader},
                                                                {"OVVORNLink.exe", standIns.booksLink},
                                                                {"VORNLink.exe", standIns.booksLink},
                                                                {"VornRep.exe", standIns.reporter}};
    for (const auto& [name, program] : siblings) {
        const fs::path place = programFolder / name;
        const fs::path target = fs::absolute(program);
        if (!WantsLink(place, target))
            continue;
        const fs::path link = NameInTheMaking(place);
        std::error_code failed;
        fs::create_symlink(target, link, failed);
        if (!failed)
            fs::rename(link, place, failed); // in one step: another program may be starting it
        if (failed)
            fs::remove(link, failed);
    }
}

} // namespace pgbp
