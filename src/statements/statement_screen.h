#pragma once

#include "controls/lists.h"
#include "statements/accounts_link.h"
#include "statements/ind_as_totals.h"
#include "statements/statement_details.h"
#include "statements/statement_sheet.h"
#include "statements/totals_rules.h"
#include "statements/trial_balance_frame.h"

#include <optional>
#include <string>
#include <vector>

namespace pgbp {

/// A statement of the return, keyed in the lines of its form: computed lines follow each key, an amount can be broken
/// down, and Save stores each line as a schedule cell. The line of business is made by the first save.
class StatementScreen : public Screen {
  public:
    StatementScreen(Run& itsRun, ScreenName<StatementOpening> name, const StatementKeeping& keeping);

    void Open(const StatementOpening& opening);
    void Activate() override;
    void Close() override;

    Frame framain{*this, "framain", "", FramePlace::Main};
    Label lblfind{*this, "lblfind", "Find :"};
    txt TxtFind{*this, "TxtFind"};
    CheckBox ChkPr{*this, "ChkPr", "Pre&vious Year Values"};
    CheckBox ChkDet{*this, "ChkDet", "Show &Details"};
    Grid MSH;
    class Txtn1 TxtNum {
        *this, "TxtNum"
    };
    combo CmbYN{*this, "CmbYN"};
    class Txt1 Txt1 {
        *this, "Txt1"
    };
    Label lblTot1c{*this, "lblTot1c", "Net Profit :"};
    Label LblTot1{*this, "LblTot1", "", LabelLook::Amount};
    Label lblTot2c{*this, "lblTot2c", "Equity and Liabilities"};
    Label LblTot2{*this, "LblTot2", "", LabelLook::Amount};
    Label lblTot3c{*this, "lblTot3c", "Diff. :"};
    Label lblTot3{*this, "lblTot3", "", LabelLook::Amount};
    Label lblIndAs{*this, "lblIndAs", "IND-AS", LabelLook::Hint};
    cmd Command1{*this, "Command1", "Books &Maintained"};
    cmd CmdNew3{*this, "CmdNew3", "Int&raday Trading"};
    cmd CmdMulEntry{*this, "CmdMulEntry", "De&tails"};
    cmd cmdexport{*this, "cmdexport", "&Export to excel"};
    cmd cmdImport{*this, "cmdImport", "Import &From Excel"};
    cmd CmdTrial{*this, "CmdTrial", "Import Trial Balan&ce"};
    cmd Command2{*this, "Command2", "Create Blank E&xcel Sheet"};
    cmd CmdDel{*this, "CmdDel", "De&lete"};
    cmd CmdSave{*this, "CmdSave", "&Save"};
    cmd CmdBack{*this, "CmdBack", "&Back"};

    Frame FraBooks{*this, "FraBooks"};
    CheckBox ChkBooks{*this, "ChkBooks", "Whether Books of Accounts are not maintained ?"};
    cmd CmdBackFra{*this, "CmdBackFra", "&Proceed"};

    Frame FrNoBoo{*this, "FrNoBoo", "Data Feeding in No Account Books Case"};
    Label lblNoBoo1{*this, "lblNoBoo1"};
    Label lblNoBoo2{*this, "lblNoBoo2"};
    Label lblNoBoo3{*this, "lblNoBoo3"};
    Label lblNoBoo4{*this, "lblNoBoo4"};
    Label Label10{*this, "Label10", "If you still want to save the details, please click here"};
    cmd Cdfd{*this, "Cdfd", "&Back"};

    Frame FraNew3{*this, "FraNew3", "Intraday Trading Details"};
    Label lblNew3_1{*this, "lblNew3_1", "Turnover of Intraday Trading :"};
    txtn TxtNew3_1{*this, "TxtNew3_1"};
    Label lblNew3_2{*this, "lblNew3_2", "Profit/Loss from Intraday Trading  :"};
    txtn TxtNew3_2{*this, "TxtNew3_2"};
    Label lblNew3{*this, "lblNew3",
                  "These details are added from AY 2023-24 in ITR-3 and will be shown as part of Trading Account of "
                  "ITR-3 .",
                  LabelLook::Hint};
    cmd CmdNew3_Back{*this, "CmdNew3_Back", "&Back"};

