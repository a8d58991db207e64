#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/text_controls.h"
#include "startup/run.h"

#include <deque>
#include <functional>
#include <string>

namespace pgbp {

/// Amounts claimed u/s 10A, 10B and 10C: whether they apply to the assessee, and `Fra10abc`, from 2007 the claims by
/// section. The sections are those of the suite's table `air`, at most eight; each has a screen of its own for its
/// items. The two questions, the total and the button stand in a frame of the owner.
class Section10abc {
  public:
    /// `balance` comes after each change of the two questions, and when the frame is taken away.
    Section10abc(Screen& form, const std::function<void()>& balance);

    /// Shows the sections with what is claimed under each, rupees.
    void Open();

    /// The sections apply, and the assessee has not opted out of them by a declaration.
    bool IsClaimed() const { return chk10abc1.value && !chk10abc2.value; }
    /// What of the amount claimed enters the computation, rupees.
    double Counted(double claimed) const { return IsClaimed() ? claimed : 0; }

    CheckBox chk10abc1;
    CheckBox chk10abc2;
    Label lbl10abcc;
    Label lbl10abc;
    cmd cmd10abc;

    /// One section.
    struct Line {
        Line(Form& form, int itsIndex);
        void Name(const std::string& itsSection, const std::string& itsDescription);
        void Show(bool shows);
        const int index;
        std::string section;
        std::string description;
        Label Lbl10;
        Label Lbl10_1;
        Label LblAmt;
        cmd Cmd10A;
    };

    Frame Fra10abc;
    Label lblSection;
    std::deque<Line> lines;
    cmd CmdBack10;

  private:
    void LayOut();
    void ApplyQuestions();
    void Fill();
    void NameLines();
    void OpenSection(const Line& line);

    Run& run_;
    Form& form_;
};

} // namespace pgbp
