#pragma once

#include "trial_balance/table.h"

#include <optional>

namespace pgbp::trial {

/// Where the figures of one moment stand. Either debit and credit have their columns, or a balance has one, with the
/// side beside it where the list tells it apart.
struct FigureColumns {
    std::optional<std::size_t> debit = {};
    std::optional<std::size_t> credit = {};
    std::optional<std::size_t> balance = {};
    std::optional<std::size_t> side = {};

    bool Any() const { return debit || credit || balance; }
    bool operator==(const FigureColumns&) const = default;
};

/// What the columns of a list of accounts hold, as its heading tells.
struct Heading {
    std::size_t firstRow = 0; ///< below the heading, from 0
    std::size_t name = 0;
    std::optional<std::size_t> group = {};
    FigureColumns closing = {};
    FigureColumns opening = {};

    int Columns() const; ///< how many were recognised
    bool operator==(const Heading&) const = default;
};

/// The heading of the list: one row, or several in which "Opening" and "Closing" stand over "Debit" and "Credit". Rows
/// of titles above it are passed over. Closing figures are those that say so; where none does, those that say nothing,
/// a balance rather than debits and credits, which may be the entries of the period. None where the name of the
/// account, or figures that are surely those of the closing, cannot be told.
std::optional<Heading> FindHeading(const Table& table);

} // namespace pgbp::trial
