#pragma once

#include "annexure/annexure_store.h"
#include "annexure/form3cd_import.h"
#include "controls/buttons.h"
#include "controls/date_control.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/lists.h"
#include "entry/item_entry.h"
#include "entry/linked_client.h"
#include "startup/run.h"

#include <optional>
#include <string>
#include <vector>

namespace pgbp {

/// The depreciation annexure of the line of business that is open: fields for one asset or block, a grid of all of
/// them. Nothing reaches the store before Save. One class for all editions; what an edition does not have is hidden.
class AnnexureScreen : public Screen {
  public:
    AnnexureScreen(Run& itsRun, const AnnexureEdition& edition);
    void Open(const AnnexureOpening& opening);
    void Activate() override { SetFocus(txtname); }
    void Close() override;

    Frame framain{*this, "framain", "", FramePlace::Main};
    Label Label1{*this, "Label1", "Fixed Asset's Name"};
    txt txtname{*this, "txtname"};
    Label Label2{*this, "Label2", "Group"};
    combo CBOGRP{*this, "CBOGRP"};
    Label Label3{*this, "Label3", "Depreciation Rate"};
    txtn txtdeprate{*this, "txtdeprate"};
    Label Label20{*this, "Label20", "", LabelLook::Hint};
    Label Label4{*this, "Label4", "Opening Balance"};
    txtn txtopbal{*this, "txtopbal"};
    Label Label5{*this, "Label5"};
    txtn txtpur1{*this, "txtpur1"};
    Label Label6{*this, "Label6"};
    txtn txtpur2{*this, "txtpur2"};
    Label Label7{*this, "Label7", "Total Purchases"};
    Label lblpur{*this, "lblpur", "0", LabelLook::Amount};
    Label Label8{*this, "Label8", "Sales : Out of opening && 1st Half Pur."};
    txtn TxtSales1{*this, "TxtSales1"};
    Label Label9{*this, "Label9", "Sales : Out of 2nd Half Pur."};
    txtn TxtSales2{*this, "TxtSales2"};
    Label Label10{*this, "Label10"};
    txtn txtsales{*this, "txtsales"};
    Label Label11{*this, "Label11", "Total"};
    Label lbltotal{*this, "lbltotal", "0", LabelLook::Amount};
    Label Label12{*this, "Label12", "Depreciation at full rate"};
    txtn TxtDep1{*this, "TxtDep1"};
    Label Label13{*this, "Label13", "Depreciation at half rate"};
    txtn TxtDep2{*this, "TxtDep2"};
    Label Label14{*this, "Label14", "Additional Depreciation 1"};
    txtn TxtAdd1{*this, "TxtAdd1"};
    Label Label15{*this, "Label15", "Additional Depreciation 2"};
    txtn TxtAdd2{*this, "TxtAdd2"};
    Label Label16{*this, "Label16"};
    txtn txtdep{*this, "txtdep"};
    Label Label17{*this, "Label17", "Depreciation Dis. u/s 38(2)"};
    txtn Txt382{*this, "Txt382"};
    Label Label18{*this, "Label18", "Net Depreciation"};
    txtn TxtNetDep{*this, "TxtNetDep"};
    Label Label19{*this, "Label19", "Closing Balance"};
    Label lblclbal{*this, "lblclbal", "0", LabelLook::Amount};
    Label Label21{*this, "Label21", "Exps. on Transfer"};
    txtn TxtExps{*this, "TxtExps"};
    CheckBox ChkEmpty{*this, "ChkEmpty", "Is Block Empty or closing balance is NIL at the end of year?"};
    Frame FraDt{*this, "FraDt", "", FramePlace::Group};
    Label Label22{*this, "Label22", "Date of Sale :"};
    txtdate txtdate1{*this, "txtdate1"};
    cmd CmdAdd{*this, "CmdAdd", "&Add"};
    Grid DBGrid1;
    Label Label23{*this, "Label23", "Total Depreciation"};
    Label LblTot{*this, "LblTot", "0", LabelLook::Amount};
    cmd Command2{*this, "Command2", "Recalculate Depreciation"};
    cmd Command1{*this, "Command1", "Import from Pr. Year"};
    cmd CmdImp{*this, "CmdImp", "Import From Orvane 3"};
    cmd CmdImportXML{*this, "CmdImportXML", "Import From OV3  XML"};
    cmd CmdSave{*this, "CmdSave", "&Save"};
    cmd cmdmain{*this, "cmdmain", "&Cancel"};
    cmd cmdr{*this, "cmdr", "&R"}; ///< laid out nowhere: only its hot key Alt+R reaches it

    /// The lines of business of the preceding year, where there are several to import from.
    Frame Frame2{*this, "Frame2", "Normal Business"};
    Grid MSH;
    cmd CmdClose{*this, "CmdClose", "Close"};

    ItemEntry<AnnexureRow> entry;

  private:
    std::vector<ItemColumn<AnnexureRow>> Columns(const AnnexureEdition& edition);
    void LayOut();
    std::vector<LayoutRow> RowsWithHalves();
    std::vector<LayoutRow> RowsWithoutHalves();
    void WireFields();
    void WireButtons();
    void ShowWhatThereIs();
    void LockAnnexure();

    AnnexureEntry Entered() const;
    void ShowComputed(const AnnexureEntry& computed);
    /// Runs one of the computations over the fields.
    void Compute(void (*calc)(AnnexureEntry&, const AnnexureEdition&));
    void FollowTick();
    std::string Text(double rupees) const;

    AnnexureOwner Owner() const;
    bool Accepts(const AnnexureRow& row);
    void Tell(const AnnexureRefusal& refusal);
    void ImportFromPreviousYear();
    void ImportLine(std::optional<double> line);
    void ImportFromBooks();
    void ImportForm3cd();
    bool AddBlock(const Form3cdBlock& block);
    void Recalculate();
    void Save();
    void Leave();

    const AnnexureEdition& edition_;
    AnnexureOpening opening_;
    std::string previousCode_;
    std::optional<LinkedClient> linked_;
};

/// The screens of the editions.
class frmfassetsNew : public AnnexureScreen {
  public:
    explicit frmfassetsNew(Run& itsRun) : AnnexureScreen(itsRun, kAnnexure) {}
};

class frmfassets : public AnnexureScreen {
  public:
    explicit frmfassets(Run& itsRun) : AnnexureScreen(itsRun, kOldAnnexure) {}
};

class frmfassetsNew_1 : public AnnexureScreen {
  public:
    explicit frmfassetsNew_1(Run& itsRun) : AnnexureScreen(itsRun, kAnnexureBeforeYears) {}
};

} // namespace pgbp
