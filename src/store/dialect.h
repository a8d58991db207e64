#pragma once

#include <string>
#include <string_view>

namespace pgbp {

/// What differs between the engines in a statement's text. Every engine answers every question; a statement is written
/// once, from these words. `{}` in a pattern stands for the column or expression.
struct Dialect {
    std::string_view name;
    std::string_view DeleteWord;            ///< how a delete begins: DeleteWord + "from ..."
    std::string_view UpperWord;             ///< function that gives a text in upper case
    std::string_view noMinor;               ///< condition: the row belongs to the assessee himself (Null)
    std::string_view noMinorOrZero;         ///< the same, Null or 0
    std::string_view noMinorOrZeroUnparsed; ///< Null or 0 where the files compare the number as it stands
    std::string_view statusAtMost3;         ///< condition on `status`, a text, as a number
    std::string_view trueLiteral;           ///< the value of a set flag in a condition
    std::string_view insertionOrder;        ///< " order by ..." that gives rows in the order they were added, or empty
    std::string_view latestRows;            ///< " order by ..." that gives a few rows, those added last; or empty
    std::string_view firstRowsPattern;      ///< a select, `{}` what stands behind the word, of its first `{n}` rows
    std::string_view sessionStart;          ///< statement that begins a session: how long it waits; or empty
    std::string_view lockPattern;     ///< statement before a table's largest number is read: others wait with theirs
    std::string_view lockClause;      ///< behind the table whose largest number is read, to the same end
    std::string_view leftPattern;     ///< "left({},{n})": first characters
    std::string_view rightPattern;    ///< "right({},{n})": last characters
    std::string_view trimPattern;     ///< without blanks at both ends
    std::string_view asNumberPattern; ///< a text as a number
    std::string_view textType; ///< how a new table declares a text: `{}` is the column, `{n}` its width in characters
    std::string_view memoType; ///< a text of any length
    std::string_view numberType;
    std::string_view flagType;
    std::string_view dateType;

    std::string Left(std::string_view column, int length) const;
    std::string Right(std::string_view column, int length) const;
    std::string Trim(std::string_view column) const;
    std::string AsNumber(std::string_view column) const;
    std::string Upper(std::string_view column) const;
    /// The select of at most that many rows; `ofSelect` is what stands behind the word "select".
    std::string FirstRows(std::string_view ofSelect, int count) const;
    /// The statement that comes before the largest number of the table's column is read; empty where none is needed.
    std::string Lock(std::string_view table, std::string_view column) const;
};

extern const Dialect kJetDialect;
extern const Dialect kServerDialect;
extern const Dialect kMariaDbDialect;
extern const Dialect kEmbeddedDialect;

/// The dialect of a database server, by the name that its driver gives the product.
const Dialect& ServerDialect(std::string_view product);

} // namespace pgbp
