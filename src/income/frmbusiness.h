#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/text_controls.h"
#include "income/commission.h"
#include "income/line_list.h"
#include "income/partner_deductions.h"
#include "income/shares.h"
#include "income/summary_rules.h"
#include "startup/run.h"

namespace pgbp {

/// The hub of the module: one line per kind of business income, their total, the deductions of a firm's partners, the
/// set-off of earlier losses and the final figure. Computes nothing about a business itself: it sums what the detail
/// screens have stored, anew each time it becomes active. Its buttons open those screens.
class frmbusiness : public Screen {
  public:
    explicit frmbusiness(Run& itsRun);
    ~frmbusiness() override;

    /// Recomputes everything from the stored rows.
    void Activate() override;
    /// Writes the head of income and ends the run; where it can not be written, the preparer decides.
    void Close() override;
    /// Sets all figures of this year to "0.00", as the first display finds them: a recompute leaves the figure of a
    /// line that is gone.
    void StartFromZero();
    /// Brings the line back that was deleted last, if nothing was saved since.
    void BringBack();
    /// Writes the "BUSI" row, the head of income in fourteen amounts.
    void StoreHeadOfIncome() const;
    /// The amounts of that row, as they are shown, rupees.
    std::vector<Field> HeadOfIncome() const;

    Frame framain{*this, "framain", "", FramePlace::Main};
    Label lblThis{*this, "lblThis", "This year", LabelLook::Hint};
    Label lblPrevious{*this, "lblPrevious", "Previous Year", LabelLook::Hint};

    cmd cmd1{*this, "cmd1", "Normal Business"};
    Label Label1{*this, "Label1", "Normal Business :"};
    Label lbl1{*this, "lbl1", "0.00", LabelLook::Amount};
    Label lbl1P{*this, "lbl1P", "0.00", LabelLook::Amount};

    cmd cmd2{*this, "cmd2", "Speculation"};
    Label Label2{*this, "Label2", "Speculation Business :"};
    Label lbl2{*this, "lbl2", "0.00", LabelLook::Amount};
    Label lbl2P{*this, "lbl2P", "0.00", LabelLook::Amount};

    cmd CmdSp{*this, "CmdSp", "Specified u/s 35AD"};
    Label LblSp{*this, "LblSp", "0.00", LabelLook::Amount};

    cmd cmd3{*this, "cmd3", "Business u/s 44AD"};
    Label Label3{*this, "Label3", "Construction Business u/s 44AD :"};
    Label lbl3{*this, "lbl3", "0.00", LabelLook::Amount};
    Label lbl3P{*this, "lbl3P", "0.00", LabelLook::Amount};

    cmd cmd9{*this, "cmd9", "Profession u/s 44ADA"};
    Label Label29{*this, "Label29", "Professional Income u/s 44ADA :"};
    Label LblADA{*this, "LblADA", "0.00", LabelLook::Amount};

    cmd cmd4{*this, "cmd4", "Transport u/s 44AE"};
    Label Label4{*this, "Label4", "Transport Business u/s 44 AE :"};
    Label lbl4{*this, "lbl4", "0.00", LabelLook::Amount};
    Label lbl4P{*this, "lbl4P", "0.00", LabelLook::Amount};

    cmd cmd5{*this, "cmd5", "Retail u/s 44AF"};
    Label Label5{*this, "Label5", "Retail Trading u/s 44 AF :"};
    Label lbl5{*this, "lbl5", "0.00", LabelLook::Amount};
    Label lbl5P{*this, "lbl5P", "0.00", LabelLook::Amount};

    cmd cmd6{*this, "cmd6", "Partnership Firm"};
    Label Label6{*this, "Label6", "Rem./Intt. from Partnership Firm :"};
    txtn Txt6{*this, "Txt6"};
    Label lblna1{*this, "lblna1", "Not Allowed", LabelLook::Hint};
    Label txt6P{*this, "txt6P", "0.00", LabelLook::Amount};

    cmd cmd7{*this, "cmd7", "AOP/BOI"};
    Label Label7{*this, "Label7", "Share from AOP/BOI :"};
    txtn Txt7{*this, "Txt7"};
    Label lblna2{*this, "lblna2", "Not Allowed", LabelLook::Hint};
    Label txt7P{*this, "txt7P", "0.00", LabelLook::Amount};

