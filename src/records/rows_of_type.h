#pragma once

#include "startup/run.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// The assessee's rows of one `Type`, in a table in which rows of many types stand: all of them, or those of one line
/// of business. Whoever changes them shows the transaction that the change is part of.
class RowsOfType {
  public:
    /// The same rows of another assessee-year.
    RowsOfType OfCode(std::string code) const;
    Recordset Read(std::string_view columns = "*") const; ///< in order of insertion
    void Delete(const Transaction& proof) const;
    /// Adds a row with the code, the type and the line.
    void Add(std::vector<Field> fields, const Transaction& proof) const;
    void Replace(std::vector<Field> fields, const Transaction& proof) const;

  private:
    friend RowsOfType ScheduleCells(const Run&, std::string_view, std::optional<double>);
    friend RowsOfType MiscItems(const Run&, std::string_view, std::optional<double>);
    friend RowsOfType ItemsOfBalance(const Run&, std::string_view);
    friend RowsOfType LineDetails(const Run&, std::string_view, std::optional<double>);

    struct Table {
        const Connection& file;
        std::string_view name;
        std::string_view line; ///< column with the number of the line
    };

    RowsOfType(const Run& run, Table table, std::string_view type, std::optional<double> line)
        : code_(run.Code()), table_(table), type_(type), line_(line)
    {
    }
    std::string Condition() const;
    std::vector<Value> Values() const;

    std::string code_;
    Table table_;
    std::string type_;
    std::optional<double> line_;
};

/// First field of the first row; Null when there is no row.
Value FirstField(const Recordset& rows);

/// First field of each row, as text.
std::vector<std::string> FirstFields(const Recordset& rows);

/// Cells of the return's schedules: "NEWPL" and its kin, the head of income "BUSI".
RowsOfType ScheduleCells(const Run& run, std::string_view type, std::optional<double> line = {});

/// What stands beside the lines: further amounts, notes of a section, presumptive receipts. Of `company`.
RowsOfType MiscItems(const Run& run, std::string_view type, std::optional<double> line = {});

/// Those of them that lie in `balance`: the deemed income by kind of vehicle, "44AE".
RowsOfType ItemsOfBalance(const Run& run, std::string_view type);

/// Detail rows of a line of business; without one those of all lines, and those that belong to the assessee as a whole.
RowsOfType LineDetails(const Run& run, std::string_view type, std::optional<double> sno = {});

} // namespace pgbp
