#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/lists.h"
#include "entry/item_entry.h"
#include "entry/linked_client.h"
#include "entry/partner_row.h"
#include "entry/partner_search.h"
#include "entry/previous_partners.h"
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
    std::function<void()> saved; ///< the detail rows of the line are others now
};

/// The fields of a partner, made before the grid and the list that are entered through them.
struct PartnerFields {
    explicit PartnerFields(Screen& form);

    Screen& screen;
    label lblpartner{screen, "lblpartner", "Name :"};
    txt txtpartner{screen, "txtpartner"};
    image ImgHelp{screen, "ImgHelp", "Select Partner"};
    label lblpan{screen, "lblpan", "PAN :"};
    txt TxtPart_PAN{screen, "TxtPart_PAN"};
    image Image2{screen, "Image2", "Check PAN from IT Records"};
    label lbladdress{screen, "lbladdress", "Address :"};
    txt TxtPart_Add{screen, "TxtPart_Add"};
    label lblcity{screen, "lblcity", "City :"};
    combo TxtCity{screen, "TxtCity", true};
    label lblstate{screen, "lblstate", "State :"};
    combo txtstate{screen, "txtstate", true};
    label lblpin{screen, "lblpin", "PIN :"};
    txt TxtPIN{screen, "TxtPIN"};
    label lblstatus{screen, "lblstatus", "Satatus :"};
    combo CboStatus{screen, "CboStatus"};
    label Label6{screen, "Label6", "If LLP, DIN else Aadhar :"};
    txt TXTDin{screen, "TXTDin"};
    label lblratioc{screen, "lblratioc", "Ratio :"};
    txtn txtratio{screen, "txtratio"};
    label lblrate{screen, "lblrate", "Intt Rate :"};
    txtn TxtInttRate{screen, "TxtInttRate"};
    label lblpart1c{screen, "lblpart1c", "%  Interest :"};
    txtn txtpart1{screen, "txtpart1"};
    label lblallow{screen, "lblallow", "Allow. Int. :"};
    txtn txtAllow{screen, "txtAllow"};
    label lblpart2c{screen, "lblpart2c", "Rem. :"};
    txtn txtpart2{screen, "txtpart2"};
    check ChkCurrent{screen, "ChkCurrent", "Whether the person was not the partner on year ending date ?"};
};

/// `frapartner`: the partners or members of a firm, an association or a body of individuals, with interest,
/// remuneration and share of each, and the most that may be deducted as remuneration. Partners are kept in `temp`
/// while the frame is up; Save turns them into detail rows of the line that is open.
class Partners : public PartnerFields {
  public:
    Partners(Screen& form, PartnersUse use);

    void Open();
    /// Neither interest nor remuneration is entered.
    bool DrawNothing() const { return Val(lblin) == 0 && Val(lblre) == 0; }
    /// The frame is up and differs from what was opened.
    bool Altered() const { return frapartner.visible && entry.Altered(); }

    frame frapartner{screen, "frapartner", "Partners"};
    check ChkChange{screen, "ChkChange", "Whether there was change in partnership during the year "};
    cmd cmdaddpart{screen, "cmdaddpart", "&Add"};
    grid DbPart;
    label lblratio{screen, "lblratio", "0.00", LabelLook::Amount};
    label lblin{screen, "lblin", "0.00", LabelLook::Amount};
    label lblre{screen, "lblre", "0.00", LabelLook::Amount};
    frame fratotals{screen, "fratotals", "", FramePlace::Group};
    label lblallowremuc{screen, "lblallowremuc", "Maximum Allowable Remuneration :"};
    label lblallowremu{screen, "lblallowremu", "0.00", LabelLook::Amount};
    cmd cmdImport{screen, "cmdImport", "&Import"};
    cmd cmdsavepart{screen, "cmdsavepart", "&Save"};
    cmd cmdbackpartner{screen, "cmdbackpartner", "&Cancel"};
    PartnerSearch search{screen};
    PreviousPartners previous{screen};
    PanDetails details{screen};
    ItemEntry<PartnerRow> entry;

  private:
    std::vector<ItemColumn<PartnerRow>> Columns();
    void LayOut();
    void Wire();
    void FillLists();
    std::vector<Check> ChecksOfAdd();
    std::vector<PartnerRow> OfTheLine() const;

    void TakeOver(const PartnerRow& given);
    void Changed();
    void ShowTotals();
    void ShowLimit();
    void ShowIdentity();
    void Take(const Person& person);
    void LookUp();
    void ImportCapital();
    bool RatiosAreWrong() const;
    void Save();
    void Store() const;
    void Leave();

    Run& run_;
    const PartnersUse use_;
    std::optional<LinkedClient> linked_;
    std::string knownPan_; ///< whose details were taken over already
};

} // namespace pgbp
