#pragma once

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "startup/run.h"
#include "statements/statement_rows.h"
#include "statements/trial_balance_choices.h"
#include "statements/trial_balance_lines.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace pgbp {

/// What a trial balance puts into a statement.
struct TrialBalanceEntries {
    Details entries = {};            ///< accounts as details, by the line's lasting number
    std::set<std::string> keys = {}; ///< of all accounts of the list: their earlier entries go
    AccountPlaces places = {};       ///< to be kept for the client
    int accounts = 0;                ///< with a line
};

/// `FraTrial`: the accounts of a trial balance out of a file, each with the line of the statement that is proposed for
/// it, by what was chosen for the client before, else by its words. The preparer chooses lines by typing words of them.
/// Touches neither the store nor the statement.
class TrialBalanceFrame {
  public:
    explicit TrialBalanceFrame(Screen& form);

    /// The lines are to be filled.
    std::function<void(TrialBalanceEntries)> onFill;

    /// What the accounts are put into.
    struct Into {
        trial::Statement statement = trial::Statement::ProfitAndLoss;
        std::vector<AccountLine> lines = {};
        AccountPlaces before = {}; ///< what was chosen for the client
    };
    void Open(trial::TrialBalance trialBalance, const std::string& fileName, Into into);

  private:
    /// Who put the account where it is.
    enum class By { Nobody, Words, Before, Preparer };
    struct Row {
        trial::Account account;
        std::string key;
        std::optional<int> slno = {}; ///< of the line, AccountPlace::kNotHere for the other statement; none: undecided
        By by = By::Nobody;
    };

    void LayOut();
    void Wire();
    void Propose();
    void ProposeFor(const trial::Proposer& proposer, Row& row) const;
    void Show();
    void ShowRow(std::size_t at);
    void ShowCounts();
    std::string LabelOf(const Row& row) const;
    const AccountLine* LineOf(int slno) const;
    std::vector<std::string> ChoicesFor(const Row& row) const;
    void EnterCell(int row, int column);
    void TakeTyped();
    void Choose(std::size_t at, std::optional<int> slno);
    void GoToUndecided(int from);
    void TurnSign();
    std::vector<const Row*> Undecided() const;
    bool MayFill() const;
    void Fill();
    bool Altered() const;

    Screen& form_;
    trial::TrialBalance trialBalance_;
    Into into_;
    std::vector<Row> rows_;     ///< of the grid: the accounts with a balance
    std::size_t typedInto_ = 0; ///< row of the grid, from 1, whose line is being typed

  public:
    Frame FraTrial;
    Label lblTrialCount;
    CheckBox ChkTrialMinus;
    Grid MshTrial;
    txt TxtTrialLine;
    Label lblTrialDiff;
    cmd CmdTrialNext;
    cmd CmdTrialFill;
    cmd CmdTrialBack;
};

} // namespace pgbp
