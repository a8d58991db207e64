#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/text_controls.h"
#include "entry/field_texts.h"
#include "startup/run.h"

#include <deque>
#include <string>

namespace pgbp {

/// The GST registrations of the assessee with the turnover under each, twenty at most. Each has its place: a gap stays
/// a gap.
class FrmGST : public Screen {
  public:
    explicit FrmGST(Run& itsRun);
    void Close() override;

    /// One of the twenty places, counted from 1.
    struct Pair {
        Pair(Form& form, int itsNumber);
        std::string Type() const; ///< of its row: "CGST", "CGST2" ...
        bool IsFilled() const;    ///< has a GSTIN, without which nothing of it is stored

        const int number;
        Label lblGstin;
        txt gstin;
        Label lblAmount;
        txtn turnover; ///< whole rupees
    };

    Frame framain{*this, "framain", "", FramePlace::Main};
    std::deque<Pair> pairs;
    cmd Command1{*this, "Command1", "Import from Previous year"};
    cmd Cmd26AS{*this, "Cmd26AS", "Import from 26AS"};
    cmd CmdSave{*this, "CmdSave", "&Save"};
    cmd CmdBack{*this, "CmdBack", "&Back"};

  private:
    void LayOut();
    void Wire();
    void Lock();

    template <typename Take>
    void ReadPairs(const std::string& code, Take take);
    std::string Types() const;
    void Load();
    void ImportPreviousYear();
    void Import26AS();
    void TellFault(const Pair& pair);
    std::string TurnoverWithoutGstin() const;
    void Save();
    double Store() const;

    FieldTexts opened_;
};

} // namespace pgbp
