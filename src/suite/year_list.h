#pragma once

#include "suite/assessee_years.h"
#include "suite/client_years.h"

#include <cstdint>
#include <functional>
#include <span>

namespace pgbp {

/// The assessee-years of a practice as they are listed to be chosen from: those that hold the words searched for, in
/// the order asked for. Searching and sorting touch no store; a head of income is read when it is first looked at.
class YearList {
  public:
    enum Column { Client, Year, Kind, Pan, Head, WrittenBy, Code, ColumnCount };
    struct Order {
        Column column = Client;
        bool descending = false;
        bool operator==(const Order&) const = default;
    };
    /// Completes assessee-years with their heads of income. Where it throws, their cells say so.
    using ReadHeads = std::function<void(std::span<AssesseeYear* const>)>;

    explicit YearList(ReadHeads readHeads) : readHeads_(std::move(readHeads)) {}

    void Show(std::vector<AssesseeYear> years);
    void Search(std::string_view text);
    /// Clients of one name stand together and a client's newest year comes first, whatever else is the order.
    void Sort(Order order);
    /// The head of income of this code is read anew when it is next looked at.
    void Forget(std::string_view code);

    bool Empty() const { return entries_.empty(); } ///< the practice has no assessee-years at all
    std::size_t Size() const { return found_.size(); }
    /// The row that is meant by what was searched for: a client's code before all others.
    std::size_t Best() const;
    std::optional<std::size_t> RowOf(std::string_view code) const;

    const AssesseeYear& At(std::size_t row) const { return entries_[found_[row]].year; }
    /// With its head of income, read if need be.
    const AssesseeYear& WithHead(std::size_t row);
    bool IsNewest(std::size_t row) const { return entries_[found_[row]].isNewest; } ///< of the client's years
    std::string CellText(std::size_t row, Column column);

    /// All years of the row's client, oldest first, also those that are not searched for. Those heads of income that
    /// were not read yet are read together.
    std::vector<ClientYear> YearsOfClient(std::size_t row);
    /// YearsOfClient has nothing to read.
    bool KnowsYearsOfClient(std::size_t row) const;

    /// What to say where no row stands.
    std::string WhyEmpty() const;
    Order order() const { return order_; }

  private:
    struct Entry {
        AssesseeYear year{};
        std::string words;    ///< what is searched
        std::string sortName; ///< without regard to case
        std::string kind;
        bool isNewest = false;
        enum { Unread, Read, Failed } head = Unread;
    };
    using Index = std::uint32_t;

    void Complete(std::span<Entry* const> entries);
    std::span<const Index> OfClient(double client) const;
    void Arrange();
    void Filter(const std::vector<Index>& among);
    int Compare(const Entry& a, const Entry& b) const;

    ReadHeads readHeads_;
    std::vector<Entry> entries_;
    std::vector<Index> byClient_; ///< all entries, a client's oldest first
    std::vector<Index> sorted_;   ///< all entries
    std::vector<Index> found_;    ///< those of them that hold the words
    std::string search_;
    Order order_;
};

/// The order after a column was chosen: another column in the direction in which it is read, the same one turned round.
YearList::Order OrderAfter(YearList::Order now, YearList::Column chosen);

/// The order as a word to be kept for the next time, and back. One that the list can not take up without reading the
/// heads of income of the whole practice, or that is no order, becomes that by client.
std::string OrderText(YearList::Order order);
YearList::Order OrderFrom(std::string_view text);

} // namespace pgbp
