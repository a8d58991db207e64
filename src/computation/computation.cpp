#include "computation/computation.h"

#include "computation/Frm10ABC.h"
#include "computation/frmbusinesscal.h"
#include "computation/frmbusinesscal1.h"

namespace pgbp {

void RegisterComputationScreens(Screens& screens)
{
    screens.Register("frmbusinesscal", [](Run& run) { return std::make_unique<frmbusinesscal>(run); });
    screens.Register("frmbusinesscal1", [](Run& run) { return std::make_unique<frmbusinesscal1>(run); });
    screens.Register("Frm10ABC", [](Run& run) { return std::make_unique<Frm10ABC>(run); });
}

} // namespace pgbp
