#include "module/module.h"

#include "annexure/annexure.h"
#include "computation/computation.h"
#include "income/income.h"
#include "schedules/schedules.h"
#include "services/options.h"
#include "startup/frmmdi.h"
#include "statements/statements.h"

#include <cstdlib>

namespace pgbp {

void RegisterScreens(Run& run)
{
    run.screens.Register<frmmdi>(screens::frmmdi);
    RegisterIncomeScreens(run.screens);
    RegisterComputationScreens(run.screens);
    RegisterAnnexureScreens(run.screens);
    RegisterStatementScreens(run.screens);
    RegisterScheduleScreens(run.screens);
}

std::filesystem::path TakeProgramFolder(std::vector<std::string>& words)
{
    if (const auto told = TakeOption(words, "--program-folder"))
        return *told;
    if (const char* chosen = std::getenv("PGBP_PROGRAM_FOLDER"); chosen && *chosen)
        return chosen;
    return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

} // namespace pgbp
