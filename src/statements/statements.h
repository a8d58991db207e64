#pragma once

#include "startup/screens.h"

namespace pgbp {

/// Makes the statements' screens known to the run.
void RegisterStatementScreens(Screens& screens);

} // namespace pgbp
