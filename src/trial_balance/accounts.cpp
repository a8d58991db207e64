#include "trial_balance/accounts.h"

#include "services/amount_text.h"
#include "services/format.h"
#include "services/text.h"
#include "services/utf8.h"
#include "trial_balance/heading.h"
#include "trial_balance/sided_amount.h"
#include "trial_balance/words.h"
#include "workbook/workbook.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace pgbp::trial {
namespace {

constexpr double kPaisa = 0.005;

/// A row below the heading.
struct Line {
    Account account;
    std::size_t indent = 0;
    double debits = 0; ///< of the closing, as the columns have them
    double credits = 0;
    bool isTotal = false;
    bool isGroup = false;
};

/// The figures of one moment in a row.
struct Figures {
    double debits = 0;
    double credits = 0;
    bool toldSide = false;
    bool any = false; ///< other than 0
};

/// "Grand Total :"; a debtor may be called "Total Traders".
bool IsTotal(const std::vector<std::string>& words)
{
    constexpr std::string_view kTotals[] = {"total", "totals", "subtotal"};
    constexpr std::string_view kBeside[] = {"grand", "sub", "rs", "net"};
    const auto isOf = [](std::span<const std::string_view> some) {
        return [some](const std::string& word) { return std::ranges::find(some, word) != some.end(); };
    };
    return std::ranges::any_of(words, isOf(kTotals)) && std::ranges::all_of(words, [&](const std::string& word) {
               return isOf(kTotals)(word) || isOf(kBeside)(word);
           });
}

class Reader {
  public:
    Reader(const Table& table, const Heading& heading) : table_(table), heading_(heading) {}

    TrialBalance Read()
    {
        for (std::size_t row = heading_.firstRow; row < table_.rows.size(); ++row)
            if (!IsHeadingAgain(row))
                ReadRow(row);
        FindGroups();
        return Collect();
    }

  private:
    std::string CellAt(std::size_t row, std::size_t column) const
    {
        const auto& cells = table_.rows[row];
        return column < cells.size() ? cells[column] : std::string();
    }

    [[noreturn]] void Refuse(std::size_t row, const std::string& why) const
    {
        const std::string name = Trim(CellAt(row, heading_.name));
        throw TrialBalanceError("Row " + std::to_string(row + 1) + (name.empty() ? "" : " (" + name + ")") + ": " +
                                why);
    }

    SidedAmount AmountAt(std::size_t row, std::size_t column) const
    {
        const std::string text = CellAt(row, column);
        const auto amount = ReadSidedAmount(text);
        if (!amount)
            Refuse(row, "\"" + Trim(text) + "\" is no amount.");
        return *amount;
    }

    Figures FiguresAt(std::size_t row, const FigureColumns& columns) const
    {
        Figures figures;
        const auto take = [&](std::optional<std::size_t> column, Side side) {
            if (!column)
                return;
            const SidedAmount amount = AmountAt(row, *column);
            const double balance = amount.Balance(side);
            const bool isDebit = side == Side::None ? balance > 0 : side == Side::Debit;
            (isDebit ? figures.debits : figures.credits) += isDebit ? balance : -balance;
            figures.toldSide = figures.toldSide || side != Side::None || amount.side != Side::None;
            figures.any = figures.any || amount.rupees != 0;
        };
        take(columns.debit, Side::Debit);
        take(columns.credit, Side::Credit);
        if (columns.balance)
            take(columns.balance, SideBeside(row, columns));
        return figures;
    }

    /// A column without a heading that holds "Dr" beside the balance tells the side as well.
    Side SideBeside(std::size_t row, const FigureColumns& columns) const
    {
        const std::size_t beside = columns.side.value_or(*columns.balance + 1);
        return beside == heading_.group ? Side::None : SideOf(CellAt(row, beside));
    }

    /// A list of several pages has it on each.
    bool IsHeadingAgain(std::size_t row) const
    {
        const auto& heading = table_.rows[heading_.firstRow - 1];
        return !heading.empty() && table_.rows[row] == heading;
    }

    void ReadRow(std::size_t row)
    {
        std::string name = CellAt(row, heading_.name);
        Line line;
        line.indent = std::min(name.find_first_not_of(' '), name.size());
        std::ranges::replace_if(
            name, [](char c) { return c >= 0 && c < ' '; }, ' ');
        name = Trim(name);
        line.isTotal = IsTotal(WordsOf(name));
        const Figures closing = FiguresAt(row, heading_.closing);
        const Figures opening = FiguresAt(row, heading_.opening);
        if (name.empty() && !closing.any)
            return;
        line.isTotal = line.isTotal || (name.empty() && IsSumSoFar(closing));
        if (name.empty() && !line.isTotal)
            Refuse(row, "There is an amount, but no account.");
        line.account = {.name = Shortened(name),
                        .group = heading_.group ? Trim(CellAt(row, *heading_.group)) : std::string(),
                        .balance = closing.debits - closing.credits,
                        .opening = opening.debits - opening.credits};
        line.debits = closing.debits;
        line.credits = closing.credits;
        toldSide_ = toldSide_ || (closing.toldSide && closing.any && !line.isTotal);
        debitsSoFar_ += line.isTotal ? 0 : closing.debits;
        creditsSoFar_ += line.isTotal ? 0 : closing.credits;
        lines_.push_back(std::move(line));
    }

    bool IsSumSoFar(const Figures& figures) const
    {
        return std::fabs(figures.debits - debitsSoFar_) < kPaisa && std::fabs(figures.credits - creditsSoFar_) < kPaisa;
    }

