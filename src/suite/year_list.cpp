#include "suite/year_list.h"

#include "services/format.h"
#include "services/text.h"
#include "suite/assessee_kinds.h"
#include "suite/head_of_income.h"
#include "suite/search_words.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <tuple>

namespace pgbp {
namespace {

int Compared(const std::string& a, const std::string& b) { return a.compare(b); }
int Compared(double a, double b) { return a < b ? -1 : a > b ? 1 : 0; }

/// Heads that are not written come before all amounts.
int Compared(std::optional<double> a, std::optional<double> b)
{
    return a && b ? Compared(*a, *b) : static_cast<int>(a.has_value()) - static_cast<int>(b.has_value());
}

constexpr const char* kOrderNames[] = {"client", "year", "kind", "pan", "head", "written-by", "code"};
constexpr std::string_view kDescending = " descending";

bool NeedsHeads(YearList::Column column) { return column == YearList::Head || column == YearList::WrittenBy; }

} // namespace

void YearList::Show(std::vector<AssesseeYear> years)
{
    std::map<double, std::string> newest; // by client
    for (const AssesseeYear& year : years) {
        std::string& latest = newest[year.client];
        latest = std::max(latest, year.year);
    }
    entries_.clear();
    entries_.reserve(years.size());
    for (AssesseeYear& year : years) {
        Entry entry{.words = SearchedWords(year), .sortName = Upper(year.name), .kind = KindInWords(year.status)};
        entry.isNewest = year.year == newest[year.client];
        entry.year = std::move(year);
        entries_.push_back(std::move(entry));
    }
    Arrange();
}

void YearList::Search(std::string_view text)
{
    const bool narrows = text.starts_with(search_);
    search_ = text;
    Filter(narrows ? found_ : sorted_);
}

void YearList::Sort(Order order)
{
    order_ = order;
    Arrange();
}

void YearList::Forget(std::string_view code)
{
    for (Entry& entry : entries_)
        if (entry.year.code == code)
            entry.head = Entry::Unread;
    if (NeedsHeads(order_.column))
        Arrange();
}

std::size_t YearList::Best() const
{
    const std::string wanted = Upper(Trim(search_));
    const auto isMeant = [&](Index index) { return entries_[index].words.starts_with(wanted); }; // with the code
    const auto meant = wanted.empty() ? found_.end() : std::ranges::find_if(found_, isMeant);
    return meant == found_.end() ? 0 : static_cast<std::size_t>(meant - found_.begin());
}

std::optional<std::size_t> YearList::RowOf(std::string_view code) const
{
    const auto row = std::ranges::find_if(found_, [&](Index index) { return entries_[index].year.code == code; });
    if (row == found_.end())
        return std::nullopt;
    return static_cast<std::size_t>(row - found_.begin());
}

const AssesseeYear& YearList::WithHead(std::size_t row)
{
    Entry& entry = entries_[found_[row]];
    Complete(entry);
    return entry.year;
}

void YearList::Complete(Entry& entry)
{
    if (entry.head != Entry::Unread)
        return;
    try {
        readHead_(entry.year);
        entry.head = Entry::Read;
    } catch (const std::exception&) {
        entry.head = Entry::Failed;
    }
}

std::string YearList::CellText(std::size_t row, Column column)
{
    const AssesseeYear& year = NeedsHeads(column) ? WithHead(row) : At(row);
    switch (column) {
    case Client:
        return year.name;
    case Year:
        return year.year;
    case Kind:
        return entries_[found_[row]].kind;
    case Pan:
        return year.pan;
    case Head:
        if (entries_[found_[row]].head == Entry::Failed)
            return "cannot be read";
        return year.headOfIncome ? FormatAmountIndian(Amount(*year.headOfIncome), kIndianGrouping) : "not written yet";
    case WrittenBy:
        return year.writtenFor == 0 ? "" : MinorInWords(year.writtenFor);
    default:
        return year.code;
    }
}

std::string YearList::WhyEmpty() const
{
    if (Empty())
        return "The practice has no clients yet. Alt+N adds the first one.";
    return "No client's name, PAN, code, year or kind holds \"" + Trim(search_) +
           "\".\nEscape shows all again, Alt+N adds a client.";
}

int YearList::Compare(const Entry& a, const Entry& b) const
{
    switch (order_.column) {
    case Year:
        return Compared(a.year.year, b.year.year);
    case Kind:
        return Compared(a.kind, b.kind);
    case Pan:
        return Compared(a.year.pan, b.year.pan);
    case Head:
        return Compared(a.year.headOfIncome, b.year.headOfIncome);
    case WrittenBy:
        return Compared(a.year.writtenFor, b.year.writtenFor);
    case Code:
        return Compared(a.year.code, b.year.code);
    default:
        return Compared(a.sortName, b.sortName);
    }
}

void YearList::Arrange()
{
    if (NeedsHeads(order_.column))
        for (Entry& entry : entries_)
            Complete(entry);
    sorted_.resize(entries_.size());
    std::iota(sorted_.begin(), sorted_.end(), 0);
    std::ranges::sort(sorted_, [this](Index left, Index right) {
        const Entry& a = entries_[left];
        const Entry& b = entries_[right];
        if (const int chosen = Compare(a, b); chosen != 0)
            return order_.descending ? chosen > 0 : chosen < 0;
        const auto rest = [](const Entry& entry) { return std::tie(entry.sortName, entry.year.client); };
        if (const auto order = rest(a) <=> rest(b); order != 0)
            return order < 0;
        return std::tie(b.year.year, a.year.code) < std::tie(a.year.year, b.year.code);
    });
    Filter(sorted_);
}

void YearList::Filter(const std::vector<Index>& among)
{
    const std::vector<std::string> wanted = WordsOf(search_);
    std::vector<Index> found;
    std::ranges::copy_if(among, std::back_inserter(found),
                         [&](Index index) { return HoldsAll(entries_[index].words, wanted); });
    found_ = std::move(found);
}

YearList::Order OrderAfter(YearList::Order now, YearList::Column chosen)
{
    const bool newestOrHighestFirst =
        chosen == YearList::Year || chosen == YearList::Head || chosen == YearList::WrittenBy;
    return {chosen, now.column == chosen ? !now.descending : newestOrHighestFirst};
}

std::string OrderText(YearList::Order order)
{
    return kOrderNames[order.column] + std::string(order.descending ? kDescending : "");
}

YearList::Order OrderFrom(std::string_view text)
{
    for (int column = 0; column < YearList::ColumnCount; ++column)
        for (const bool descending : {false, true}) {
            const YearList::Order order{static_cast<YearList::Column>(column), descending};
            if (!NeedsHeads(order.column) && OrderText(order) == text)
                return order;
        }
    return {};
}

} // namespace pgbp
