#pragma once

#include "report/client_copy.h"
#include "report/document.h"

namespace pgbp::report {

/// The computation of the client: opens the screens of the module on the copy, one after the other, and reads what they
/// show, so that each figure is the screen's. Throws std::exception where a screen can not be opened.
Document ReadComputation(ClientCopy& client);

} // namespace pgbp::report
