#pragma once

#include "report/frame_reader.h"
#include "startup/run.h"

#include <functional>
#include <set>

namespace pgbp::report {

/// 1, or -1 for a figure that comes off the total, or 0 for one that is a part of another.
int SignOf(const Entry& entry);

RowLook LookOf(RowStyle style);

/// A frame of captions and amounts. What a plain list behind a button holds stands under the amount, in a column of its
/// own, and the button goes into `read`.
Table LedgerOf(Screen& screen, const FrameContent& content, const std::function<std::string(const Entry&)>& remarkOn,
               std::set<const Control*>& read);

} // namespace pgbp::report
