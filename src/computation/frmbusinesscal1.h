#pragma once

#include "computation/adjustment_frames.h"
#include "computation/line_header.h"
#include "computation/list_totals.h"

namespace pgbp {

/// The short computation, of a speculation business or a specified business u/s 35AD: net profit, one list added, one
/// deducted.
class frmbusinesscal1 : public Screen {
  public:
    explicit frmbusinesscal1(Run& itsRun);

    void Open(const LineOpening& opening);
    void Activate() override;
    void Close() override;

    void CalBalance();

    Frame framain{*this, "framain", "", FramePlace::Main};
    LineHeader header{*this};
    cmd cmd28a{*this, "cmd28a", "Other &Additions"};
    Label lbl28ac{*this, "lbl28ac", "Other Adj. in accordance with Sec. 28 to Sec 44D :"};
    Label lbl28a{*this, "lbl28a", "0.00", LabelLook::Amount};
    Label lbltot1c{*this, "lbltot1c", "Total"};
    Label lbltot1{*this, "lbltot1", "0.00", LabelLook::Amount};
    cmd cmd28l{*this, "cmd28l", "Other Ded&uctions"};
    Label lbl28lc{*this, "lbl28lc", "Other Adj. in accordance with Sec. 28 to Sec 44D :"};
    Label lbl28l{*this, "lbl28l", "0.00", LabelLook::Amount};
    Label lblincomec{*this, "lblincomec", "Net Income From the above Business :"};
    Label lblincome{*this, "lblincome", "0.00", LabelLook::Amount};
    Label lbladd{*this, "lbladd", "Add : "};
    Label lbldeduct{*this, "lbldeduct", "Less :"};

    SectionList fra2{*this, {"fra2", "DBGrid2", "cmdadd1", "cmdsave1", "cmdback1"}};

  private:
    void LayOut();
    void Wire();
    void RefreshTotals();
    void Save();
    void Delete();
    void Back();

    ListTotals totals_;
    const AdjustmentList added_{.type = "28a", .button = cmd28a, .caption = lbl28ac, .keptIn = fra2};
    const AdjustmentList deducted_{.type = "28l", .button = cmd28l, .caption = lbl28lc, .keptIn = fra2};
};

} // namespace pgbp
