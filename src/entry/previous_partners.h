#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "entry/partner_row.h"
#include "startup/run.h"

#include <functional>
#include <vector>

namespace pgbp {

/// `FraPartners`: the partners of the preceding year, to be taken over one by one or all at once, without their
/// amounts.
class PreviousPartners {
  public:
    explicit PreviousPartners(Screen& form);

    /// Reads the preceding year's partners, each name once; the button that opens the frame shows when there are any.
    void Read();

    std::function<void(const PartnerRow&)> chosen;
    std::function<void(const std::vector<PartnerRow>&)> allChosen;

    cmd CmdImp;
    Frame FraPartners;
    Grid MSHPart;
    Label lblhintprevious;
    cmd Command2;
    cmd CmdBackPartners;

  private:
    Run& run_;
    Form& form_;
    std::vector<PartnerRow> partners_;
};

} // namespace pgbp
