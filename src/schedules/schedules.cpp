#include "schedules/schedules.h"

#include "schedules/Frm44AENew.h"
#include "schedules/FrmQ47ii.h"

namespace pgbp {

void RegisterScheduleScreens(Screens& screens)
{
    screens.Register<FrmQ47ii>(screens::FrmQ47ii);
    screens.Register<Frm44AENew>(screens::Frm44AENew);
}

} // namespace pgbp
