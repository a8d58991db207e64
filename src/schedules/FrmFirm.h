#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "entry/firm_lists.h"
#include "entry/item_entry.h"
#include "records/share_line.h"
#include "startup/run.h"

#include <optional>
#include <string>
#include <vector>

namespace pgbp {

/// A firm or association of which the assessee is a member, with what he gets from it in the year. Rupees.
struct FirmShare {
    std::string name{};
    std::string pan{};
    double share = 0; ///< of the profit, percent
    double profit = 0;
    double remuneration = 0;
    double interest = 0;
    double expenses = 0;
    double balance = 0;          ///< closing balance in the firm
    double net = 0;              ///< remuneration and interest less expenses: the share of profit is exempt
    std::optional<bool> audit{}; ///< the firm is liable to audit

    bool operator==(const FirmShare&) const = default;
};

/// The firms of which the assessee is a partner, or the associations of which he is a member. Its save books the net
/// income as one line of business and the shares of profit among the exempt incomes.
class FrmFirm : public Screen {
  public:
    explicit FrmFirm(Run& itsRun);
    void Open(const MembershipOpening& opening);
    void Close() override;

    Frame framain{*this, "framain", "", FramePlace::Main};
    Label lblname{*this, "lblname", "Name of Firm :"};
    txt txtname{*this, "txtname"};
    Image ImgHelp{*this, "ImgHelp", "Income from Partnership Firm"};
    Label lblpan{*this, "lblpan", "PAN :"};
    txt TxtPan{*this, "TxtPan"};
    Image ImgPan{*this, "ImgPan", "Check the PAN"};
    Label lblshare{*this, "lblshare", "Profit Share (%) :"};
    txtn TxtShare{*this, "TxtShare"};
    Label lblprofit{*this, "lblprofit", "Amount of Share in Profit :"};
    txtn TxtProfit{*this, "TxtProfit"};
    Label lblrem{*this, "lblrem", "Remuneration :"};
    txtn TxtRem{*this, "TxtRem"};
    Label lblintt{*this, "lblintt", "Interest :"};
    txtn TxtIntt{*this, "TxtIntt"};
    Label lblexps{*this, "lblexps", "Expenses :"};
    txtn TxtExps{*this, "TxtExps"};
    Label lblclos{*this, "lblclos", "Closing Balance :"};
    txtn TxtClos{*this, "TxtClos"};
    Label lblnet{*this, "lblnet", "Net Income :"};
    txtn TxtNet{*this, "TxtNet"};
    CheckBox ChkAudit{*this, "ChkAudit", "Is the Firm/LLP Liable to Audit ?"};
    cmd CmdAdd{*this, "CmdAdd", "&Add"};
    Grid MSH;
    Frame franote{*this, "franote", "", FramePlace::Group};
    CheckBox ChkA{*this, "ChkA", "Include this net Income into P && L Account in ITR"};
    Image ImgPL{*this, "ImgPL", "Include in PL"};
    Label lblnote{*this, "lblnote", "Note : In P/L Section enter profit without income from Partnership firm",
                  LabelLook::Hint};
    cmd CmdImpYear{*this, "CmdImpYear", "Import from &Last Year"};
    cmd cmdImport{*this, "cmdImport", "&Import from Firm's Return"};
    CheckBox ChkAll{*this, "ChkAll", "Show All Firms"};
    cmd CmdSave{*this, "CmdSave", "&Save"};
    cmd CmdBack{*this, "CmdBack", "&Back"};
    ItemEntry<FirmShare> entry;
    FirmLists lists;

  private:
    std::vector<ItemColumn<FirmShare>> Columns();
    FirmListsUse UseOfLists();
    void LayOut();
    void Wire();
    void Lock();

    void ShowNet();
    void TellFaultOfPan();
    void ImportLastYear();
    void ImportFromFirm();
    void Take(const FirmReturn& firm, const PartnerShare& partner);
    void Save();
    double Store();
    void DeleteStored(const Transaction& transaction) const;
    void StoreShare(const FirmShare& share, int number, double sno, const Transaction& transaction) const;
    void StoreCells(double rupees, const Transaction& transaction) const;

    const KindOfShare* share_ = &kFirmShares;
    bool includedBefore_ = false; ///< `ChkA` as it was opened
};

} // namespace pgbp
