#include "statements/trial_balance_frame.h"

#include "entry/checks.h"
#include "services/amount_text.h"
#include "services/format.h"
#include "services/text.h"
#include "trial_balance/words.h"

#include <algorithm>
#include <utility>

namespace pgbp {
namespace {

enum TrialColumn : int { kName, kGroup, kOpening, kDebit, kCredit, kLine, kBy };

constexpr double kPaisa = 0.005;

std::vector<GridColumn> Columns()
{
    using enum GridColumnKind;
    return {{.heading = "Account", .kind = Text, .weight = 3},
            {.heading = "Group", .kind = Text, .weight = 2},
            {.heading = "Opening", .kind = Amount, .muted = true},
            {"Debit", Amount},
            {"Credit", Amount},
            {.heading = "Line of the form", .kind = Text, .weight = 5},
            {.heading = "Proposed by", .kind = Text, .weight = 1, .muted = true}};
}

std::string Sided(double balance)
{
    return GroupedAmount(Amount(std::max(balance, -balance))) + (balance < 0 ? " Cr" : " Dr");
}

std::string Counted(std::size_t count, const char* one, const char* many)
{
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

} // namespace

TrialBalanceFrame::TrialBalanceFrame(Screen& form)
    : form_(form), FraTrial(form, "FraTrial"), lblTrialCount(form, "lblTrialCount", "", LabelLook::Hint),
      ChkTrialMinus(form, "ChkTrialMinus", "&Minus is a debit"), MshTrial(form, "MshTrial", Columns()),
      TxtTrialLine(form, "TxtTrialLine"), lblTrialDiff(form, "lblTrialDiff"),
      CmdTrialNext(form, "CmdTrialNext", "&Next Without a Line"), CmdTrialFill(form, "CmdTrialFill", "&Fill the Lines"),
      CmdTrialBack(form, "CmdTrialBack", "&Cancel")
{
    LayOut();
    Wire();
}

void TrialBalanceFrame::LayOut()
{
    MshTrial.SetEditors({&TxtTrialLine});
    FraTrial.Lay({.columns = {LayoutColumn::Caption, LayoutColumn::Field},
                  .rows = {{{&lblTrialCount, &ChkTrialMinus}}, {{&MshTrial}}, {{&lblTrialDiff}}},
                  .buttonsLeft = {&CmdTrialNext},
                  .buttonsRight = {&CmdTrialFill, &CmdTrialBack}});
    CmdTrialFill.isDefault = true;
}

void TrialBalanceFrame::Wire()
{
    MshTrial.canEnter = [](int, int column) { return column == kLine; };
    MshTrial.onEnterCell = [this](int row, int column) { EnterCell(row, column); };
    TxtTrialLine.onLostFocus = [this] { TakeTyped(); };
    ChkTrialMinus.onClick = [this] { TurnSign(); };
    CmdTrialNext.onClick = [this] { GoToUndecided(MshTrial.currentRow()); };
    CmdTrialFill.onClick = [this] { Fill(); };
    CmdTrialBack.onClick = [this] { form_.Lower(FraTrial); };
    FraTrial.onEscape = [this] {
        if (MayDiscard(form_.run, Altered()))
            form_.Lower(FraTrial);
    };
}

void TrialBalanceFrame::Open(trial::TrialBalance trialBalance, const std::string& fileName, Into into)
{
    trialBalance_ = std::move(trialBalance);
    into_ = std::move(into);
    FraTrial.caption = Replace("Trial Balance : " + fileName, "&", "&&");
    ChkTrialMinus.visible = trialBalance_.bySigns;
    const bool turns = trialBalance_.bySigns && trial::MinusIsDebit(trialBalance_);
    if (turns)
        trial::TurnSides(trialBalance_);
    ChkTrialMinus.value = turns;
    Propose();
    Show();
    form_.Raise(FraTrial, MshTrial);
    GoToUndecided(0);
}

void TrialBalanceFrame::Propose()
{
    std::vector<trial::FormLine> lines;
    for (const AccountLine& line : into_.lines)
        lines.push_back(line.form);
    const trial::Proposer proposer(into_.statement, lines);
    rows_.clear();
    for (const trial::Account& account : trialBalance_.accounts)
        if (account.balance > kPaisa || account.balance < -kPaisa) {
            rows_.push_back({account, trial::KeyOf(account.name)});
            ProposeFor(proposer, rows_.back());
        }
}

void TrialBalanceFrame::ProposeFor(const trial::Proposer& proposer, Row& row) const
{
    if (const auto before = into_.before.find(row.key);
        before != into_.before.end() &&
        (before->second.slno == AccountPlace::kNotHere || LineOf(before->second.slno))) {
        row.slno = before->second.slno;
        row.by = By::Before;
        return;
    }
    const trial::Proposal proposal = proposer.For(row.account);
    const bool isElsewhere = proposal.statement != trial::Statement::Unknown && proposal.statement != into_.statement;
    row.slno = isElsewhere ? std::optional<int>(AccountPlace::kNotHere) : proposal.slno;
    row.by = row.slno ? By::Words : By::Nobody;
}

const AccountLine* TrialBalanceFrame::LineOf(int slno) const
{
    const auto line =
        std::ranges::find_if(into_.lines, [slno](const AccountLine& its) { return its.form.slno == slno; });
    return line == into_.lines.end() ? nullptr : &*line;
}

std::string TrialBalanceFrame::LabelOf(const Row& row) const
{
    if (!row.slno)
        return "";
    if (*row.slno == AccountPlace::kNotHere)
        return into_.statement == trial::Statement::ProfitAndLoss ? "Balance sheet account" : "Profit and loss account";
    return LineOf(*row.slno)->label;
}

void TrialBalanceFrame::Show()
{
    std::vector<std::vector<std::string>> rows;
    bool hasGroups = false;
    for (const Row& row : rows_) {
        const double balance = row.account.balance;
        hasGroups = hasGroups || !row.account.group.empty();
        rows.push_back({row.account.name, row.account.group, row.account.opening == 0 ? "" : Sided(row.account.opening),
                        balance > 0 ? Amount(balance) : "", balance < 0 ? Amount(-balance) : ""});
    }
    MshTrial.SetRows(std::move(rows));
    for (std::size_t at = 0; at < rows_.size(); ++at)
        ShowRow(at);
    MshTrial.ShowColumn(kGroup, hasGroups);
    MshTrial.ShowColumn(kOpening, trialBalance_.hasOpening);
    const double debits = trialBalance_.Debits();
    const double credits = trialBalance_.Credits();
    MshTrial.SetFooter({"Total", "", "", Amount(debits), Amount(credits)});
    const double difference = debits - credits;
    lblTrialDiff =
        difference > kPaisa || difference < -kPaisa ? "Difference : " + Sided(difference) : "Debits and credits agree.";
    if (!trialBalance_.doubt.empty())
        lblTrialDiff = lblTrialDiff.text() + "  " + trialBalance_.doubt;
    ShowCounts();
}

void TrialBalanceFrame::ShowRow(std::size_t at)
{
    constexpr const char* kBys[] = {"", "words", "last choice", "you"};
    const Row& row = rows_[at];
    const int line = static_cast<int>(at) + 1;
    MshTrial.SetCell(line, kLine, LabelOf(row));
    MshTrial.SetCell(line, kBy, kBys[static_cast<int>(row.by)]);
    MshTrial.SetCellLook(line, kLine, row.slno ? CellLook::Plain : CellLook::Own);
}

void TrialBalanceFrame::ShowCounts()
{
    const auto elsewhere = static_cast<std::size_t>(std::ranges::count_if(
        rows_, [](const Row& row) { return row.slno == std::optional<int>(AccountPlace::kNotHere); }));
    const std::size_t undecided = Undecided().size();
    const bool isAccount = into_.statement == trial::Statement::ProfitAndLoss;
    lblTrialCount = Counted(rows_.size(), "account", "accounts") +
                    " with a balance: " + std::to_string(rows_.size() - elsewhere - undecided) + " with a line, " +
                    std::to_string(elsewhere) +
                    (isAccount ? " of the balance sheet, " : " of the profit and loss account, ") +
                    std::to_string(undecided) + " without a line";
}

/// Lines of the account's own side come first.
std::vector<std::string> TrialBalanceFrame::ChoicesFor(const Row& row) const
{
    const trial::Side side = row.account.balance < 0 ? trial::Side::Credit : trial::Side::Debit;
    std::vector<std::string> labels;
    for (const bool isOwn : {true, false})
        for (const AccountLine& line : into_.lines)
            if ((line.form.side == side) == isOwn)
                labels.push_back(line.label);
    labels.push_back(LabelOf({.account = {}, .key = {}, .slno = AccountPlace::kNotHere}));
    return labels;
}

void TrialBalanceFrame::EnterCell(int row, int column)
{
    if (column != kLine)
        return;
    const auto at = static_cast<std::size_t>(row);
    TxtTrialLine.SetOffers(ChoicesFor(rows_[at - 1]), OfferMatch::Words);
    MshTrial.PlaceEditor(TxtTrialLine, row, column);
    typedInto_ = at;
}

/// What is typed means the first line that it fits; nothing typed means no line.
void TrialBalanceFrame::TakeTyped()
{
    const std::size_t at = std::exchange(typedInto_, 0);
    if (at == 0 || at > rows_.size())
        return;
    const std::string typed = Trim(TxtTrialLine.text());
    if (typed == LabelOf(rows_[at - 1]))
        return;
    if (typed.empty())
        return Choose(at - 1, std::nullopt);
    const auto labels = ChoicesFor(rows_[at - 1]);
    Offers meant;
    meant.SetTexts(labels, OfferMatch::Words);
    meant.Show(typed);
    const bool isWhole = std::ranges::find(labels, typed) != labels.end();
    if (!isWhole && !meant.IsOpen()) {
        form_.notice = "No line has \"" + typed + "\".";
        return;
    }
    const std::string label = isWhole ? typed : meant.shown().front();
    const auto line = std::ranges::find(into_.lines, label, &AccountLine::label);
    Choose(at - 1, line == into_.lines.end() ? AccountPlace::kNotHere : line->form.slno);
}

void TrialBalanceFrame::Choose(std::size_t at, std::optional<int> slno)
{
    rows_[at].slno = slno;
    rows_[at].by = slno ? By::Preparer : By::Nobody;
    ShowRow(at);
    ShowCounts();
}

/// The next account without a line behind the row, round to the first.
void TrialBalanceFrame::GoToUndecided(int from)
{
    const int count = MshTrial.Rows();
    for (int step = 1; step <= count; ++step)
        if (const int row = (from + step - 1) % count + 1; !rows_[static_cast<std::size_t>(row) - 1].slno)
            return MshTrial.EnterCell(row, kLine);
    form_.SetFocus(MshTrial);
}

void TrialBalanceFrame::TurnSign()
{
    for (const Row& row : rows_)
        if (row.by == By::Preparer)
            into_.before[row.key] = {row.account.name, *row.slno};
    trial::TurnSides(trialBalance_);
    Propose();
    Show();
}

std::vector<const TrialBalanceFrame::Row*> TrialBalanceFrame::Undecided() const
{
    std::vector<const Row*> undecided;
    for (const Row& row : rows_)
        if (!row.slno)
            undecided.push_back(&row);
    return undecided;
}

bool TrialBalanceFrame::Altered() const
{
    return std::ranges::any_of(rows_, [](const Row& row) { return row.by == By::Preparer; });
}

/// Accounts without a line are named, and a difference is told.
bool TrialBalanceFrame::MayFill() const
{
    constexpr std::size_t kNamed = 12;
    const auto undecided = Undecided();
    std::string question;
    for (std::size_t i = 0; i < std::min(kNamed, undecided.size()); ++i)
        question += (i == 0 ? "" : ", ") + undecided[i]->account.name;
    if (!undecided.empty())
        question = Counted(undecided.size(), "account has", "accounts have") +
                   " no line and will not be in the statement:\n" + question +
                   (undecided.size() > kNamed ? " and " + std::to_string(undecided.size() - kNamed) + " more" : "") +
                   ".\n";
    if (const double difference = trialBalance_.Debits() - trialBalance_.Credits();
        difference > kPaisa || difference < -kPaisa)
        question += "Debits and credits do not agree. Difference : " + Sided(difference) + ".\n";
    if (!trialBalance_.doubt.empty())
        question += trialBalance_.doubt + '\n';
    return question.empty() || form_.run.Show(question + "Fill the lines all the same ?", "Confirmation",
                                              Icon::Question, Buttons::YesNo, Answer::No) == Answer::Yes;
}

/// What the words alone find to be of the other statement is found again, and is not kept.
void TrialBalanceFrame::Fill()
{
    MshTrial.HideEditor();
    if (!MayFill())
        return GoToUndecided(0);
    TrialBalanceEntries filled;
    for (const trial::Account& account : trialBalance_.accounts)
        filled.keys.insert(trial::KeyOf(account.name));
    for (const Row& row : rows_) {
        if (!row.slno || (*row.slno == AccountPlace::kNotHere && row.by == By::Words))
            continue;
        filled.places[row.key] = {row.account.name, *row.slno};
        if (*row.slno == AccountPlace::kNotHere)
            continue;
        ++filled.accounts;
        filled.entries[*row.slno].push_back(
            {row.account.name, RupeesInLine(row.account, LineOf(*row.slno)->form.side)});
    }
    form_.Lower(FraTrial);
    onFill(std::move(filled));
}

} // namespace pgbp
