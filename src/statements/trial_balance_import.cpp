// A trial balance out of another program's file, put into the lines of the statement as their details.
#include "services/format.h"
#include "services/text.h"
#include "statements/statement_screen.h"
#include "trial_balance/words.h"

#include <algorithm>
#include <utility>

namespace pgbp {
namespace {

constexpr const char* kTrialBalances = "Trial balance (*.csv *.txt *.tsv *.xls);;All files (*)";

/// "Bank charges and 2 others", for a line whose nature the preparer would write.
std::string NatureOf(const std::vector<DetailEntry>& entries, int longest)
{
    const std::size_t others = entries.size() - 1;
    const std::string behind =
        others == 0 ? "" : " and " + std::to_string(others) + (others == 1 ? " other" : " others");
    const std::string& first = entries.front().description;
    const auto room = static_cast<std::size_t>(longest) - behind.size();
    return (first.size() <= room ? first : "Expenses") + behind;
}

} // namespace

/// A line takes accounts where its amount is keyed and can be broken down.
bool StatementScreen::TakesAccounts(std::size_t line) const
{
    const int row = static_cast<int>(line);
    const auto& computed = lines_.ComputedLines();
    return lines_.TakesNumber(line) && !MSH.IsHidden(row) && !MSH.Cell(row, kDetail).empty() && !IsBadDebts(line) &&
           std::ranges::find(computed, line) == computed.end();
}

void StatementScreen::ImportTrialBalance()
{
    MSH.HideEditor();
    const auto chosen = run.host.files.AskOpen("Trial Balance", kTrialBalances);
    if (!chosen)
        return;
    trial::TrialBalance read = trial::ReadTrialBalance(*chosen);
    GridTexts rows = Texts();
    rows.erase(rows.begin());
    const bool isAccount = form_.kind == StatementKind::ProfitAndLoss;
    const auto name = chosen->filename().u8string();
    trial_.Open(
        std::move(read), std::string(name.begin(), name.end()),
        {.statement = isAccount ? trial::Statement::ProfitAndLoss : trial::Statement::BalanceSheet,
         .lines = AccountLines(rows, lines_, form_.kind, [this](std::size_t line) { return TakesAccounts(line); }),
         .before = ChosenBefore()});
}

/// What was chosen for this list just now counts, then what is stored.
AccountPlaces StatementScreen::ChosenBefore() const
{
    const Reading reading(run.balance);
    AccountPlaces before = placesToKeep_;
    before.merge(TrialChoices().Read());
    return before;
}

TrialBalanceChoices StatementScreen::TrialChoices() const
{
    return {run, std::string(keeping_.values).append(KindWord(form_.kind))};
}

/// An account that was put somewhere before, by whatever import, stands once: its earlier entry goes. Other entries
/// stay, and the amount of each line that changes is the sum of its entries.
void StatementScreen::FillFromTrialBalance(TrialBalanceEntries filled)
{
    Undo undo;
    Details after = entries_;
    for (auto& [slno, entries] : after)
        std::erase_if(entries,
                      [&](const DetailEntry& entry) { return filled.keys.contains(trial::KeyOf(entry.description)); });
    for (auto& [slno, entries] : filled.entries)
        after[slno].insert(after[slno].end(), entries.begin(), entries.end());
    int gaveWay = 0;
    for (std::size_t line = 1; line <= lines_.Count(); ++line) {
        const auto now = after.find(lines_.Slno(line));
        const auto before = entries_.find(lines_.Slno(line));
        if (now == after.end() || (before != entries_.end() && before->second == now->second))
            continue;
        const bool wasKeyed = before == entries_.end() || before->second.empty();
        gaveWay += wasKeyed && lines_.At(line).figure() != 0 ? 1 : 0;
        undo.amounts.emplace_back(line, lines_.At(line).text());
        FillLineWith(now->second, line, undo);
    }
    if (!undo.amounts.empty()) {
        undo.entries = std::exchange(entries_, std::move(after));
        undo_.push_back(std::move(undo));
        DataAltered = true;
    }
    filled.places.merge(placesToKeep_);
    placesToKeep_ = std::move(filled.places);
    RunTotals();
    notice = (filled.accounts == 1 ? "1 account has its line."
                                   : std::to_string(filled.accounts) + " accounts have their lines.") +
             (gaveWay == 0 ? "" : " Amounts keyed there before that gave way: " + std::to_string(gaveWay) + '.') +
             " Ctrl+Z takes them back.";
}

void StatementScreen::FillLineWith(const std::vector<DetailEntry>& entries, std::size_t line, Undo& undo)
{
    double total = 0;
    for (const DetailEntry& entry : entries)
        total += entry.amount;
    const int row = static_cast<int>(line);
    SetAmount(line, entries.empty() ? "" : FormatAmountIndian(Rupees(total), kIndianGrouping));
    MSH.SetCell(row, kDetail, std::string(total > 0 ? kDetailsFilled : kDetailsPossible));
    if (lines_.TakesDescription(line) && !entries.empty() && Trim(MSH.Cell(row, kDescription)) == kWrittenByPreparer) {
        undo.descriptions.emplace_back(line, MSH.Cell(row, kDescription));
        MSH.SetCell(row, kDescription, NatureOf(entries, Txt1.maxLength));
    }
}

} // namespace pgbp
