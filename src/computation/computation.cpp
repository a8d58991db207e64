#include "computation/computation.h"

#include "startup/run.h"

namespace pgbp {

void RegisterComputationScreens(Screens&) {}

} // namespace pgbp
