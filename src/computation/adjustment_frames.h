#pragma once

#include "computation/list_frame.h"

namespace pgbp {

/// `fra1`: lists of a description and an amount. Exempt income tells its kind besides, and may have to tell the PAN.
class DescriptionList : public ListFrame {
  public:
    explicit DescriptionList(Screen& form);

    label lblname;
    combo txtname;
    label Label5;
    label lblExemption;
    combo CboExType;
    check ChkDiv; ///< hidden: nothing tells when it shows
    label lblamount;
    txtn txtamount;
    label lblpart3;
    label lblpart3Amount;

  private:
    void Prepare(const AdjustmentList& list) override;
};

/// `fra2`: lists of a section, a description and an amount.
class SectionList : public ListFrame {
  public:
    SectionList(Screen& form, const Names& names);

    /// Lays the frame out; `beside` stand in the row of the button that adds.
    void LayOut(const std::vector<Control*>& beside);
    label lblsec;
    txt txtsec;
    label lblname1;
    combo txtname1;
    label lblamount1;
    txtn txtamount1;

  private:
    void Prepare(const AdjustmentList& list) override;
};

/// `fra4`: allowances spread over years: section, description, year, instalment, amount allowable. The list of sections
/// 10A to 10C up to 2006 uses it with an amount in place of the instalment.
class AllowanceList : public ListFrame {
  public:
    explicit AllowanceList(Screen& form);

    /// After a list was left.
    void RestoreCaptions();

    label lblseca;
    txt txtseca;
    label lblnamea;
    txt txtnamea;
    label lblamt1;
    txtn txtamt1;
    label lblamt2;
    txtn txtamt2;
    label lblamt3;
    txtn txtamt3;

  private:
    void Prepare(const AdjustmentList& list) override;
    void NameInstalment();
};

} // namespace pgbp
