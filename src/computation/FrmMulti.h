#pragma once

#include "controls/frame.h"
#include "entry/item_entry.h"
#include "startup/run.h"

namespace pgbp {

/// The fields of a business, made before the grid and the list that are entered through them.
struct BusinessFields {
    explicit BusinessFields(Screen& form) : screen(form) {}

    Screen& screen;
    Label lblDesc{screen, "lblDesc", "Description :"};
    txt txtDesc{screen, "txtDesc"};
    Label lblrece{screen, "lblrece", "Gross Receipts :"};
    txtn txtrece{screen, "txtrece"};
    Label lblPer{screen, "lblPer", "Percentage :"};
    txtn TxtPer{screen, "TxtPer"};
    Label lbl44AD{screen, "lbl44AD", "Deemed Profit :"};
    txtn Txt44AD{screen, "Txt44AD"};
};

/// Several businesses under one line u/s 44AD, each with its receipts and its deemed profit. Nothing is written: Back
/// hands them to the line, which stores them when it is saved; Escape leaves the line as it was.
class FrmMulti : public Screen, public BusinessFields {
  public:
    explicit FrmMulti(Run& itsRun);
    void Open(const BusinessesOpening& opening);
    void Close() override;

    Frame framain{*this, "framain", "", FramePlace::Main};
    cmd cmdaddveh{*this, "cmdaddveh", "&Add"};
    Grid MSH;
    Label TxtBal1{*this, "TxtBal1", "0.00", LabelLook::Amount};
    Label TxtBal2{*this, "TxtBal2", "0.00", LabelLook::Amount};
    Label TxtBal3{*this, "TxtBal3", "0.00", LabelLook::Amount};
    cmd CmdBack{*this, "CmdBack", "&Back"};
    ItemEntry<BusinessPart> entry;

  private:
    std::vector<ItemColumn<BusinessPart>> Columns();
    void LayOut();
    void Deem();
    void CalcTot();
    void Back();

    std::string percent_ = "8.00"; ///< in the field of the next business: that of the last one
    BusinessesOpening opening_;
};

} // namespace pgbp
