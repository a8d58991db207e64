#include "suite/finding.h"

#include "services/format.h"
#include "services/text.h"

#include <algorithm>
#include <array>
#include <csv.h>

namespace pgbp {
namespace {

constexpr char kBetween = '\t';
constexpr std::array kHeadings = {"Code", "Client", "Year", "Finding", "Concerns", "Stored", "Follows"};

std::array<std::string, kHeadings.size()> CellsOf(const Finding& finding)
{
    const auto plain = [](const std::optional<double>& amount) { return amount ? Amount(*amount) : std::string(); };
    return {finding.code,  finding.client,        finding.year,          finding.what,
            finding.where, plain(finding.stored), plain(finding.follows)};
}

std::string WithoutControls(std::string text)
{
    std::ranges::replace_if(
        text, [](unsigned char each) { return each < ' '; }, ' ');
    return text;
}

std::string Quoted(std::string_view text)
{
    std::string quoted(csv_write(nullptr, 0, text.data(), text.size()), ' ');
    csv_write(quoted.data(), quoted.size(), text.data(), text.size());
    return quoted;
}

template <typename Cells>
std::string CsvRow(const Cells& cells)
{
    std::string row;
    for (const auto& cell : cells)
        row += (row.empty() ? "" : ",") + Quoted(cell);
    return row + "\r\n";
}

} // namespace

std::string AsLine(const Finding& finding)
{
    std::string line;
    for (const std::string& cell : CellsOf(finding))
        line += WithoutControls(cell) + kBetween;
    line.pop_back();
    return line;
}

std::optional<Finding> FromLine(std::string_view line)
{
    std::vector<std::string> cells(1);
    for (const char each : line)
        each == kBetween ? static_cast<void>(cells.emplace_back()) : cells.back().push_back(each);
    if (cells.size() != kHeadings.size())
        return std::nullopt;
    const auto amount = [](const std::string& text) { return text.empty() ? std::nullopt : std::optional(Val(text)); };
    return Finding{cells[0], cells[1], cells[2], cells[3], cells[4], amount(cells[5]), amount(cells[6])};
}

std::string AsCsv(const std::vector<Finding>& findings)
{
    std::string text = "\xEF\xBB\xBF" + CsvRow(kHeadings);
    for (const Finding& finding : findings)
        text += CsvRow(CellsOf(finding));
    return text;
}

std::string AmountInWords(const std::optional<double>& amount)
{
    return amount ? FormatAmountIndian(Amount(*amount), kIndianGrouping) : std::string();
}

std::string InWords(const Finding& finding)
{
    std::string text = finding.what;
    if (!finding.where.empty())
        text += " (" + finding.where + ')';
    if (finding.stored)
        text += ": stored " + AmountInWords(finding.stored);
    if (finding.follows)
        text += (finding.stored ? ", follows " : ": follows ") + AmountInWords(finding.follows);
    return text;
}

} // namespace pgbp
