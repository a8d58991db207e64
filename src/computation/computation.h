#pragma once

#include "startup/screens.h"

namespace pgbp {

/// Makes the screens of this folder known: the computation of one line of business, its short form, and the
/// deductions u/s 10A/10B/10C.
void RegisterComputationScreens(Screens& screens);

} // namespace pgbp
