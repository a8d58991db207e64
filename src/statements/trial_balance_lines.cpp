#include "statements/trial_balance_lines.h"

#include "services/format.h"
#include "services/text.h"
#include "trial_balance/words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>

namespace pgbp {
namespace {

using trial::Side;

/// A line that sums up a part of the account, by its lasting number, and the side of what makes it larger.
struct SumLine {
    int slno;
    Side larger;
};

/// The first of them that follows a line tells the side of that: the net profit, what is left of it, and under Ind AS
/// the sums of the credits and of the expenses.
constexpr std::array kSums = {SumLine{7043, Side::Credit}, SumLine{7143, Side::Debit}, SumLine{255, Side::Credit},
                              SumLine{258, Side::Credit}, SumLine{262, Side::Credit}};

/// Lines below the expenses of an account under Ind AS, whose totals do not take them as they are meant: interest,
/// depreciation, tax, what was brought forward, appropriations.
struct ToldLines {
    int first, last;
    Side side;
};
constexpr std::array kTold = {ToldLines{7145, 7146, Side::Debit}, ToldLines{8015, 8015, Side::Debit},
                              ToldLines{7150, 7151, Side::Debit}, ToldLines{7153, 7153, Side::Credit},
                              ToldLines{7156, 7160, Side::Debit}};

std::vector<double> Sums(const StatementLines& lines)
{
    std::vector<double> sums;
    for (const SumLine& sum : kSums) {
        const auto line = lines.Find(sum.slno);
        sums.push_back(line ? lines.At(*line).figure() : 0);
    }
    return sums;
}

/// The side of each line of a profit and loss account, found by putting an amount into it alone.
std::map<std::size_t, Side> SidesByTotals(StatementLines probe)
{
    std::map<std::size_t, Side> sides;
    for (std::size_t line = 1; line <= probe.Count(); ++line)
        probe.SetAmount(line, "");
    probe.Run(0);
    const std::vector<double> before = Sums(probe);
    for (std::size_t line = 1; line <= probe.Count(); ++line) {
        if (!probe.TakesNumber(line))
            continue;
        for (const auto& [first, last, side] : kTold)
            if (probe.Slno(line) >= first && probe.Slno(line) <= last)
                sides[line] = side;
        probe.SetAmount(line, "100");
        probe.Run(0);
        const std::vector<double> after = Sums(probe);
        for (std::size_t i = 0; i < kSums.size() && !sides.contains(line); ++i)
            if (after[i] != before[i]) {
                const Side other = kSums[i].larger == Side::Credit ? Side::Debit : Side::Credit;
                sides[line] = after[i] > before[i] ? kSums[i].larger : other;
            }
        probe.SetAmount(line, "");
    }
    return sides;
}

/// The side that a heading of a balance sheet, or a line right below none, stands on.
Side SideOfCaption(const std::string& caption)
{
    const std::vector<std::string> words = trial::WordsOf(caption);
    const auto has = [&](std::initializer_list<std::string_view> any) {
        return std::ranges::any_of(any, [&](std::string_view word) { return trial::HasWord(words, word); });
    };
    if (has({"liability", "liabilities", "fund", "funds", "equity", "provisions"}))
        return Side::Credit;
    return has({"assets", "asset", "investments", "expenditure", "accumulated"}) ? Side::Debit : Side::None;
}

/// What is taken off an asset is a credit. Else the widest heading tells the half, unless liabilities stand within.
Side SideByHeadings(const trial::FormLine& line)
{
    const std::vector<std::string> own = trial::WordsOf(line.caption);
    const bool isTakenOff =
        trial::HasWord(own, "depreciation") || trial::HasWord(own, "amortization") || trial::HasWord(own, "impairment");
    Side side = Side::None;
    for (auto heading = line.headings.rbegin(); heading != line.headings.rend(); ++heading) {
        const Side its = SideOfCaption(*heading);
        const bool isWithin = trial::HasWord(trial::WordsOf(*heading), "liabilities");
        if (side == Side::None || isWithin)
            side = its == Side::None ? side : its;
    }
    if (line.headings.empty())
        side = SideOfCaption(line.caption);
    return side == Side::Debit && isTakenOff ? Side::Credit : side;
}

std::size_t LevelOf(const StatementRow& row)
{
    constexpr std::size_t kIndent = 3;
    const std::string& caption = row[kBlankDescription].empty() ? row[kDescription] : row[kBlankDescription];
    return std::min(caption.find_first_not_of(' '), caption.size()) / kIndent;
}

/// The caption without what it explains or asks for in brackets.
std::string Short(const std::string& caption)
{
    const auto bracket = caption.find(" (");
    return bracket == std::string::npos || bracket == 0 ? caption : caption.substr(0, bracket);
}

/// The line with the headings that it stands below. One that the preparer has described has his words.
trial::FormLine FormLineOf(int slno, const StatementRow& row, const std::vector<const StatementRow*>& above)
{
    const std::string caption = Trim(row[kDescription]);
    trial::FormLine line{.slno = slno, .caption = caption == kWrittenByPreparer ? "" : caption};
    for (const StatementRow* heading : above)
        if (heading)
            line.headings.insert(line.headings.begin(), Trim((*heading)[kDescription]));
    return line;
}

/// A caption that tells little alone stands behind its heading.
std::string LabelOf(const trial::FormLine& line, const StatementRow& row, const std::vector<const StatementRow*>& above)
{
    constexpr std::size_t kTellsLittle = 16;
    std::string label;
    for (const StatementRow* heading : above)
        label += heading ? Trim((*heading)[kSerial]) : "";
    label += Trim(row[kSerial]);
    const std::string caption = Trim(row[kDescription]);
    const bool tellsLittle = line.caption.size() < kTellsLittle && !line.headings.empty();
    if (tellsLittle)
        label += ' ' + Short(line.headings.front());
    if (caption != kWrittenByPreparer)
        label += (tellsLittle ? ": " : " ") + caption;
    return Trim(label);
}

} // namespace

std::vector<AccountLine> AccountLines(std::span<const StatementRow> rows, const StatementLines& lines,
                                      StatementKind kind, const std::function<bool(std::size_t line)>& takes)
{
    const auto sides = kind == StatementKind::ProfitAndLoss ? SidesByTotals(lines) : std::map<std::size_t, Side>();
    std::vector<const StatementRow*> above; // the headings that the row stands below, one a level
    std::vector<AccountLine> found;
    std::set<std::string> labels;
    for (std::size_t line = 1; line <= rows.size(); ++line) {
        const StatementRow& row = rows[line - 1];
        above.resize(LevelOf(row), nullptr);
        if (takes(line)) {
            trial::FormLine form = FormLineOf(lines.Slno(line), row, above);
            if (kind == StatementKind::ProfitAndLoss)
                form.side = sides.contains(line) ? sides.at(line) : Side::None;
            else
                form.side = SideByHeadings(form);
            std::string label = LabelOf(form, row, above);
            if (!labels.insert(label).second) // two empty lines of one number
                label += " (2)";
            found.push_back({std::move(form), std::move(label)});
        }
        above.push_back(lines.IsClosed(line) ? &row : nullptr);
    }
    return found;
}

double RupeesInLine(const trial::Account& account, Side side)
{
    const double whole = ParseAmount(Rupees(account.balance));
    if (side == Side::None)
        return std::fabs(whole);
    return side == Side::Debit ? whole : 0 - whole;
}

} // namespace pgbp
