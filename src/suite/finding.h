#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// Something in the practice that does not agree.
struct Finding {
    std::string code{}; ///< of the assessee-year; of rows that belong to nobody the code that they name
    std::string client{};
    std::string year{};
    std::string what{};              ///< "Head of income"
    std::string where{};             ///< the line of business, the table, or in what it differs
    std::optional<double> stored{};  ///< rupees, or percent
    std::optional<double> follows{}; ///< what the stored rows give

    bool operator==(const Finding&) const = default;
};

/// A finding as one line of text, and back; nothing for a line that is none.
std::string AsLine(const Finding& finding);
std::optional<Finding> FromLine(std::string_view line);

/// The findings for a spreadsheet: comma-separated, quoted, in UTF-8 with its mark, a heading above.
std::string AsCsv(const std::vector<Finding>& findings);

/// An amount of a finding as it is shown: "4,30,000.00"; empty where there is none.
std::string AmountInWords(const std::optional<double>& amount);

/// One for all, in a sentence without its stop: "Head of income (Total): stored 1.00, follows 2.00".
std::string InWords(const Finding& finding);

} // namespace pgbp
