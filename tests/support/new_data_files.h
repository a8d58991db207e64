#pragma once

#include "store/files.h"
#include "support/temporary_folder.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// Makes new, empty data files in the folder ("tax" as tax.mdb) and opens them in one session.
inline std::vector<Connection> OpenNewDataFiles(const TemporaryFolder& folder,
                                                std::initializer_list<std::string_view> names)
{
    std::vector<DataFile> files;
    for (const std::string_view name : names) {
        files.push_back({.path = folder.path() / (std::string(name) + ".mdb"), .dsn = {}});
        CreateEmbeddedFile(files.back().path, name);
    }
    return OpenFiles(files);
}

} // namespace pgbp
