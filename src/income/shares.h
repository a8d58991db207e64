#pragma once

#include "controls/buttons.h"
#include "controls/text_controls.h"
#include "entry/entry_frame.h"
#include "entry/field_texts.h"
#include "entry/firm_lists.h"
#include "records/share_line.h"
#include "startup/run.h"

#include <functional>
#include <string>
#include <vector>

namespace pgbp {

/// An amount from a firm or an association, in the list while it is open.
struct ShareItem {
    std::string name{};
    double amount = 0; ///< rupees
    double minor = 0;  ///< number of the child whose it is; 0 for the run's own

    bool operator==(const ShareItem&) const = default;
};

/// An exempt share of profit.
struct ProfitItem {
    std::string name{};
    double amount = 0;   ///< rupees
    std::string name2{}; ///< PAN of the firm, where another screen stored it

    bool operator==(const ProfitItem&) const = default;
};

struct ProfitFields {
    explicit ProfitFields(Screen& form);

    Label lblDescProfit;
    txt TxtDescProfit;
    Label lblAmtProfit;
    txtn TxtAmtProfit;
};

/// `FraShare`: the exempt shares of profit in firms.
class ProfitList : public ProfitFields, public EntryFrame<ProfitItem> {
  public:
    explicit ProfitList(Screen& form);

    void Open();
    /// A share that is stored when the list, or the one that it came with, is saved.
    void Bring(ProfitItem share) { brought_.push_back(std::move(share)); }
    bool HasBrought() const { return !brought_.empty(); }
    void ForgetBrought() { brought_.clear(); }
    void StoreBrought(const Transaction& transaction) const;

  private:
    void Store() override;
    void Add(const ProfitItem& share, const Transaction& transaction) const;

    std::vector<ProfitItem> brought_;
};

/// `FraAOP`: the exempt share of profit in associations, one amount.
class AopProfit {
  public:
    explicit AopProfit(Screen& form);

    void Open();
    bool Altered() const { return FraAOP.visible && opened_.DifferFrom(FraAOP); }

    Frame FraAOP;
    Label lblAopS;
    txtn TXTAopS;
    cmd CmdSaveAOP;
    cmd CmdBackAOP;

  private:
    void Save();

    Screen& form_;
    FieldTexts opened_;
};

struct ShareFields {
    explicit ShareFields(Screen& form);

    Label lblsharename;
    txt txtname;
    Label lblshareamount;
    txtn txtamount;
};

/// What the shares ask of the summary.
struct SharesUse {
    std::function<void()> recompute;
    std::function<Control&(BusinessKind)> buttonOf; ///< opens the kind, and has the focus after it
};

/// `fra2` of the summary: what a person gets from firms, up to 2006, and from associations, with the exempt profits
/// beside it. A child's amounts are seen in the parent's run and left as they are.
class Shares : public ShareFields, public EntryFrame<ShareItem> {
  public:
    Shares(Screen& summary, SharesUse use);

    void Open(const KindOfShare& share);
    bool Altered() const override;

    cmd cmdImport;
    cmd CmdPro;
    cmd CmdAOP;
    ProfitList profits;
    AopProfit aopProfit;
    FirmLists firms;

  private:
    std::vector<ItemColumn<ShareItem>> Columns();
    void LayOut();
    void Wire();
    std::vector<ShareItem> Read() const;
    void Take(const FirmReturn& firm, const PartnerShare& partner);
    void Store() override;
    void DeleteOwn(const Transaction& transaction) const;
    void Left() override;

    SharesUse use_;
    const KindOfShare* share_ = &kFirmShares; ///< which is listed
};

} // namespace pgbp