    cmd cmdlic{*this, "cmdlic", "Commission"};
    Label Label8{*this, "Label8", "Commission from LIC, UTI etc. :"};
    Label lbllic{*this, "lbllic", "0.00", LabelLook::Amount};
    Label lbllicP{*this, "lbllicP", "0.00", LabelLook::Amount};

    Label Label26{*this, "Label26", "Adjustment Th. Tax Audit Report :"};
    Label Label27{*this, "Label27", "0.00", LabelLook::Amount};

    Label Label9{*this, "Label9", "Total"};
    Label lbltotal{*this, "lbltotal", "0.00", LabelLook::Amount};
    Label lbltotalP{*this, "lbltotalP", "0.00", LabelLook::Amount};
    Label lblothers{*this, "lblothers", "", LabelLook::Hint}; ///< what counts there without a column of its own
    Label lblothersP{*this, "lblothersP", "0.00", LabelLook::Amount};

    PartnerDeductions partners{*this, [this] { return Val(lbltotal); }};
    Label lblafter{*this, "lblafter", "Income after Interest & Remuneration :"};
    Label lblinc{*this, "lblinc", "0.00", LabelLook::Amount};
    Label lblincP{*this, "lblincP", "0.00", LabelLook::Amount};

    Label Label10{*this, "Label10", "S/off ag. P. Year losses :"};
    Label lblloss{*this, "lblloss", "0.00", LabelLook::Amount};
    Label lbllossP{*this, "lbllossP", "0.00", LabelLook::Amount};
    Label Label11{*this, "Label11", "Profits & Gains from Business or Profession :"};
    Label lbllast{*this, "lbllast", "0.00", LabelLook::Amount};
    Label lbllastP{*this, "lbllastP", "0.00", LabelLook::Amount};

    Label LblSec11{*this, "LblSec11", "Business Income as shown u/s 11(4) :"};
    txtn TxtSec11{*this, "TxtSec11"};

    cmd CmdGST{*this, "CmdGST", "GST Return Details"};
    cmd cmdReport{*this, "cmdReport", "&Details"};
    cmd CmdBack{*this, "CmdBack", "&Back"};
    cmd cmdr{*this, "cmdr", "&R"}; ///< laid out nowhere: only its hot key Alt+R reaches it
    /// Laid out nowhere: only Ctrl+P reaches it, in a locked year too.
    Image imgPrint{*this, "imgPrint", "The computation of this year on paper"};

    /// The list of lines, `fra1`.
    LineList lines{*this,
                   {.bringBack = [this] { BringBack(); },
                    .lineIsGone =
                        [this] {
                            StartFromZero();
                            Activate();
                        },
                    .buttonOf = [this](BusinessKind kind) -> Control& { return kind == kNormal ? cmd1 : cmd2; }}};

    /// The commission, `fralic`.
    Commission commission{
        *this, {.limit = [this] { return LicLimit; }, .recompute = [this] { Activate(); }, .button = cmdlic}};

    /// What the client gets from firms and associations, `fra2`.
    Shares shares{*this,
                  {.recompute = [this] { Activate(); },
                   .buttonOf = [this](BusinessKind kind) -> Control& { return kind == kAopShare ? cmd7 : cmd6; }}};

    double LicLimit = 0; ///< commission up to which the ad hoc deduction is allowed, rupees

  private:
    int deletingListener_;
    bool recomputed_ = false; ///< the figures are those of the stored rows; a recompute that failed leaves it off

    SummaryRules Rules() const { return {run.Year(), run.Glstatus}; }

    void LayOut();
    void Wire();

    // the recompute, step by step in its order
    void OpenGst();
    void NoteWhetherBusinessExists();
    void DeleteRetailLines();
    void CloseExemptShares();
    void ShowIncomeUnderSection11();
    void ShowLines();
    void ShowAuditAdjustment();
    void ShowCommission();
    void ShowSetOff();
    void AddUp();
    void AddUpAfterPartners();
    void LockWhenLocked();
    void ShowPreviousYear();
    void NameOthersOfPreviousYear();

    // the ways to the detail screens
    void OpenOneLine(BusinessKind kind, const std::string& screenCaption);
    void OpenRetail();
    void OpenProfession();
    void OpenTransport();
    void OpenFirms();
    void OpenAop();
    void OpenCommission();
    bool RefuseMinor() const;
    bool Altered() const;

    void CalculateMaximum();
    void StoreIncomeUnderSection11();
    void Back();
    void ReportOnPreviousYear();
    void ReportOn(const std::string& code, const std::string& year);
};

} // namespace pgbp
