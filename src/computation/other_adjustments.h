#pragma once

#include "computation/section10abc.h"
#include "computation/section35.h"

#include <string_view>

namespace pgbp {

/// What the frame of the other adjustments asks of its screen.
struct OtherAdjustmentsUse {
    std::function<void(std::string_view type)> openList; ///< opens a list over `fra3`
    std::function<void()> balance;                       ///< recomputes the line, the totals of `fra3` included
};

/// `fra3`: what enters the line "Other Specific Adjustments": deemed income, adjustments of the sections 44B to 44BBB,
/// allowances, scientific research and amounts claimed u/s 10A to 10C. The totals are set by the owner.
class OtherAdjustments {
  public:
    OtherAdjustments(Screen& form, OtherAdjustmentsUse use);

    void Open();
    /// A screen that lay over this one was left.

    Frame fra3;
    cmd cmd564;
    Label lbl564c;
    Label lbl564;
    cmd cmd570;
    Label lbl570c;
    Label lbl570;
    cmd cmd568;
    Label lbl568c;
    Label lbl568;
    cmd Cmd35;
    Label Lbl35c;
    Label Lbl35;
    cmd cmdbackother;
    Section35 section35;
    Section10abc section10abc;

  private:
    void LayOut();
    void Wire();
    void Open10abc();

    const Run& run_;
    Form& form_;
    const OtherAdjustmentsUse use_;
};

} // namespace pgbp
