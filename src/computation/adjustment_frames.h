#pragma once

#include "controls/lists.h"
#include "entry/list_frame.h"

namespace pgbp {

// Each list has its fields in a base of their own, so that they are made before the frame that enters items through
// them.

struct DescriptionFields {
    explicit DescriptionFields(Screen& form);

    Label lblname;
    combo txtname;
    Label Label5;
    Label lblExemption;
    combo CboExType;
    CheckBox ChkDiv; ///< out of view: none of the lists asks whether an income is a dividend
    Label lblamount;
    txtn txtamount;
    Label lblpart3;
    Label lblpart3Amount;
};

/// `fra1`: lists of a description and an amount. Exempt income tells its kind besides, and may have to tell the PAN.
class DescriptionList : public DescriptionFields, public ListFrame {
  public:
    explicit DescriptionList(Screen& form);

  private:
    void Prepare(const AdjustmentList& list) override;
};

struct SectionFields {
    explicit SectionFields(Screen& form);

    Label lblsec;
    txt txtsec;
    Label lblname1;
    combo txtname1;
    Label lblamount1;
    txtn txtamount1;
};

/// `fra2`: lists of a section, a description and an amount.
class SectionList : public SectionFields, public ListFrame {
  public:
    SectionList(Screen& form, const Names& names);

    /// Lays the frame out; `atSection` stand in the row of the section, `atAmount` in that of the button that adds.
    void LayOut(const std::vector<Control*>& atSection, const std::vector<Control*>& atAmount);

  private:
    void Prepare(const AdjustmentList& list) override;
};

struct AllowanceFields {
    explicit AllowanceFields(Screen& form);

    Label lblseca;
    txt txtseca;
    Label lblnamea;
    txt txtnamea;
    Label lblamt1;
    txtn txtamt1;
    Label lblamt2;
    txtn txtamt2;
    Label lblamt3;
    txtn txtamt3;
};

/// `fra4`: allowances spread over years: section, description, year, instalment, amount allowable. The list of sections
/// 10A to 10C up to 2006 uses it with an amount in place of the instalment.
class AllowanceList : public AllowanceFields, public ListFrame {
  public:
    explicit AllowanceList(Screen& form);

  private:
    void Prepare(const AdjustmentList& list) override;
    void Restore() override;
    void NameInstalment();
};

} // namespace pgbp
