#include "computation/computation.h"

#include "computation/Frm10ABC.h"

namespace pgbp {

void RegisterComputationScreens(Screens& screens)
{
    screens.Register("Frm10ABC", [](Run& run) { return std::make_unique<Frm10ABC>(run); });
}

} // namespace pgbp
