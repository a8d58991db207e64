#include "suite/year_list.h"

#include "services/format.h"
#include "services/text.h"
#include "suite/assessee_kinds.h"
#include "suite/head_of_income.h"
#include "suite/search_words.h"

#include <algorithm>
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
    entries_.clear();
    entries_.reserve(years.size());
    for (AssesseeYear& year : years) {
        Entry entry{.words = SearchedWords(year), .sortName = Upper(year.name), .kind = KindInWords(year.status)};
        entry.year = std::move(year);
        entries_.push_back(std::move(entry));
    }
    byClient_.resize(entries_.size());
    std::iota(byClient_.begin(), byClient_.end(), 0);
    std::ranges::stable_sort(byClient_, {}, [this](Index index) {
        const AssesseeYear& year = entries_[index].year;
        return std::tie(year.client, year.year);
    });
    for (Entry& entry : entries_)
        entry.isNewest = entry.year.year == entries_[OfClient(entry.year.client).back()].year.year;
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
    Entry* const one[] = {&entries_[found_[row]]};
    Complete(one);
    return one[0]->year;
}

void YearList::Complete(std::span<Entry* const> entries)
{
    std::vector<Entry*> unread;
    std::ranges::copy_if(entries, std::back_inserter(unread),
                         [](const Entry* entry) { return entry->head == Entry::Unread; });
    if (unread.empty())
        return;
    std::vector<AssesseeYear*> years;
    years.reserve(unread.size());
    for (Entry* entry : unread)
        years.push_back(&entry->year);
    const auto become = [&](auto head) {
        for (Entry* entry : unread)
            entry->head = head;
    };
    try {
        readHeads_(years);
        become(Entry::Read);
    } catch (const std::exception&) {
        become(Entry::Failed);
    }
}

std::span<const YearList::Index> YearList::OfClient(double client) const
{
    const auto clientOf = [this](Index index) { return entries_[index].year.client; };
    return {std::ranges::lower_bound(byClient_, client, {}, clientOf),
            std::ranges::upper_bound(byClient_, client, {}, clientOf)};
}

bool YearList::KnowsYearsOfClient(std::size_t row) const
{
    return std::ranges::none_of(OfClient(At(row).client),
                                [this](Index index) { return entries_[index].head == Entry::Unread; });
}

std::vector<ClientYear> YearList::YearsOfClient(std::size_t row)
{
    std::vector<Entry*> entries;
    std::ranges::transform(OfClient(At(row).client), std::back_inserter(entries),
                           [this](Index index) { return &entries_[index]; });
    Complete(entries);
    std::vector<ClientYear> years;
    years.reserve(entries.size());
    for (const Entry* entry : entries)
        years.push_back({.code = entry->year.code,
                         .year = entry->year.year,
                         .head = entry->head == Entry::Failed ? std::nullopt : entry->year.headOfIncome,
                         .writtenFor = entry->year.writtenFor,
                         .isUnreadable = entry->head == Entry::Failed});
    return years;
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
        for (Entry& entry : entries_) {
            Entry* const one[] = {&entry};
            Complete(one);
        }
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
