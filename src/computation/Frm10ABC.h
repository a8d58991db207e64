#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "startup/run.h"

#include <string>
#include <vector>

namespace pgbp {

/// The items claimed under one of the sections 10A to 10C. The section is the subject that the screen is opened with;
/// its items are rows of `temp1` under the section's index. Nothing is written before Save.
class Frm10ABC : public Screen {
  public:
    explicit Frm10ABC(Run& itsRun);
    void Open(const Opening& opening) override;
    void Close() override { run.screens.Return(); }

    frame framain{*this, "framain", "", FramePlace::Main};
    label LBLSNO{*this, "LBLSNO"}; ///< index of the section, out of view
    label lblsecc{*this, "lblsecc", "Section :"};
    label LblSec{*this, "LblSec"};
    label lblheadc{*this, "lblheadc", "Head :"};
    label LblDescr{*this, "LblDescr"};
    label lbldescrc{*this, "lbldescrc", "Description :"};
    txt TxtDescr{*this, "TxtDescr"};
    label lblamtc{*this, "lblamtc", "Amount :"};
    txtn TxtAmt{*this, "TxtAmt"};
    cmd CmdAdd{*this, "CmdAdd", "&Add"};
    grid MSH;
    cmd CmdSave{*this, "CmdSave", "&Save"};
    cmd CmdBack{*this, "CmdBack", "&Back"};

  private:
    void LayOut();
    void ShowItems();
    void ClearFields();
    void Add();
    void TakeBack(int row);
    void Save();

    Subject section_;
    std::vector<std::vector<std::string>> items_; ///< texts by the columns of the grid
};

} // namespace pgbp
