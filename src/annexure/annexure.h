#pragma once

#include "startup/screens.h"

namespace pgbp {

/// Makes the screens of this folder known: the depreciation annexure in its editions.
void RegisterAnnexureScreens(Screens& screens);

} // namespace pgbp
