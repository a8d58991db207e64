#pragma once

#include "store/connection.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace pgbp {

enum class FileKind { Embedded, Jet };

/// What kind of store a data file is, read from the file itself. Throws StoreError that names the file and what was
/// expected when it is missing, not readable or of an unknown kind. Nothing is created. Not to be asked about a file
/// while a transaction of this process is open on it: closing the file lets go of the process's locks on it.
FileKind KindOf(const std::filesystem::path& file);

/// A data file with what its connection string tells besides; an embedded file needs the path alone.
struct DataFile {
    std::filesystem::path path;
    std::filesystem::path dsn;          ///< empty: the file of another product, which has none of ours
    bool password = true;               ///< the suite's password; the working file has none
    std::filesystem::path defaultDir{}; ///< empty: the folder of the file
};

/// Opens data files, one connection each, in the order given. Embedded files of one call share one session, so that one
/// Transaction commits them together; Jet files are opened through the platform's ODBC driver. Embedded files are
/// brought up to the present schema version first, with a copy of the file before each upgrade step. Throws StoreError
/// that names the file when it is damaged, foreign or of a newer version.
std::vector<Connection> OpenFiles(std::span<const DataFile> files);

/// One file in a session of its own.
Connection OpenFile(const DataFile& file);

/// One file of another product, whose matters are its own: nothing is written to it, not even what a crash of its owner
/// left to be rolled back, and nobody is waited for. Throws StoreError that names the file.
Connection OpenFileToRead(const DataFile& file);

/// Makes, whole and in one step, a new, empty embedded data file with the tables that `file` ("company", "qeltemp",
/// "VornTemp" ...) holds in the inventory. Throws StoreError when the path exists.
void CreateEmbeddedFile(const std::filesystem::path& path, std::string_view file);

/// The ODBC connection string of a Jet file, and of one that is only read.
std::string JetConnectionString(const DataFile& file);
std::string ReadingJetConnectionString(const DataFile& file);

} // namespace pgbp
