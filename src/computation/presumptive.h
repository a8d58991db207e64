#pragma once

#include "computation/line_rules.h"
#include "computation/vehicles.h"
#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/text_controls.h"
#include "entry/checks.h"
#include "startup/run.h"

#include <optional>
#include <vector>

namespace pgbp {

class LineHeader;
class ListTotals;

/// The controls of `fra44ad`.
struct PresumptiveFields {
    explicit PresumptiveFields(Screen& form) : screen(form) {}

    Screen& screen;
    Frame fra44ad{screen, "fra44ad", "", FramePlace::Main};
    Label lbldescr44ad{screen, "lbldescr44ad", "Description :"};
    txt txt44ad1{screen, "txt44ad1"};
    txt txt44ad2{screen, "txt44ad2"};

    Frame fra441{screen, "fra441", "", FramePlace::Group};
    Label lblrece{screen, "lblrece", "Gross Receipts :"};
    txtn txtrece{screen, "txtrece"};
    Label lblper{screen, "lblper", "Percentage :"};
    txtn TxtPer{screen, "TxtPer"};
    Label lblrece6{screen, "lblrece6", "Gross Receipts (6%) :"};
    txtn TxtRece6{screen, "TxtRece6"};
    Label lblper6{screen, "lblper6", "Percentage :"};
    txtn TxtPer6{screen, "TxtPer6"};
    Label lblreceoth{screen, "lblreceoth", "Others :"};
    txtn TxtReceOth{screen, "TxtReceOth"};
    Label lblperoth{screen, "lblperoth", "Percentage :"};
    /// Profit on the first and on the second receipts; rate of the others, and profit on them.
    txtn TxtNetAd[4]{
        {screen, "TxtNetAd(0)"}, {screen, "TxtNetAd(1)"}, {screen, "TxtNetAd(2)"}, {screen, "TxtNetAd(3)"}};
    Label lblprofit[3]{{screen, "lblprofit(0)", "Profit :"},
                       {screen, "lblprofit(1)", "Profit :"},
                       {screen, "lblprofit(2)", "Profit :"}};
    Label Lbl44ADc{screen, "Lbl44ADc", "Deemed Profit :"};
    txtn Lbl44AD{screen, "Lbl44AD"};
    Image Image1{screen, "Image1", "Higher Deemed Profit"};
    cmd cmdintt{screen, "cmdintt", "&Interest"};
    Label lblinttc{screen, "lblinttc", "Interest to partners :"};
    txtn TxtIntt{screen, "TxtIntt"};
    cmd cmdremu{screen, "cmdremu", "&Remuneration"};
    Label lblremuc{screen, "lblremuc", "Remuneration to partners :"};
    txtn txtremu{screen, "txtremu"};
    Label lbl44adfinalc{screen, "lbl44adfinalc", "Net Profit :"};
    Label lbl44adfinal{screen, "lbl44adfinal", "0.00", LabelLook::Amount};

    CheckBox chk44ad{screen, "chk44ad", "Whether books of accounts have been maintained by the assessee ?"};
    Frame FraBooks{screen, "FraBooks", "For P && L (Not for Calculation)", FramePlace::Group};
    Label lblTxt[4]{{screen, "lblTxt1", "Gross Receipts :"},
                    {screen, "lblTxt2", "Gross Profit :"},
                    {screen, "lblTxt3", "Expenses :"},
                    {screen, "lblTxt4", "Net Profit :"}};
    txtn Txt[4]{{screen, "Txt1"}, {screen, "Txt2"}, {screen, "Txt3"}, {screen, "Txt4"}};

    cmd CmdPart{screen, "CmdPart", "Part&ner's Details"};
    cmd CmdMulti{screen, "CmdMulti", "&Multiple Business"};
    cmd cmdsave44ad{screen, "cmdsave44ad", "&Save"};
    cmd cmdDel1{screen, "cmdDel1", "&Delete"};
    cmd cmdback44ad{screen, "cmdback44ad", "&Back"};
};

/// `fra44ad`: a line whose income the law deems, sections 44AD, 44ADA, 44AE and 44AF: receipts and vehicles, the deemed
/// profit, the partners' interest and remuneration that come off it, and the figures of the return's account. The limit
/// is read on opening; a key asks the store nothing.
class PresumptiveFrame : public PresumptiveFields {
  public:
    /// `deducted`: sums of the lists of interest and remuneration.
    PresumptiveFrame(Screen& form, const ListTotals& deducted);

    /// Takes the stored line over. No rule runs: the figures are those that were stored.
    void Fill(const LineHeader& line);
    /// Behind Fill, with the line's details in the working table: shows what the line has use for, and proposes rates.
    void Open(const LineHeader& line);
    /// Deductions and net profit from the sums of the two lists.
    void CalBalance1();
    /// Hides what the status, the year or the line has no use for.
    void ApplyStatus();
    void HideDeductions();
    /// Neither interest nor remuneration is deducted.
    bool DeductsNothing() const { return Val(TxtIntt) == 0 && Val(txtremu) == 0; }
    /// Something that no field shows differs from what was opened.
    bool Altered() const { return businesses_ != openedBusinesses_; }
    /// Gross receipts as they stand in the fields.
    Receipts Entered() const;

    /// Tells what the law does not accept of the figures; true when it accepts them.
    bool MayGoOn();
    /// The same for what has to be there where no books are kept.
    bool MayBeStored();
    /// Writes what the line stores beside its own row and its details. Inside a transaction of the caller, which has
    /// deleted the details.
    void Store(double sno, const Transaction& proof);

    Vehicles vehicles;
    std::function<void()> listReplaced; ///< an amount was typed in place of a list: the sums have changed

  private:
    /// One kind of receipts with its rate and the profit on it.
    struct Rated {
        txtn& receipts;
        txtn& rate;
        txtn& profit;
    };
    /// A field and its column among the stored receipts.
    struct StoredField {
        std::string_view column;
        txtn& field;
        std::string (*shown)(double); ///< the picture in which it is read
        bool isRounded = false;       ///< to rupees when it is written
    };

    void LayOut();
    void Wire();
    void ShowReceipts();
    void ProposeRates(bool isNew);

    void ChangeReceipts();
    void TypeProfit(const Rated& typed);
    void TypeDeemed();
    void SetDeemed(const std::string& profit);
    void ShowNetProfit();
    double ProfitOfReceipts() const;
    std::optional<std::string> TooHigh() const;
    std::vector<Check> ChecksOfAccount();
    std::vector<Check> ChecksOfLaw();
    void ReplaceList(std::string_view type, std::string_view name, const txtn& amount);

    void OpenBusinesses();
    void TakeBusinesses(const std::vector<BusinessPart>& businesses);
    double DeemedOfBusinesses() const;

    std::vector<StoredField> StoredFields();
    void FillReceipts(double sno);
    void FillAccounts(double sno);
    void FillBusinesses(double sno);
    void StoreReceipts(double sno, const Transaction& proof);
    void StoreAccounts(double sno, const Transaction& proof) const;

    BusinessKind Line() const { return static_cast<BusinessKind>(run_.GlBusinessKind); }

    Run& run_;
    const ListTotals& deducted_;
    const Rated rated_[3];
    std::optional<double> limit_; ///< of the receipts in the run's year, rupees
    std::vector<BusinessPart> businesses_;
    std::vector<BusinessPart> openedBusinesses_;
};

} // namespace pgbp
