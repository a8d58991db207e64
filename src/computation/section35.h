#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/text_controls.h"
#include "entry/field_texts.h"
#include "startup/run.h"

#include <deque>
#include <functional>

namespace pgbp {

/// `Fra35`: scientific research (section 35, from 2007). For each of its six clauses the amount debited to the accounts
/// and the amount allowable; their difference is deducted from income, with its sign.
class Section35 {
  public:
    /// `balance` comes when the frame is taken away.
    Section35(Screen& form, const std::function<void()>& balance);

    /// Shows what the line of business has so far.
    void Open();
    /// The frame is up and differs from what was opened.
    bool Altered() const { return Fra35.visible && opened_.DifferFrom(Fra35); }

    /// One clause.
    struct Line {
        Line(Form& form, int itsIndex, const char* clause);
        const int index;
        Label Label34;
        txtn Txt_1;  ///< debited, rupees
        txtn Txt_2;  ///< allowable
        Label Txt_3; ///< deducted: allowable less debited
    };

    Frame Fra35;
    Label lblDebited;
    Label lblAllowable;
    Label lblDeducted;
    std::deque<Line> lines;
    Label lblTotal35;
    Label LblTot_1;
    Label LblTot_2;
    Label LblTot_3;
    cmd CmdSave35;
    cmd CmdCanc35;

  private:
    void LayOut();
    void Fill();
    void AddUp(Line& changed);
    void Save();
    void Leave();

    Run& run_;
    Screen& form_;
    FieldTexts opened_;
};

} // namespace pgbp
