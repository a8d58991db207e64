#include "schedules/schedules.h"

#include "schedules/Frm44AENew.h"
#include "schedules/FrmFirm.h"
#include "schedules/FrmGST.h"
#include "schedules/FrmQ47ii.h"

namespace pgbp {

void RegisterScheduleScreens(Screens& screens)
{
    screens.Register<FrmQ47ii>(screens::FrmQ47ii);
    screens.Register<Frm44AENew>(screens::Frm44AENew);
    screens.Register<FrmGST>(screens::FrmGST);
    screens.Register<FrmFirm>(screens::FrmFirm);
}

} // namespace pgbp
