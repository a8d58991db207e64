#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/text_controls.h"
#include "entry/field_texts.h"
#include "startup/run.h"

#include <vector>

namespace pgbp {

/// `Frame1`: the figures of the profit and loss account that the return asks for beside income u/s 44BB. They enter no
/// computation. They belong to the assessee, not to a line.
class AccountsOf44BB {
  public:
    explicit AccountsOf44BB(Screen& form);

    /// Takes the stored figures over.
    void Fill();
    /// The figures differ from the stored ones.
    bool Altered() const { return stored_.DifferFrom(Frame1); }
    /// Replaces the stored schedule cells, rupees; without a figure none is left. In a transaction of the caller over
    /// `balance`.
    void Store(const Transaction& proof);

    cmd Command3; ///< opens the frame
    Frame Frame1;
    Label lblreceipts;
    txtn txtn2;
    Label lblgross;
    txtn txtn3;
    Label lblexpenses;
    txtn txtn4;
    Label lblnet;
    txtn txtn5;
    cmd CmdBFrame1;

  private:
    struct Cell {
        int number; ///< of the return's schedule
        txtn& field;
    };
    void AddCell(int number, const txtn& field, const Transaction& proof) const;
    void Open();

    Run& run_;
    Form& form_;
    const std::vector<Cell> cells_;
    FieldTexts stored_;
};

} // namespace pgbp
