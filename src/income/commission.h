#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/text_controls.h"
#include "entry/field_texts.h"
#include "income/commission_rules.h"
#include "startup/run.h"

#include <deque>
#include <functional>

namespace pgbp {

/// What the commission asks of the summary.
struct CommissionUse {
    std::function<double()> limit;   ///< commission up to which the deduction is allowed, rupees
    std::function<void()> recompute; ///< what is stored may have changed
    Control& button;                 ///< opens it, and has the focus after it
};

/// The frame `fralic` of the summary: the commission of an agent, with the ad hoc deduction.
class Commission {
  public:
    Commission(Screen& summary, CommissionUse use);

    void Open();
    /// The frame is up and differs from what was opened.
    bool Altered() const { return fralic.visible && opened_.DifferFrom(fralic); }

    /// One kind of commission.
    struct Line {
        Line(Form& form, const char* name, const char* captionText, const char* itsType, const char* itsColumn);

        Label label;
        txtn field;
        const char* const type;   ///< of its row
        const char* const column; ///< in which it stands there
    };

    Frame fralic;
    Label Label12;
    std::deque<Line> lines;
    Label lbldedc;
    Label lblded;
    Image ImgHelp;
    Label lblcommc;
    Label lblcomm;
    cmd cmdsavelic;
    cmd cmdbacklic;

  private:
    void LayOut();
    void Fill();
    Commissions Entered() const;
    void CalcCommission();
    void Save();
    void StoreRows(const Transaction& transaction) const;
    void StoreCells(const Transaction& transaction) const;
    void Leave();

    Screen& form_;
    Run& run_;
    CommissionUse use_;
    FieldTexts opened_;
    std::vector<CommissionRate> rates_;
};

} // namespace pgbp
