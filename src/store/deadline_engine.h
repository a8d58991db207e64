#pragma once

#include "store/connection.h"

#include <chrono>
#include <functional>
#include <memory>

namespace pgbp {

/// How long a session may take for a call before it is given up.
struct Patience {
    std::chrono::milliseconds call{5500}; ///< longer than the limits the server keeps by itself, whose words tell more
    std::chrono::milliseconds rollback{1000};
};

/// A session, as `open` makes it, whose calls come back in time whatever becomes of the other end. A session that does
/// not answer, or is lost, is given up: its transaction fails to the last call and leaves nothing. The first call after
/// that opens a new one. Throws what `open` throws.
std::shared_ptr<Engine> WithDeadline(std::function<std::shared_ptr<Engine>()> open, Patience patience = {});

} // namespace pgbp
