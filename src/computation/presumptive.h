#pragma once

#include "computation/line_rules.h"
#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/text_controls.h"
#include "startup/run.h"

namespace pgbp {

class LineHeader;
class ListTotals;

/// `fra44ad`: a line whose income the law deems, sections 44AD, 44ADA, 44AE and 44AF: what is stored of it, and the
/// partners' interest and remuneration that come off the deemed profit. The figures are read only as yet: the rules of
/// the sections and the save of this frame are not there.
class PresumptiveFrame {
  public:
    explicit PresumptiveFrame(Screen& form);

    /// Takes the stored line over.
    void Fill(const LineHeader& line);
    /// Deductions and net profit from the sums of the two lists.
    void CalBalance1(const ListTotals& totals);
    /// Hides what the status, the year or the line has no use for.
    void ApplyStatus();
    void HideDeductions();
    /// Neither interest nor remuneration is deducted.
    bool DeductsNothing() const { return Val(TxtIntt) == 0 && Val(txtremu) == 0; }

    Frame fra44ad;
    Label lbldescr44ad;
    txt txt44ad1;
    txt txt44ad2;
    Label lblrece;
    txtn txtrece;
    Label lblper;
    txtn TxtPer;
    Label lblrece6;
    txtn TxtRece6;
    Label lblper6;
    txtn TxtPer6;
    Label lblreceoth;
    txtn TxtReceOth;
    txtn TxtNetAd[4]; ///< profit on the receipts, on those at 6%, rate of the others, profit on the others
    Label Lbl44ADc;
    txtn Lbl44AD;
    cmd cmdintt;
    Label lblinttc;
    txtn TxtIntt;
    cmd cmdremu;
    Label lblremuc;
    txtn txtremu;
    Label lbl44adfinalc;
    Label lbl44adfinal;
    CheckBox chk44ad;
    Frame FraBooks;
    Label lblTxt[4];
    txtn Txt[4]; ///< `Txt1` to `Txt4`: receipts, gross profit, expenses, net profit for the return's account
    cmd CmdPart;
    cmd cmdsave44ad;
    cmd cmdDel1;
    cmd cmdback44ad;

    std::function<void()> listReplaced; ///< an amount was typed in place of a list: the sums have changed

  private:
    void LayOut();
    void FillReceipts(std::string_view type);
    void FillRate(double sno);
    void FillAccounts(double sno);
    void ReplaceList(std::string_view type, std::string_view name, const txtn& amount);
    BusinessKind Line() const { return static_cast<BusinessKind>(run_.GlBusinessKind); }

    Run& run_;
};

} // namespace pgbp
