#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "entry/firm_returns.h"
#include "startup/run.h"

#include <functional>
#include <string>
#include <vector>

namespace pgbp {

/// In what the lists of one screen differ from those of another, and what becomes of a partner.
struct FirmListsUse {
    const char* back; ///< name and caption of the button that steps back
    const char* backCaption;
    const char* firmHeading;
    std::vector<GridColumn> partnerColumns;
    std::function<std::vector<std::string>(const PartnerShare&)> cells; ///< of those columns
    std::function<void(const FirmReturn&, const PartnerShare&)> chosen;
};

/// The side frame in which a firm of the practice is chosen and then, below it, one of its partners.
class FirmLists {
  public:
    FirmLists(Screen& form, FirmListsUse use);

    /// Without a firm it tells that the year has none.
    void Open(std::vector<FirmReturn> firms);
    /// Takes the lists away, if they are up.
    void Close();

    Frame Fratemp;
    Grid DBFirm;
    Grid DbPart;
    Label lblhintfirm;
    cmd back;

  private:
    void ChooseFirm(std::size_t at);
    void ChoosePartner(std::size_t at);
    void StepBack();

    Screen& form_;
    FirmListsUse use_;
    std::vector<FirmReturn> firms_;
    std::size_t firm_ = 0; ///< whose partners are shown
    std::vector<PartnerShare> partners_;
};

} // namespace pgbp
