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
    void Open(const SectionOpening& opening);
    void Close() override;

    Frame framain{*this, "framain", "", FramePlace::Main};
    Label LBLSNO{*this, "LBLSNO"}; ///< index of the section, out of view
    Label lblsecc{*this, "lblsecc", "Section :"};
    Label LblSec{*this, "LblSec"};
    Label lblheadc{*this, "lblheadc", "Head :"};
    Label LblDescr{*this, "LblDescr"};
    Label lbldescrc{*this, "lbldescrc", "Description :"};
    txt TxtDescr{*this, "TxtDescr"};
    Label lblamtc{*this, "lblamtc", "Amount :"};
    txtn TxtAmt{*this, "TxtAmt"};
    cmd CmdAdd{*this, "CmdAdd", "&Add"};
    Grid MSH;
    cmd CmdSave{*this, "CmdSave", "&Save"};
    cmd CmdBack{*this, "CmdBack", "&Back"};
    ItemEntry<ClaimedItem> entry;

  private:
    std::vector<ItemColumn<ClaimedItem>> Columns();
    void LayOut();
    void Save();

    SectionOpening section_;
};

} // namespace pgbp
