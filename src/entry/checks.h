#pragma once

#include "startup/screens.h"

#include <functional>
#include <string>
#include <vector>

namespace pgbp {

/// How a failed check speaks: a message, a message under the program's own name, or a question that Yes passes.
enum class Asking { Tell, TellPlainly, Confirm };

/// One thing that must not be so before a screen takes something over.
struct Check {
    std::function<bool()> fails;
    std::string message;
    Control* focus = nullptr; ///< where the preparer mends it
    Asking asking = Asking::Tell;
};

/// Goes through the checks in their order. The first one that fails tells and takes the focus; true when none refuses.
bool PassesAll(Screen& screen, const std::vector<Check>& checks);

/// Leaving gives up what was altered only when the preparer says so; the default is to stay.
bool MayDiscard(const Run& run, bool altered);

} // namespace pgbp
