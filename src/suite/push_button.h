#pragma once

#include "desktop/theme.h"

#include <QPushButton>

namespace pgbp {

/// A button of the suite's windows, as high as those of the module's.
inline QPushButton* MakeButton(const QString& caption)
{
    auto* button = new QPushButton(caption);
    button->setMinimumHeight(RowHeight() + kUnit);
    button->setAutoDefault(true); // Enter presses it
    return button;
}

} // namespace pgbp
