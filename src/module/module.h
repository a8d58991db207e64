#pragma once

#include "startup/run.h"

#include <filesystem>

namespace pgbp {

/// Makes every screen of the module known to the run, by name.
void RegisterScreens(Run& run);

/// The folder that counts as the program's: what the suite's tools chose for this process, else where the program
/// stands.
std::filesystem::path ProgramFolder();

} // namespace pgbp
