#pragma once

#include "services/processes.h"

#include <filesystem>
#include <iosfwd>
#include <span>
#include <string>

namespace pgbp {

/// What the commands work on.
struct Suite {
    std::filesystem::path programFolder; ///< the practice
    std::filesystem::path dataFolder;    ///< what a new practice starts with
    std::filesystem::path module;        ///< the program that is started
    std::filesystem::path auditReader;   ///< the program that a practice gets as its reader of audit reports
    std::filesystem::path reporter;      ///< and the one that it gets as its program of reports
    Processes& processes;
    std::ostream& out;
};

/// Runs one command, its name first; "--help" tells what there is. Throws std::runtime_error with a sentence for the
/// user when it fails.
void RunCommand(Suite& suite, std::span<const std::string> words);

} // namespace pgbp
