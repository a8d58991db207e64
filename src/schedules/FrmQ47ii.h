#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/lists.h"
#include "entry/item_entry.h"
#include "startup/run.h"

#include <string>

namespace pgbp {

/// A debtor whose debt of more than one lakh went bad and whose PAN is not known.
struct BadDebt {
    std::string name{};
    std::string flat{};
    std::string premises{};
    std::string road{};
    std::string area{};
    std::string town{};
    std::string state{};
    std::string country{};
    std::string pin{};
    std::string zip{}; ///< in place of the PIN outside India
    double amount = 0; ///< rupees

    bool operator==(const BadDebt&) const = default;
};

/// The list of debtors behind one line of the profit and loss account, one for the assessee-year. Nothing is written
/// before Save, which hands the total to the line.
class FrmQ47ii : public Screen {
  public:
    explicit FrmQ47ii(Run& itsRun);
    void Open(const BadDebtsOpening& opening);
    void Close() override;

    Frame framain{*this, "framain", "", FramePlace::Main};
    Label Label1{*this, "Label1", "Name :"};
    txt Txt1{*this, "Txt1"};
    Label Label2{*this, "Label2", "Flat/ Door/ Block No. :"};
    txt Txt2{*this, "Txt2"};
    Label Label3{*this, "Label3", "Premises / Building / Village :"};
    txt Txt3{*this, "Txt3"};
    Label Label4{*this, "Label4", "Road/ Street/ Post office :"};
    txt Txt4{*this, "Txt4"};
    Label Label5{*this, "Label5", "Area/ Locality :"};
    txt Txt5{*this, "Txt5"};
    Label Label6{*this, "Label6", "Town/ City/ District :"};
    txt Txt6{*this, "Txt6"};
    Label Label7{*this, "Label7", "State :"};
    combo CombState{*this, "CombState", true};
    Label Label8{*this, "Label8", "Country :"};
    combo CombCountry{*this, "CombCountry", true};
    Label Label9{*this, "Label9", "PIN Code :"};
    txt Txt7{*this, "Txt7"};
    Label Label10{*this, "Label10", "ZIP Code :"};
    txt Txt8{*this, "Txt8"};
    Label Label11{*this, "Label11", "Amount :"};
    txtn Txtn1{*this, "Txtn1"};
    cmd CmdAdd{*this, "CmdAdd", "&Add"};
    Grid MSH;
    cmd Command11{*this, "Command11", "&Save"};
    cmd CmdBack{*this, "CmdBack", "&Back"};
    ItemEntry<BadDebt> entry;

  private:
    std::vector<ItemColumn<BadDebt>> Columns();
    std::vector<Check> ChecksOfAdd();
    void LayOut();
    void Wire();
    void Lock();

    void Fill_State();
    void Fill_Country();
    void Fill_MSH1();
    void ShowCodeOfCountry();
    void Save();
    double Store() const;

    BadDebtsOpening opening_;
};

} // namespace pgbp
