#pragma once

#include "startup/screens.h"

namespace pgbp {

/// Makes the screens of this folder known: the summary, the reminder and the help screen.
void RegisterIncomeScreens(Screens& screens);

} // namespace pgbp
