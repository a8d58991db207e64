#include "income/income.h"

#include "income/FrmHelp.h"
#include "income/frmReminder.h"
#include "income/frmbusiness.h"

namespace pgbp {

void RegisterIncomeScreens(Screens& screens)
{
    screens.Register<frmbusiness>(screens::frmbusiness);
    screens.Register<frmReminder>(screens::frmReminder);
    screens.Register<FrmHelp>(screens::FrmHelp);
}

} // namespace pgbp
