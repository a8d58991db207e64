#pragma once

#include "startup/screens.h"

namespace pgbp {

/// Makes the screens of this folder known: the side schedules of the return.
void RegisterScheduleScreens(Screens& screens);

} // namespace pgbp
