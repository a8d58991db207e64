#pragma once

#include "computation/accounts_import.h"
#include "computation/accounts_of_44bb.h"
#include "computation/adjustment_frames.h"
#include "computation/line_header.h"
#include "computation/list_totals.h"
#include "computation/other_adjustments.h"
#include "computation/presumptive.h"
#include "entry/partners.h"
#include "records/annexure_rows.h"

namespace pgbp {

/// The computation of one line of business: from the net profit of the accounts, by what the law adds and deducts, to
/// the net income. Works on copies; nothing reaches the stored rows before Save.
class frmbusinesscal : public Screen {
  public:
    explicit frmbusinesscal(Run& itsRun);

    /// Takes the line over, from its stored rows in Edit; what a run left behind that did not end is emptied.
    void Open(const LineOpening& opening);
    /// On the first display and on every return from a screen that hid this one: net profit and depreciation come from
    /// the stored statement and the annexure.
    void Activate() override;
    void Close() override;

    /// Sums of the lists, totals and net income, each from the shown texts of the step before.
    void CalBalance();

    Frame framain{*this, "framain", "", FramePlace::Main};
    LineHeader header{*this};

    cmd cmd511{*this, "cmd511", "Stoc&k / Method"};
    Label lbl511c{*this, "lbl511c(0)", "Adj. on account of change in method of accounting and/or valuation of stock :"};
    Label lbl511{*this, "lbl511", "0.00", LabelLook::Amount};
    cmd cmd560{*this, "cmd560", "Sec. &28(ii) - (vi)"};
    Label lbl560c{*this, "lbl560c", "Income specified in Sec 28(ii) to 28(vi) not included in NP :"};
    Label lbl560{*this, "lbl560", "0.00", LabelLook::Amount};
    cmd CmdReDep{*this, "CmdReDep", "From P && &L"};
    Label lbladddep{*this, "lbladddep", "Deprecaition Taken Seperately :"};
    txtn txtadddep{*this, "txtadddep"};
    cmd cmd23a{*this, "cmd23a", "Other &Additions"};
    Label lbl23ac{*this, "lbl23ac", "Other Adj. in accordance with Sec. 28 to Sec 44D :"};
    Label lbl23a{*this, "lbl23a", "0.00", LabelLook::Amount};
    Label lblOth{*this, "lblOth", "Other (Not included in P && L)"};
    txtn TxtOth{*this, "TxtOth"};
    cmd CmdPartner{*this, "CmdPartner", "Par&tners"};
    Label lblpart1{*this, "lblpart1", "Partners' Interest :"};
    Label lbladdintt{*this, "lbladdintt", "0.00", LabelLook::Amount};
    Label lblpart2{*this, "lblpart2", "Partners' Remuneration  :"};
    Label lbladdremu{*this, "lbladdremu", "0.00", LabelLook::Amount};
    Label lbltot1c{*this, "lbltot1c", "Total"};
    Label lbltot1{*this, "lbltot1", "0.00", LabelLook::Amount};

    cmd cmd17{*this, "cmd17", "&Exempt Income"};
    Label lbl17c{*this, "lbl17c", "Exempt Income Included in NP :"};
    Label lbl17{*this, "lbl17", "0.00", LabelLook::Amount};
    cmd cmdless{*this, "cmdless", "Other &Heads"};
    Label lbllessc{*this, "lbllessc", "Incomes chargeable under any other head of Income :"};
    Label lblless{*this, "lblless", "0.00", LabelLook::Amount};
    cmd CmdDep{*this, "CmdDep", "Depreciation Anne&xure"};
    Label lbllessdep{*this, "lbllessdep", "Depreciation as per I.T. Act :"};
    txtn txtlessdep{*this, "txtlessdep"};
    cmd cmd23l{*this, "cmd23l", "Other Ded&uctions"};
    Label lbl23lc{*this, "lbl23lc", "Other Adj. in accordance with Sec. 28 to Sec 44D :"};
    Label lbl23l{*this, "lbl23l", "0.00", LabelLook::Amount};
    cmd cmdpartner1{*this, "cmdpartner1", "Part&ners"};
    Label lbllesspart1{*this, "lbllesspart1", "Less : Interest"};
    txtn txtlesspart1{*this, "txtlesspart1"};
    Label lbllesspart2{*this, "lbllesspart2", "Less : Remuneration"};
    txtn txtlesspart2{*this, "txtlesspart2"};
    Label lbltot2c{*this, "lbltot2c", "Total"};
    Label lbltot2{*this, "lbltot2", "0.00", LabelLook::Amount};

    cmd cmdother{*this, "cmdother", "&Other Adjustments"};
    Label lblotherc{*this, "lblotherc", "Other Specific Adjustments :"};
    Label lblother{*this, "lblother", "0.00", LabelLook::Amount};
    Label lblincomec{*this, "lblincomec", "Net Income From the above Business :"};
    Label lblincome{*this, "lblincome", "0.00", LabelLook::Amount};

    cmd CmdF{*this, "CmdF", "STC&G on Depreciable Assets"};
    cmd Command1{*this, "Command1", "&Fill Partners/Members Details"};

    PresumptiveFrame presumptive{*this, totals_};
    OtherAdjustments other;
    DescriptionList fra1{*this};
    SectionList fra2{*this, {"fra2", "DBGrid2", "cmdadd1", "cmdsave1", "cmdback1"}};
    Image Image3{*this, "Image3", "Business Income in Schedule BP"};
    AllowanceList fra4{*this};
    AccountsOf44BB accounts{*this};
    Partners partners;

    AccountsImport import{*this,
                          {.netProfit = header.txtpnl,
                           .addedDepreciation = txtadddep,
                           .deductedDepreciation = txtlessdep,
                           .annexure = annexure_,
                           .listsChanged = [this] { RefreshTotals(); }}};

  private:
    void LayOut();
    void Wire();
    std::vector<AdjustmentList> MakeLists();
    std::vector<Check> ChecksOfSections();
    void OpenList(std::string_view type);
    void LeavePartners();
    double BookProfit(double interest, double remuneration) const;

    void BusinessFill();
    void ApplyYearAndStatus();
    void ReadStatementFigures();
    void OpenAnnexure(ScreenName<AnnexureOpening> screen, const char* annexure);
    void RefreshTotals();
    void ShowListTotals();

    bool Altered() const;
    bool NothingEntered() const;
    void Save();
    void SaveDeemed();
    void TakeDescriptions();
    void Continue();
    void StoreAndLeave(const TextControl& income);
    bool Store();
    /// Details of this type are stored as they stand in the working table.
    bool GoesAlong(std::string_view type) const;
    void ReadAnnexureAnew();
    std::vector<Field> BusinessColumns() const;
    void StoreOther(double sno, const Transaction& proof) const;
    void Delete();
    void Back();
    void Leave();

    BusinessKind Line() const { return static_cast<BusinessKind>(run.GlBusinessKind); }

    ListTotals totals_;
    WorkAnnexure annexure_{run};
    const std::vector<AdjustmentList> lists_;
};

} // namespace pgbp
