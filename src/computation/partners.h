#pragma once

#include "computation/linked_client.h"
#include "computation/partner_row.h"
#include "computation/partner_search.h"
#include "computation/previous_partners.h"
#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/lists.h"
#include "startup/run.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pgbp {

/// What differs between the screens that keep partners.
struct PartnersUse {
    /// Book profit on which the remuneration is limited, rupees, for the interest and remuneration as they are entered.
    std::function<double(double interest, double remuneration)> bookProfit;
    /// The line deducts nothing for partners: their amounts cannot be entered.
    std::function<bool()> takesNothing;
    /// From 2017 a line u/s 44AD or 44ADA allows no interest or remuneration.
    std::function<bool()> refusesPay;
    std::function<void(double interest, double remuneration)> saved; ///< totals, rupees
    std::function<void()> left; ///< after Save and Cancel, when the frame is hidden again
};

/// `frapartner`: the partners or members of a firm, an association or a body of individuals, with interest,
/// remuneration and share of each, and the most that may be deducted as remuneration. Partners are kept in `temp`
/// while the frame is up; Save turns them into detail rows of the line that is open.
class Partners {
  public:
    Partners(Screen& form, PartnersUse use);

    void Open();
    /// Neither interest nor remuneration is entered.
    bool DrawNothing() const { return Val(lblin) == 0 && Val(lblre) == 0; }

    frame frapartner;
    label lblpartner;
    txt txtpartner;
    image ImgHelp;
    label lblpan;
    txt TxtPart_PAN;
    image Image2;
    label lbladdress;
    txt TxtPart_Add;
    label lblcity;
    combo TxtCity;
    label lblstate;
    combo txtstate;
    label lblpin;
    txt TxtPIN;
    label lblstatus;
    combo CboStatus;
    label Label6;
    txt TXTDin;
    label lblratioc;
    txtn txtratio;
    label lblrate;
    txtn TxtInttRate;
    label lblpart1c;
    txtn txtpart1;
    label lblallow;
    txtn txtAllow;
    label lblpart2c;
    txtn txtpart2;
    check ChkCurrent;
    check ChkChange;
    cmd cmdaddpart;
    grid DbPart;
    frame fratotals;
    label lbltotal;
    label lblratio;
    label lblin;
    label lblre;
    label lblallowremuc;
    label lblallowremu;
    cmd cmdImport;
    cmd cmdsavepart;
    cmd cmdbackpartner;
    PartnerSearch search;
    PreviousPartners previous;
    PanDetails details;

  private:
    struct TextField {
        TextBox& field;
        std::string PartnerRow::*member;
    };
    struct NumberField {
        txtn& field;
        double PartnerRow::*member;
    };
    enum class Asking { Tell, TellPlainly, Confirm };
    struct Check {
        std::function<bool()> fails;
        const char* message;
        Control& focus;
        Asking asking = Asking::Tell;
    };

    void LayOut();
    void Wire();
    void FillLists();
    std::vector<Check> ChecksOfAdd();
    bool Refuses(const Check& check) const;

    PartnerRow Entered() const;
    void Show(const PartnerRow& partner);
    void Clear();
    void Count(const PartnerRow& partner, int times);
    void ShowLimit();
    void ShowGrid();
    void ShowIdentity();
    void FillFromLine();

    void Add();
    void Insert(const PartnerRow& partner) const;
    void TakeBack(int row);
    void Take(const Person& person);
    void LookUp();
    void AddAll(const std::vector<PartnerRow>& partners);
    void ImportCapital();
    void Save();
    const PartnerRow* WithoutState() const;
    bool RatiosAreWrong() const;
    void Leave();

    Run& run_;
    Form& form_;
    const PartnersUse use_;
    const std::vector<TextField> texts_;
    const std::vector<NumberField> numbers_;
    const std::vector<Check> checks_;
    std::optional<LinkedClient> linked_;
    std::vector<PartnerRow> shown_; ///< the rows behind the grid
    std::string knownPan_;          ///< whose details were taken over already
};

} // namespace pgbp
