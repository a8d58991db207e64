#include "module/module.h"

#include "computation/computation.h"
#include "income/income.h"
#include "startup/frmmdi.h"

#include <cstdlib>

namespace pgbp {

void RegisterScreens(Run& run)
{
    run.screens.Register("frmmdi", [](Run& itsRun) { return std::make_unique<frmmdi>(itsRun); });
    RegisterIncomeScreens(run.screens);
    RegisterComputationScreens(run.screens);
}

std::filesystem::path ProgramFolder()
{
    if (const char* chosen = std::getenv("PGBP_PROGRAM_FOLDER"))
        return chosen;
    return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

} // namespace pgbp
