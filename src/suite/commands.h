#pragma once

#include "services/processes.h"
#include "suite/practice.h"

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
    StandIns standIns;                   ///< the programs that a practice gets as siblings of the module
    std::filesystem::path checker;       ///< the program that finds what does not agree
    Processes& processes;
    std::ostream& out;
};

/// Runs one command, its name first; "--help" tells what there is. Throws std::runtime_error with a sentence for the
/// user when it fails.
void RunCommand(Suite& suite, std::span<const std::string> words);

} // namespace pgbp