    StatementDetails details{*this};
    AccountsLink link{*this,
                      {.save = [this] { Keep(); }, .line = [this] { return sno_; }, .reload = [this] { Reload(); }}};

  private:
    /// Amounts that one deed of the preparer changed, as they were.
    struct Undo {
        std::vector<std::pair<std::size_t, std::string>> amounts{};      ///< by line
        std::optional<Details> entries{};                                ///< of all lines, where they made the amounts
        std::vector<std::pair<std::size_t, std::string>> descriptions{}; ///< by line
    };

    void LayOut();
    void Wire();
    void OfferIntraday();
    void Fill_MSH();
    void Fill_Cond();
    void FillLine(std::size_t line, const StoredLine& stored, StatementRow& row);
    void FillPreviousYear(const StoredLines& stored, std::vector<StatementRow>& rows) const;
    void Shade(const StoredLines& stored);
    void ApplyVisibility();
    void ApplyLock();
    void ShowColumns();
    void KeepChoiceOfDetails();
    void RunTotals();
    void ShowTotals();

    void EnterCell(int row, int column);
    void ClickCell(int row, int column);
    bool CanEnter(int row, int column) const;
    bool IsBadDebts(std::size_t line) const;
    void SetAmount(std::size_t line, const std::string& text);
    void TypeAmount();
    void ChooseItem();
    void TypeDescription();
    bool PasteLines(int row, int column, const std::vector<std::string>& lines);
    void TakeBack();
    void FindLine();

    void OpenDetails();
    void CloseDetails(std::vector<DetailEntry> entries, double total);
    void OpenBadDebts(std::size_t line);

    void ImportTrialBalance();
    bool TakesAccounts(std::size_t line) const;
    TrialBalanceChoices TrialChoices() const;
    AccountPlaces ChosenBefore() const;
    void FillFromTrialBalance(TrialBalanceEntries filled);
    void FillLineWith(const std::vector<DetailEntry>& entries, std::size_t line, Undo& undo);

    void Proceed();
    bool RefusesNoBooks();
    void WarnOfNegativeReceipts();
    bool Keep();
    void Save();
    void Reload();
    void TellLeftOut();
    void Store();
    std::vector<Field> NewLine() const;
    std::vector<std::vector<Field>> StoredFields() const;
    void Delete();
    void Leave();
    GridTexts Texts() const;
    void Export(const xls::Workbook& workbook);
    void ImportSheet();

    double AmountOf(int slno, std::size_t distance) const;

    const StatementKeeping& keeping_;
    StatementOpening opening_;
    StatementForm form_;
    std::optional<FormNumberWhileOpen> formNumber_;
    StatementRows rows_;
    StatementLines lines_;
    Details entries_;
    TrialBalanceFrame trial_{*this};
    AccountPlaces placesToKeep_; ///< chosen for accounts of a trial balance, stored by the next save
    std::vector<Undo> undo_;
    std::size_t typedInto_ = 0; ///< the line whose amount is being typed, and is in the last entry of `undo_`
    double sno_ = 0;            ///< of the line of business; 0 until it is saved
    double attempted_ = 0;      ///< number under which a new line was written last; 0 before that
    bool asksBooks_ = false;
    bool DataAltered = false;
    bool SaveForced = false;
};

/// The profit and loss account and the balance sheet of the return.
class FrmbspnlPGBP : public StatementScreen {
  public:
    explicit FrmbspnlPGBP(Run& itsRun) : StatementScreen(itsRun, screens::FrmbspnlPGBP, kOfReturn) {}
};

/// Those of a company that reports under Ind AS.
class FrmbspnlINDAS : public StatementScreen {
  public:
    explicit FrmbspnlINDAS(Run& itsRun) : StatementScreen(itsRun, screens::FrmbspnlINDAS, kUnderIndAS) {}
};

} // namespace pgbp
