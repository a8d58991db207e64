#pragma once

#include "startup/run.h"

#include <optional>
#include <string_view>

namespace pgbp::report {

/// A button that leads to the working of a figure.
struct Door {
    std::string_view button;
    bool alsoOfNothing = false; ///< there may be something behind a figure of 0
};

/// None for a button that leads elsewhere, or does something.
const Door* DoorNamed(std::string_view button);

/// What a button has opened.
struct Opened {
    Screen* screen;
    Frame* card; ///< none: another screen than the button's
};

/// Presses the button of the screen as a preparer does; nothing where it can not be pressed or has opened nothing.
std::optional<Opened> Press(Screen& screen, std::string_view button);

/// Leaves it, with nothing stored.
void Leave(const Opened& opened);

/// The page of the screen that is on display.
const Frame* MainFrameOf(const Screen& screen);

} // namespace pgbp::report
