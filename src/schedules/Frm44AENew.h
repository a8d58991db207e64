#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "entry/field_texts.h"
#include "entry/item_entry.h"
#include "entry/partners.h"
#include "records/annexure_rows.h"
#include "startup/run.h"

#include <optional>
#include <string>
#include <vector>

namespace pgbp {

/// A goods carriage of section 44AE.
struct Carriage {
    std::string number{};        ///< of the registration
    std::string holding = "OWN"; ///< "OWN", "LEASE" or "HIRED"
    double tons = 0;             ///< capacity
    double months = 0;           ///< in which it was held
    double income = 0;           ///< deemed, rupees

    bool operator==(const Carriage&) const = default;
};

/// The fields of a carriage, made before the grid and the list that are entered through them.
struct CarriageFields {
    explicit CarriageFields(Screen& form) : screen(form) {}

    Screen& screen;
    Label lblRegNo{screen, "lblRegNo", "Reg. No."};
    txt TxtRegNo{screen, "TxtRegNo"};
    Label lblHeld{screen, "lblHeld", "Own/Lease/Hired"};
    Frame fraHeld{screen, "fraHeld", "", FramePlace::Group};
    Option OptOwn{screen, "OptOwn", "Own"};
    Option OptLease{screen, "OptLease", "Lease"};
    Option OptHired{screen, "OptHired", "Hired"};
    txt TxtHolding{screen, "TxtHolding"}; ///< the option's word; never shown
    Label lblCapacity{screen, "lblCapacity", "Capacity (Ton)"};
    txtn TxtCapacity{screen, "TxtCapacity"};
    Label lblPeriod{screen, "lblPeriod", "Period (Months)"};
    txtn TxtPeriod{screen, "TxtPeriod"};
    Label lblIncome{screen, "lblIncome", "Income"};
    txtn TxtIncome{screen, "TxtIncome"}; ///< computed: it can not be typed
};

/// The income of a transport business from assessment year 2019-20, vehicle by vehicle, and its partners. There is one
/// such line for an assessee. Nothing is written before Save, behind which the screen stays and shows what is stored.
class Frm44AENew : public Screen, public CarriageFields {
  public:
    explicit Frm44AENew(Run& itsRun);
    void Open(const NoOpening&);
    /// Also on the return from the annexure, whose rows are the line's then.
    void Activate() override;
    void Close() override;

    Frame framain{*this, "framain", "", FramePlace::Main};
    cmd CmdAdd{*this, "CmdAdd", "&Add"};
    Grid MSH;
    Frame fratotals44ae{*this, "fratotals44ae", "", FramePlace::Group};
    Label Lbl44ADc{*this, "Lbl44ADc", "Deemed Profit :"};
    Label Lbl44AD{*this, "Lbl44AD", "0", LabelLook::Amount};
    Label lblRemuc{*this, "lblRemuc", "Less Remuneration :"};
    Label lblRemu{*this, "lblRemu", "0", LabelLook::Amount};
    Label LblInttc{*this, "LblInttc", "Less Interest :"};
    Label LblIntt{*this, "LblIntt", "0", LabelLook::Amount};
    Label lbl44adfinalc{*this, "lbl44adfinalc", "Net Profit :"};
    Label lbl44adfinal{*this, "lbl44adfinal", "0", LabelLook::Amount};
    Frame FraBooks{*this, "FraBooks", "For P && L (Not for Calculation)", FramePlace::Group};
    Label lblTxt[4]{{*this, "lblTxt1", "Gross Receipts :"},
                    {*this, "lblTxt2", "Gross Profit :"},
                    {*this, "lblTxt3", "Expenses :"},
                    {*this, "lblTxt4", "Net Profit :"}};
    txtn Txt[4]{{*this, "Txt1"}, {*this, "Txt2"}, {*this, "Txt3"}, {*this, "Txt4"}};
    cmd CmdPartner{*this, "CmdPartner", "Part&ner's Details"};
    cmd CmdF{*this, "CmdF", "STC&G on Depreciable Assets"};
    cmd CmdSave{*this, "CmdSave", "&Save"};
    cmd CmdBack{*this, "CmdBack", "&Back"};
    cmd cmdr{*this, "cmdr", "&R"}; ///< laid out nowhere: only its hot key Alt+R reaches it
    ItemEntry<Carriage> entry;
    Partners partners;

  private:
    std::vector<ItemColumn<Carriage>> Columns();
    std::vector<Check> ChecksOfAdd();
    void LayOut();
    void Wire();

    void Load();
    void Fill_MSH();
    void FillLine();
    void FillAccounts(double sno);
    void ChooseHolding();
    bool EntryIsEmpty() const;
    void Compute();
    void CheckPeriod();
    double MonthsOfAll() const;
    void AddUp();
    void ShowPartners();
    void ShowNetProfit();

    bool Altered() const;
    void Save();
    bool Store();
    void StoreCarriages(const Transaction& proof) const;
    std::optional<double> StoreLine(const Transaction& proof) const;
    void StoreDetails(double sno, const Transaction& proof) const;
    std::optional<Record> StoredLine() const;

    WorkAnnexure annexure_{run};
    Recordset openedDetails_;
    FieldTexts openedPage_;
    FieldTexts openedPartners_;
};

} // namespace pgbp