    static std::string Shortened(const std::string& name)
    {
        if (CharacterCount(name) <= static_cast<int>(kLongestName))
            return name;
        return name.substr(0, ByteOfCharacter(name, static_cast<int>(kLongestName) - 3)) + "...";
    }

    /// A row is a group when the rows that stand deeper below it have its amount in all. Sums of a stretch are
    /// differences of the sums from the first row on, so that a long list takes no longer than its rows.
    void FindGroups()
    {
        const std::size_t count = lines_.size();
        const auto isDeeperBelow = [&](std::size_t at) {
            return at + 1 < count && lines_[at + 1].indent > lines_[at].indent;
        };
        std::vector<double> sums(count + 1, 0);
        for (std::size_t at = 0; at < count; ++at)
            sums[at + 1] = sums[at] + (isDeeperBelow(at) ? 0 : lines_[at].account.balance);
        std::vector<std::size_t> open; // the rows that the one looked at stands below, each deeper than the one before
        const auto close = [&](std::size_t indent, std::size_t end) {
            for (; !open.empty() && lines_[open.back()].indent >= indent; open.pop_back()) {
                Line& line = lines_[open.back()];
                const double below = sums[end] - sums[open.back() + 1];
                line.isGroup = end > open.back() + 1 && (!line.isTotal) &&
                               (line.account.balance == 0 || std::fabs(line.account.balance - below) < kPaisa);
            }
        };
        std::vector<std::size_t> parents(count, count);
        for (std::size_t at = 0; at < count; ++at) {
            close(lines_[at].indent, at);
            parents[at] = open.empty() ? count : open.back();
            open.push_back(at);
        }
        close(0, count);
        for (std::size_t at = 0; at < count; ++at)
            if (parents[at] < count && lines_[parents[at]].isGroup && lines_[at].account.group.empty())
                lines_[at].account.group = lines_[parents[at]].account.name;
    }

    TrialBalance Collect()
    {
        TrialBalance trialBalance{.bySigns = !toldSide_, .hasOpening = heading_.opening.Any()};
        double debits = 0;
        double credits = 0;
        const Line* total = nullptr;
        int totals = 0;
        for (Line& line : lines_) {
            if (line.isTotal) {
                total = &line;
                ++totals;
            } else if (!line.isGroup) {
                debits += line.debits;
                credits += line.credits;
                trialBalance.accounts.push_back(std::move(line.account));
            }
        }
        const bool differs =
            total && totals == 1 && (total->debits != 0 || total->credits != 0) && heading_.closing.debit &&
            (std::fabs(total->debits - debits) > kPaisa || std::fabs(total->credits - credits) > kPaisa);
        if (differs)
            trialBalance.doubt = "The list's own total is " + GroupedAmount(Amount(total->debits)) + " Dr and " +
                                 GroupedAmount(Amount(total->credits)) + " Cr, its accounts come to " +
                                 GroupedAmount(Amount(debits)) + " Dr and " + GroupedAmount(Amount(credits)) +
                                 " Cr. Sums of groups may stand among the accounts, or rows may be missing.";
        trialBalance.bySigns =
            trialBalance.bySigns &&
            std::ranges::any_of(trialBalance.accounts, [](const Account& account) { return account.balance < 0; });
        return trialBalance;
    }

    const Table& table_;
    const Heading& heading_;
    std::vector<Line> lines_;
    double debitsSoFar_ = 0;
    double creditsSoFar_ = 0;
    bool toldSide_ = false;
};

double SumOf(const std::vector<Account>& accounts, double sign)
{
    double sum = 0;
    for (const Account& account : accounts)
        sum += std::max(0.0, account.balance * sign);
    return sum;
}

} // namespace

double TrialBalance::Debits() const { return SumOf(accounts, 1); }
double TrialBalance::Credits() const { return SumOf(accounts, -1); }

TrialBalance AccountsOf(const std::vector<Table>& tables)
{
    const Table* best = nullptr;
    std::optional<Heading> heading;
    std::size_t unclosedQuote = 0;
    for (const Table& table : tables) {
        const auto found = FindHeading(table);
        unclosedQuote = std::max(unclosedQuote, table.unclosedQuote);
        if (found && (!heading || found->Columns() > heading->Columns())) {
            best = &table;
            heading = found;
        }
    }
    if (best && best->unclosedQuote == 0)
        return Reader(*best, *heading).Read();
    if (unclosedQuote > 0)
        throw TrialBalanceError("A quotation mark in row " +
                                std::to_string(best ? best->unclosedQuote : unclosedQuote) + " is never closed.");
    throw TrialBalanceError("No heading tells the columns. It needs the name of the account (\"Particulars\", "
                            "\"Account\", \"Ledger\"), and "
                            "\"Debit\" and \"Credit\" or \"Balance\"; where there are several, \"Opening\" and "
                            "\"Closing\" tell them apart.");
}

TrialBalance ReadTrialBalance(const std::filesystem::path& path)
{
    const std::string bytes = ContentOf(path);
    const auto name = path.filename().u8string();
    const std::string place = std::string(name.begin(), name.end()) + ": ";
    try {
        TrialBalance trialBalance = AccountsOf(TablesOf(bytes));
        if (trialBalance.Debits() == 0 && trialBalance.Credits() == 0)
            throw TrialBalanceError("There is no account with a balance.");
        return trialBalance;
    } catch (const TrialBalanceError& error) {
        throw TrialBalanceError(place + error.what());
    } catch (const xls::WorkbookError& error) {
        throw xls::WorkbookError(place + error.what());
    }
}

} // namespace pgbp::trial
