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
    Label lblpartner{screen, "lblpartner", "Name :"};
    txt txtpartner{screen, "txtpartner"};
    Image ImgHelp{screen, "ImgHelp", "Select Partner"};
    Label lblpan{screen, "lblpan", "PAN :"};
    txt TxtPart_PAN{screen, "TxtPart_PAN"};
    Image Image2{screen, "Image2", "Check PAN from IT Records"};
    Label lbladdress{screen, "lbladdress", "Address :"};
    txt TxtPart_Add{screen, "TxtPart_Add"};
    Label lblcity{screen, "lblcity", "City :"};
    combo TxtCity{screen, "TxtCity", true};
    Label lblstate{screen, "lblstate", "State :"};
    combo txtstate{screen, "txtstate", true};
    Label lblpin{screen, "lblpin", "PIN :"};
    txt TxtPIN{screen, "TxtPIN"};
    Label lblstatus{screen, "lblstatus", "Satatus :"};
    combo CboStatus{screen, "CboStatus"};
    Label Label6{screen, "Label6", "If LLP, DIN else Aadhar :"};
    txt TXTDin{screen, "TXTDin"};
    Label lblratioc{screen, "lblratioc", "Ratio :"};
    txtn txtratio{screen, "txtratio"};
    Label lblrate{screen, "lblrate", "Intt Rate :"};
    txtn TxtInttRate{screen, "TxtInttRate"};
    Label lblpart1c{screen, "lblpart1c", "%  Interest :"};
    txtn txtpart1{screen, "txtpart1"};
    Label lblallow{screen, "lblallow", "Allow. Int. :"};
    txtn txtAllow{screen, "txtAllow"};
    Label lblpart2c{screen, "lblpart2c", "Rem. :"};
    txtn txtpart2{screen, "txtpart2"};
    CheckBox ChkCurrent{screen, "ChkCurrent", "Whether the person was not the partner on year ending date ?"};
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
    /// On which the remuneration is limited, rupees.
    double BookProfit() const;
    /// The frame is up and differs from what was opened.
    bool Altered() const { return frapartner.visible && entry.Altered(); }

    Frame frapartner{screen, "frapartner", "Partners"};
    CheckBox ChkChange{screen, "ChkChange", "Whether there was change in partnership during the year "};
    cmd cmdaddpart{screen, "cmdaddpart", "&Add"};
    Grid DbPart;
    Label lblratio{screen, "lblratio", "0.00", LabelLook::Amount};
    Label lblin{screen, "lblin", "0.00", LabelLook::Amount};
    Label lblre{screen, "lblre", "0.00", LabelLook::Amount};
    Frame fratotals{screen, "fratotals", "", FramePlace::Group};
    Label lblallowremuc{screen, "lblallowremuc", "Maximum Allowable Remuneration :"};
    Label lblallowremu{screen, "lblallowremu", "0.00", LabelLook::Amount};
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
