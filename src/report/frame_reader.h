#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "report/document.h"

#include <string>
#include <vector>

namespace pgbp::report {

/// What stands in one line of a frame: a caption, what is right of it, and the button beside it.
struct Entry {
    std::string caption{};
    std::vector<std::string> values{};
    std::vector<const Control*> shownBy{}; ///< the controls of the values
    RowStyle style = RowStyle::Plain;
    PushControl* door = nullptr;
};

/// A frame, or a group in it, as a person reads it; hidden controls are left out.
struct FrameContent {
    std::string caption{};
    std::vector<std::string> headings{}; ///< of the values, where the frame has them
    std::vector<Entry> fields{};         ///< above a grid: those in which a row of it is entered
    std::vector<Entry> entries{};
    std::vector<const Grid*> grids{};
};

/// The frame itself, then its groups.
std::vector<FrameContent> ReadFrame(const Frame& frame);

/// A value that says nothing in a computation: empty, or an amount of 0.
bool IsNothing(const std::string& value);
bool IsNothing(const Entry& entry);

/// The rows and totals of a grid; columns in which there is nothing are left out, and so are those of an address.
Table TableOf(const Grid& grid);

/// The rows of a list, each its texts in one cell and its amount, for a list of one amount.
bool IsPlainList(const Grid& grid);
std::vector<std::pair<std::string, std::string>> ItemsOf(const Grid& grid);

} // namespace pgbp::report
