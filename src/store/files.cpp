#include "store/files.h"

#include "services/text.h"
#include "store/embedded_engine.h"
#include "store/odbc_engine.h"
#include "store/upgrade.h"

#include <array>
#include <cerrno>
#include <fstream>

namespace pgbp {
namespace {

struct Signature {
    std::size_t at;
    std::string_view bytes;
    FileKind kind;
};

constexpr Signature kSignatures[] = {
    {0, std::string_view("SQLite format 3\0", 16), FileKind::Embedded},
    {4, "Standard Jet DB", FileKind::Jet},
    {4, "Standard ACE DB", FileKind::Jet},
};

std::string Beginning(const std::filesystem::path& file)
{
    std::array<char, 32> bytes;
    std::ifstream stream(file, std::ios::binary);
    if (!stream.read(bytes.data(), bytes.size()) && !stream.eof())
        throw StoreError(CauseOf(errno), Attempt::Open, {file.string()}, "The beginning of the file can not be read.");
    return {bytes.data(), static_cast<std::size_t>(stream.gcount())};
}

/// Backslashes throughout, as the platform of the Jet driver writes a path.
std::string BackslashPath(const std::filesystem::path& path) { return Replace(path.string(), "/", "\\"); }

std::string FolderOf(std::string_view backslashPath)
{
    return std::string(backslashPath.substr(0, backslashPath.find_last_of('\\')));
}

const Dialect& JetDialect(std::string_view) { return kJetDialect; }

Connection OpenJetFile(const DataFile& file, const std::string& connectionString)
{
    try {
        return {OpenOdbcEngine(connectionString, JetDialect), "", {file.path.string()}};
    } catch (const EngineError& error) {
        throw StoreError(error.cause(), Attempt::Open, {file.path.string()}, error.what());
    }
}

} // namespace

FileKind KindOf(const std::filesystem::path& file)
{
    const auto refuse = [&](Cause cause, const std::string& technical) {
        return StoreError(cause, Attempt::Open, {file.string()}, technical);
    };
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status))
        throw refuse(error ? CauseOf(error.value()) : Cause::Gone, "The file is missing. " + error.message());
    if (std::filesystem::is_directory(status))
        throw refuse(Cause::NotADataFile, "A folder stands in the place of the file.");
    const std::string beginning = Beginning(file);
    for (const Signature& signature : kSignatures)
        if (beginning.size() > signature.at && beginning.substr(signature.at).starts_with(signature.bytes))
            return signature.kind;
    throw refuse(Cause::NotADataFile, "The file begins as no data file does.");
}

std::vector<Connection> OpenFiles(std::span<const DataFile> files)
{
    std::vector<Connection> connections(files.size());
    std::vector<std::filesystem::path> embedded;
    std::vector<std::size_t> places;
    std::vector<FileKind> kinds; // of all files before the first one is touched
    for (const DataFile& file : files)
        kinds.push_back(KindOf(file.path));
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (kinds[i] == FileKind::Jet) {
            connections[i] = OpenJetFile(files[i], JetConnectionString(files[i]));
            continue;
        }
        BringUpToDate(files[i].path);
        embedded.push_back(files[i].path);
        places.push_back(i);
    }
    const auto opened = OpenEmbeddedFiles(embedded);
    for (std::size_t i = 0; i < opened.size(); ++i)
        connections[places[i]] = opened[i];
    return connections;
}

Connection OpenFile(const DataFile& file) { return OpenFiles({&file, 1}).front(); }

Connection OpenFileToRead(const DataFile& file)
{
    if (KindOf(file.path) == FileKind::Jet)
        return OpenJetFile(file, ReadingJetConnectionString(file));
    return OpenEmbeddedFileToRead(file.path);
}

std::string JetConnectionString(const DataFile& file)
{
    const std::string path = BackslashPath(file.path);
    const std::string folder = file.defaultDir.empty() ? FolderOf(path) : BackslashPath(file.defaultDir);
    return "DBQ=" + ConnectionPart(path) + ";DefaultDir=" + ConnectionPart(folder) +
           ";Driver={Microsoft Access Driver (*.mdb)};DriverId=25;FIL=MS Access;" +
           (file.dsn.empty() ? "" : "FILEDSN=" + ConnectionPart(BackslashPath(file.dsn)) + ';') +
           "MaxBufferSize=2048;MaxScanRows=8;PageTimeout=5;" + (file.password ? "PWD=QXZ.7;" : "") +
           "SafeTransactions=0;Threads=3;UID=admin;UserCommitSync=Yes;";
}

std::string ReadingJetConnectionString(const DataFile& file) { return JetConnectionString(file) + "READONLY=TRUE;"; }

} // namespace pgbp
