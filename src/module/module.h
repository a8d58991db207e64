#pragma once

#include "startup/run.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pgbp {

/// Makes every screen of the module known to the run, by name.
void RegisterScreens(Run& run);

/// The folder that counts as the program's: the one behind "--program-folder", which is taken out of the words of the
/// command line, else what the suite's tools chose for this process, else where the program stands. Settings are read
/// there and, where there are none, made there, and nowhere else.
std::filesystem::path TakeProgramFolder(std::vector<std::string>& words);

} // namespace pgbp
