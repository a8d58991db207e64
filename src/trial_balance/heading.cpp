#include "trial_balance/heading.h"

#include "services/text.h"
#include "trial_balance/words.h"

#include <algorithm>
#include <initializer_list>

namespace pgbp::trial {
namespace {

constexpr std::size_t kLookedAt = 60;    // rows in which a heading begins
constexpr std::size_t kTallest = 5;      // rows of a heading, titles beside them included
constexpr std::size_t kMostColumns = 64; // beyond these a heading has nothing to say

enum class Holds { Nothing, Name, Group, Debit, Credit, Balance, Side };
enum class Moment { Untold, Opening, Movement, Closing };

struct Column {
    Holds holds = Holds::Nothing;
    Moment moment = Moment::Untold;
};

using Words = std::vector<std::string>;

bool HasAny(const Words& words, std::initializer_list<std::string_view> wanted)
{
    return std::ranges::any_of(wanted, [&](std::string_view word) { return HasWord(words, word); });
}

/// A day and a month beside each other: "1-Apr-23", "31.03.2024".
bool HasDay(const Words& words, std::initializer_list<std::string_view> days,
            std::initializer_list<std::string_view> months)
{
    for (std::size_t i = 0; i + 1 < words.size(); ++i)
        if (std::ranges::find(days, words[i]) != days.end() && std::ranges::find(months, words[i + 1]) != months.end())
            return true;
    return false;
}

/// A year begins on 1 April and ends on 31 March; both together are the period.
Moment MomentOf(const Words& words)
{
    if (HasAny(words, {"opening", "open", "op", "opng", "ob", "previous", "prev", "last", "before", "bf"}))
        return Moment::Opening;
    if (HasAny(words, {"closing", "close", "cl", "clg", "cb", "current"}))
        return Moment::Closing;
    if (HasAny(words, {"transaction", "transactions", "movement", "movements", "during", "turnover"}))
        return Moment::Movement;
    const bool begins = HasDay(words, {"1", "01", "1st"}, {"4", "04", "apr", "april"});
    const bool ends = HasDay(words, {"31", "31st"}, {"3", "03", "mar", "march"});
    if (begins == ends)
        return Moment::Untold;
    return begins ? Moment::Opening : Moment::Closing;
}

Holds HoldsOf(const Words& words, Moment moment)
{
    const bool isDebit = HasAny(words, {"debit", "debits", "dr", "d"});
    const bool isCredit = HasAny(words, {"credit", "credits", "cr"}) || (isDebit && HasWord(words, "c"));
    const bool isAmount = HasAny(words, {"balance", "balances", "bal", "amount", "amounts", "amt"});
    if (isDebit && isCredit)
        return isAmount ? Holds::Balance : Holds::Side;
    if (isDebit || isCredit)
        return isDebit ? Holds::Debit : Holds::Credit;
    if (isAmount || moment == Moment::Opening || moment == Moment::Closing)
        return Holds::Balance;
    if (HasAny(words, {"group", "groups", "under", "parent", "category", "class", "type", "nature", "schedule",
                       "subgroup", "primary"}))
        return Holds::Group;
    if (HasAny(words, {"code", "codes", "no", "number", "sr", "srno", "sl", "slno", "sno", "id", "serial", "pan"}))
        return Holds::Nothing;
    if (HasAny(words, {"particular", "particulars", "account", "accounts", "ledger", "ledgers", "name", "head", "heads",
                       "description"}))
        return Holds::Name;
    return Holds::Nothing;
}

Words HeadingWords(const std::string& cell) { return WordsOf(Replace(Upper(cell), "A/C", "ACCOUNT")); }

/// A cell of a heading is a few words, not a sentence and not a figure.
bool MayBeOfHeading(const std::string& cell) { return cell.size() <= 60; }

/// The meanings of the rows from..to of a heading. The lowest row that tells a column decides; what stands over the
/// first of several columns ("Closing Balance" over "Debit" and "Credit") holds for those beside it that are empty.
std::vector<Column> ColumnsOf(const Table& table, std::size_t from, std::size_t to)
{
    std::size_t widest = 0;
    for (std::size_t row = from; row <= to; ++row)
        widest = std::max(widest, table.rows[row].size());
    std::vector<Column> columns(std::min(kMostColumns, widest));
    for (std::size_t row = from; row <= to; ++row) {
        Moment carried = Moment::Untold;
        const auto& cells = table.rows[row];
        for (std::size_t at = 0; at < columns.size(); ++at) {
            const std::string cell = at < cells.size() ? Trim(cells[at]) : std::string();
            Column& column = columns[at];
            if (cell.empty()) {
                column.moment = carried == Moment::Untold ? column.moment : carried;
                continue;
            }
            const Words words = MayBeOfHeading(cell) ? HeadingWords(cell) : Words();
            const Moment moment = MomentOf(words);
            const Holds holds = HoldsOf(words, moment);
            carried = moment;
            column.moment = moment == Moment::Untold ? column.moment : moment;
            const bool isLess = (holds == Holds::Name || holds == Holds::Group) && column.holds != Holds::Nothing;
            column.holds = holds == Holds::Nothing || isLess ? column.holds : holds;
        }
    }
    for (std::size_t at = 1; at < columns.size(); ++at) // "Dr/Cr" belongs to the balance before it
        if (columns[at].holds == Holds::Side && columns[at - 1].holds == Holds::Balance)
            columns[at].moment = columns[at - 1].moment;
    return columns;
}

/// None where two columns say the same.
std::optional<FigureColumns> FiguresOf(const std::vector<Column>& columns, Moment moment)
{
    FigureColumns figures;
    for (std::size_t at = 0; at < columns.size(); ++at) {
        if (columns[at].moment != moment)
            continue;
        std::optional<std::size_t>* place = nullptr;
        if (columns[at].holds == Holds::Debit)
            place = &figures.debit;
        else if (columns[at].holds == Holds::Credit)
            place = &figures.credit;
        else if (columns[at].holds == Holds::Balance)
            place = &figures.balance;
        else if (columns[at].holds == Holds::Side)
            place = &figures.side;
        if (place && *place)
            return std::nullopt;
        if (place)
            *place = at;
    }
    if (figures.debit && figures.credit)
        figures.balance.reset();
    if (figures.balance)
        figures.debit = figures.credit = std::nullopt;
    return figures;
}

/// The closing figures; none where they cannot be told from others.
std::optional<FigureColumns> ClosingOf(const std::vector<Column>& columns)
{
    const auto closing = FiguresOf(columns, Moment::Closing);
    if (!closing)
        return std::nullopt;
    if (closing->Any())
        return closing;
    auto untold = FiguresOf(columns, Moment::Untold);
    const bool hasOthers = std::ranges::any_of(columns, [](const Column& column) {
        return column.moment != Moment::Untold && column.holds != Holds::Nothing;
    });
    const bool isBalance = untold && std::ranges::any_of(columns, [](const Column& column) {
                               return column.moment == Moment::Untold && column.holds == Holds::Balance;
                           });
    if (isBalance) { // debits and credits beside it are the entries of the period, and give the same balance or none
        for (std::size_t at = 0; at < columns.size(); ++at)
            if (columns[at].moment == Moment::Untold && columns[at].holds == Holds::Balance)
                untold->balance = at;
        untold->debit = untold->credit = std::nullopt;
    }
    if (!untold || !untold->Any() || (hasOthers && !isBalance))
        return std::nullopt;
    return untold;
}

/// Of several columns that may hold the names the one with the most texts.
std::optional<std::size_t> NameColumn(const Table& table, std::size_t firstRow, const std::vector<Column>& columns)
{
    std::optional<std::size_t> best;
    std::size_t most = 0;
    for (std::size_t at = 0; at < columns.size(); ++at) {
        if (columns[at].holds != Holds::Name)
            continue;
        const std::size_t last = std::min(table.rows.size(), firstRow + kLookedAt);
        std::size_t texts = 0;
        for (std::size_t row = firstRow; row < last; ++row)
            texts += at < table.rows[row].size() && std::ranges::any_of(table.rows[row][at], [](char c) {
                         return (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
                     });
        if (!best || texts > most) {
            best = at;
            most = texts;
        }
    }
    return best;
}

std::optional<Heading> HeadingOf(const Table& table, std::size_t from, std::size_t to)
{
    const std::vector<Column> columns = ColumnsOf(table, from, to);
    const auto name = NameColumn(table, to + 1, columns);
    const auto closing = ClosingOf(columns);
    if (!name || !closing)
        return std::nullopt;
    Heading heading{.firstRow = to + 1, .name = *name, .closing = *closing};
    heading.opening = FiguresOf(columns, Moment::Opening).value_or(FigureColumns());
    for (std::size_t at = columns.size(); at-- > 0;)
        if (columns[at].holds == Holds::Group)
            heading.group = at;
    return heading;
}

/// A row below that tells debit and credit of what stands above: it has no account.
bool GoesOn(const Table& table, std::size_t row, std::size_t name)
{
    if (row >= table.rows.size())
        return false;
    const auto& cells = table.rows[row];
    if (name < cells.size() && !Trim(cells[name]).empty())
        return false;
    return std::ranges::any_of(cells, [](const std::string& cell) {
        const Words words = HeadingWords(cell);
        const Holds holds = HoldsOf(words, MomentOf(words));
        return holds == Holds::Debit || holds == Holds::Credit || holds == Holds::Balance;
    });
}

} // namespace

int Heading::Columns() const
{
    int count = 1 + (group ? 1 : 0);
    for (const FigureColumns& figures : {closing, opening})
        for (const auto& column : {figures.debit, figures.credit, figures.balance, figures.side})
            count += column ? 1 : 0;
    return count;
}

std::optional<Heading> FindHeading(const Table& table)
{
    const std::size_t last = std::min(table.rows.size(), kLookedAt);
    for (std::size_t to = 0; to < last; ++to)
        for (std::size_t height = 1; height <= std::min(kTallest, to + 1); ++height) {
            const std::size_t from = to + 1 - height;
            auto heading = HeadingOf(table, from, to);
            if (!heading)
                continue;
            for (std::size_t below = to + 1; GoesOn(table, below, heading->name); ++below)
                if (auto taller = HeadingOf(table, from, below))
                    heading = taller;
                else
                    break;
            return heading;
        }
    return std::nullopt;
}

} // namespace pgbp::trial
