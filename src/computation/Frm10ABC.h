#pragma once

#include "controls/frame.h"
#include "entry/item_entry.h"
#include "startup/run.h"

#include <string>

namespace pgbp {

/// An item claimed under one of the sections 10A to 10C.
struct ClaimedItem {
    std::string serial{}; ///< index of the section
    std::string head{};
    std::string section{};
    std::string description{};
    double amount = 0; ///< rupees

    bool operator==(const ClaimedItem&) const = default;
};

/// The items claimed under one of the sections 10A to 10C. The section is the subject that the screen is opened with;
/// its items are rows of `temp1` under the section's index. Nothing is written before Save.
class Frm10ABC : public Screen {
  public:
    explicit Frm10ABC(Run& itsRun);
    void Open(const Opening& opening) override;
    void Close() override;

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
    ItemEntry<ClaimedItem> entry;

  private:
    std::vector<ItemColumn<ClaimedItem>> Columns();
    void LayOut();
    void Save();

    Subject section_;
};

} // namespace pgbp
