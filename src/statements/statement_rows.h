#pragma once

#include "statements/statement_form.h"
#include "statements/statement_lines.h"

#include "records/rows_of_type.h"

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace pgbp {

/// What tells the statements' stores and screens apart: those of the return, and those under Ind AS.
struct StatementKeeping {
    std::string_view templates; ///< table of the forms in `tax`
    std::string_view values;    ///< type of the amounts' rows, before the kind's word
    std::string_view details;   ///< the same of the details
    std::string_view settings;  ///< section of Settings.ini
    bool ownDescriptions;       ///< lines on which the preparer writes the description
    bool isIndAS;
};

inline constexpr StatementKeeping kOfReturn{.templates = "taxaudit",
                                            .values = "NEW",
                                            .details = "SNEW",
                                            .settings = "PLDET",
                                            .ownDescriptions = true,
                                            .isIndAS = false};
inline constexpr StatementKeeping kUnderIndAS{.templates = "taxauditjson",
                                              .values = "NEWIND",
                                              .details = "INDNEW",
                                              .settings = "BSDET",
                                              .ownDescriptions = false,
                                              .isIndAS = true};

/// A stored line: a schedule cell.
struct StoredLine {
    std::string amount;       ///< `name8`
    std::string description;  ///< `name1`, the preparer's own
    bool isOwn = false;       ///< `name2` is "__"
    std::string previousYear; ///< `name7`, under Ind AS
    bool booksNotKept = false;
};
using StoredLines = std::unordered_map<int, StoredLine>; ///< by the line's lasting number, the first of several

/// A filled line as the cell that a save writes, without the keys of the assessee-year and the line of business.
std::vector<Field> CellOf(const StatementLines& lines, std::size_t line, const std::string& description,
                          bool booksNotKept);

/// A part of an amount that is broken down.
struct DetailEntry {
    std::string description{};
    double amount = 0; ///< rupees

    bool operator==(const DetailEntry&) const = default;
};
using Details = std::map<int, std::vector<DetailEntry>>; ///< by the lasting number of the line that they make up

/// Profit from intraday trading, told beside the account: rupees.
struct Intraday {
    double turnover = 0;
    double profit = 0;
};

/// The rows of a statement of one line of business in the store. `sno` is the number of the line, 0 for a new one.
class StatementRows {
  public:
    StatementRows(const Run& run, const StatementKeeping& keeping, StatementKind kind)
        : run_(run), keeping_(keeping), kind_(KindWord(kind))
    {
    }

    StoredLines Read(double sno) const;
    /// The amounts by the line's lasting number, of whatever line of business.
    std::unordered_map<int, std::string> ReadPreviousYear() const;
    Details ReadDetails(double sno) const;
    std::optional<Intraday> ReadIntraday(double sno) const;

    /// What a save writes.
    struct Content {
        std::vector<std::vector<Field>> lines; ///< without code, type and number of the line
        const Details& details;
        std::optional<Intraday> intraday; ///< to be replaced; none leaves what is stored
    };
    void Replace(double sno, const Content& content, const Transaction& proof) const;
    void Delete(double sno, const Transaction& proof) const;

  private:
    bool IsOfTheCompany() const;
    RowsOfType Values(double sno) const;
    RowsOfType DetailsOf(double sno) const;

    const Run& run_;
    const StatementKeeping& keeping_;
    std::string kind_;
};

} // namespace pgbp
