#pragma once

#include "controls/frame.h"

#include <string>
#include <vector>

namespace pgbp {

/// What the fields and ticks of a frame held at a moment: tells whether something was altered since. Computed amounts
/// do not count.
class FieldTexts {
  public:
    void Remember(const Frame& shown) { remembered_ = Of(shown); }
    bool DifferFrom(const Frame& shown) const { return remembered_ != Of(shown); }

  private:
    static std::vector<std::string> Of(const Frame& shown);

    std::vector<std::string> remembered_;
};

/// An amount that reads the same is the same, however it was typed; any other field goes by its text.
std::string ComparedText(const Control& field);

} // namespace pgbp
