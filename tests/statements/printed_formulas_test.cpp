#include "statements/served_totals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <regex>

using namespace pgbp;
using namespace pgbp::test;

namespace {

using Path = std::array<std::string, 6>;

/// Serials of each line with those of the lines that it stands under: 4, A, iii, c. A first line carries the number of
/// its heading, "1A".
std::vector<Path> PathsOf(const TemplateFile& file)
{
    std::vector<Path> paths;
    Path path;
    for (const TemplateRow& row : file.rows) {
        const auto own = std::ranges::find_if(row.serials, [](std::string_view s) { return !s.empty(); });
        if (own == row.serials.end()) {
            paths.emplace_back();
            continue;
        }
        const auto depth = static_cast<std::size_t>(own - row.serials.begin());
        std::copy(own, row.serials.end(), path.begin() + static_cast<std::ptrdiff_t>(depth));
        const std::size_t digits = std::min(own->find_first_not_of("0123456789"), own->size());
        if (depth > 0 && digits > 0 && digits < own->size()) {
            path = {std::string(own->substr(0, digits))};
            path[depth] = own->substr(digits);
        }
        paths.push_back(path);
    }
    return paths;
}

/// Lines that a serial means in the caption of line `at`: "iiic" beside it, "22xi" from the top; those above rather
/// than those below, as numbers return. Lines (1), (2) ... of one serial count together.
std::vector<std::size_t> LinesMeant(const std::vector<Path>& paths, const std::string& serial, std::size_t at)
{
    for (std::size_t depth = 6; depth-- > 0;) {
        std::vector<std::size_t> lines;
        for (std::size_t line = 1; line <= paths.size(); ++line) {
            const Path& path = paths[line - 1];
            std::string rest;
            for (std::size_t i = depth; i < path.size(); ++i)
                rest += path[i];
            rest = rest.substr(0, rest.find('('));
            const bool isBeside =
                std::equal(path.begin(), path.begin() + static_cast<std::ptrdiff_t>(depth), paths[at - 1].begin());
            if (line == at || rest != serial || !isBeside)
                continue;
            if (line > at && !lines.empty() && lines.back() < at)
                break;
            if (!lines.empty() && lines.back() + 1 != line)
                lines.clear();
            lines.push_back(line);
        }
        if (!lines.empty())
            return lines;
    }
    return {};
}

struct Term {
    std::string from;
    std::string to; ///< of "16 to 21", otherwise empty
    int sign;
};

/// What the caption ends with in brackets, when it is a formula over serials: "[4 - (5iv + 8 to 13)]".
std::vector<Term> FormulaOf(const std::string& caption)
{
    static const std::regex shape(R"(.*?[\[(]((?:\w+ ?[-+] ?).*\w+\)?)[\])]\s*$)");
    static const std::regex token(R"((\w+) to (\w+)|\w+|[-+()])");
    std::smatch whole;
    if (!std::regex_match(caption, whole, shape))
        return {};
    const std::string formula = whole[1];
    std::vector<Term> terms;
    int outer = 1, sign = 1;
    for (std::sregex_iterator at(formula.begin(), formula.end(), token), end; at != end; ++at) {
        const std::string word = at->str();
        if (word == "(")
            outer = sign;
        else if (word == ")")
            outer = 1;
        else if (word == "+" || word == "-")
            sign = word == "+" ? outer : -outer;
        else
            terms.push_back({(*at)[1].matched ? (*at)[1].str() : word, (*at)[2].str(), sign});
    }
    return terms;
}

std::vector<std::string> SerialsOf(const Term& term)
{
    std::vector<std::string> serials = {term.from};
    if (!term.to.empty())
        for (int i = std::stoi(term.from) + 1; i <= std::stoi(term.to); ++i)
            serials.push_back(std::to_string(i));
    return serials;
}

/// The line that has the figure: of a heading the last line under it, its total.
std::size_t FigureOf(const TemplateFile& file, const std::vector<Path>& paths, std::size_t line)
{
    const std::size_t heading = line;
    if (!file.At(heading).isNumber)
        while (line < paths.size() && paths[line][0] == paths[heading - 1][0])
            ++line;
    return line;
}

/// Sum that the caption of line `at` makes of the amounts; nothing when a serial is not found.
std::optional<double> SumOf(const std::vector<Term>& terms, const TemplateFile& file,
                            const std::vector<AmountCell>& amounts, std::size_t at)
{
    const auto paths = PathsOf(file);
    double sum = 0;
    for (const Term& term : terms)
        for (const std::string& serial : SerialsOf(term)) {
            const auto lines = LinesMeant(paths, serial, at);
            if (lines.empty())
                return std::nullopt;
            for (const std::size_t line : lines)
                sum += term.sign * amounts[FigureOf(file, paths, line)].figure();
        }
    return sum;
}

} // namespace

/// The captions are those of the printed return, written down apart from the rules; this holds one against the other.
/// The statements under Ind AS are left out: their captions number by other letters than their lines.
TEST(PrintedFormulas, TotalsAreWhatTheirCaptionsSay)
{
    int checked = 0;
    for (const TemplateFile& file : TemplateFiles()) {
        if (file.name.starts_with("INDAS"))
            continue;
        std::vector<AmountCell> amounts(file.rows.size() + 1);
        for (std::size_t line = 1; line <= file.rows.size(); ++line)
            if (IsEntry(file.At(line)))
                amounts[line].SetText(std::to_string(1000003 + 7919 * line * line));
        TotalsOf(file).Run(amounts);
        for (std::size_t line = 1; line <= file.rows.size(); ++line)
            if (const auto terms = FormulaOf(CaptionOf(file.At(line))); !terms.empty()) {
                EXPECT_EQ(SumOf(terms, file, amounts, line), amounts[line].figure())
                    << file.name << ' ' << line << ' ' << CaptionOf(file.At(line));
                ++checked;
            }
    }
    EXPECT_GT(checked, 380);
}
