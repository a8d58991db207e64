#pragma once

#include "controls/buttons.h"
#include "controls/text_controls.h"
#include "startup/run.h"

namespace pgbp {

/// The part of the summary that is a firm's alone: interest and remuneration of the partners, deducted from the total,
/// and the limit of the remuneration.
class PartnerDeductions {
  public:
    /// `total` gives the head of income before the deductions, rupees.
    PartnerDeductions(Screen& summary, std::function<double()> total);

    /// Shows the stored deductions.
    void Show();
    /// Takes the interest from the partners' own rows, where there are any; it can not be typed then.
    void TakeInterestFromPartners();
    /// Calculates the remuneration once after a line of business was open, unless the firm keeps it by hand.
    void RefreshRemuneration();
    /// On which the remuneration is limited, rupees: the total with what was taken out of it as exempt or as income of
    /// another head, less the interest.
    double BookProfit() const;
    /// To all partners, rupees.
    double PaidRemuneration() const;
    /// Deducts the most that the law allows. True when another amount was stored than before.
    bool CalculateMaximum();

    Label lblpart1;
    txtn txtlesspart1;
    Label txtlesspart1P;
    cmd cmdmax;
    Label lblpart2;
    txtn txtlesspart2;
    Label txtlesspart2P;

  private:
    struct Deduction {
        txtn& field;
        std::string_view type;
        std::string_view name;
        bool zeroMinorIsOwn; ///< a stored minor of 0 is replaced too, as Null is
    };

    bool IsKeptByHand() const;
    double MaximumRemuneration() const;
    void Leave(const Deduction& deduction) const;
    void Store(const Deduction& deduction) const;
    bool IsStored(const Deduction& deduction) const;
    static bool IsTheRow(const Recordset& rows, const Deduction& deduction, double amount);
    std::string OwnRows(const Deduction& deduction) const;

    Screen& form_;
    Run& run_;
    std::function<double()> total_;
    Deduction interest_;
    Deduction remuneration_;
};

} // namespace pgbp
