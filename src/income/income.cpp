#include "income/income.h"

#include "income/FrmHelp.h"
#include "income/frmReminder.h"
#include "income/frmbusiness.h"

namespace pgbp {

void RegisterIncomeScreens(Screens& screens)
{
    screens.Register("frmbusiness", [](Run& run) { return std::make_unique<frmbusiness>(run); });
    screens.Register("frmReminder", [](Run& run) { return std::make_unique<frmReminder>(run); });
    screens.Register("FrmHelp", [](Run& run) { return std::make_unique<FrmHelp>(run); });
}

} // namespace pgbp
