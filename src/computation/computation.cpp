#include "computation/computation.h"

#include "computation/Frm10ABC.h"
#include "computation/FrmMulti.h"
#include "computation/frmbusinesscal.h"
#include "computation/frmbusinesscal1.h"

namespace pgbp {

void RegisterComputationScreens(Screens& screens)
{
    screens.Register<frmbusinesscal>(screens::frmbusinesscal);
    screens.Register<frmbusinesscal1>(screens::frmbusinesscal1);
    screens.Register<Frm10ABC>(screens::Frm10ABC);
    screens.Register<FrmMulti>(screens::FrmMulti);
}

} // namespace pgbp
