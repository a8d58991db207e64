#include "suite/head_of_income.h"

#include "services/format.h"
#include "services/text.h"

#include <algorithm>
#include <array>

namespace pgbp {
namespace {

/// What `amt1` to `amt14` hold. Specified business, professional income and audit adjustments are in the total only.
constexpr std::array<std::string_view, 14> kCaptions = {
    "Normal business",
    "Speculation business",
    "Business u/s 44AD",
    "Transport business u/s 44AE",
    "Retail trading u/s 44AF",
    "Remuneration and interest from firms",
    "Share from AOP/BOI",
    "Commission from LIC, UTI etc.",
    "Total",
    "Less: interest to partners",
    "Less: remuneration to partners",
    "Income after partners",
    "Set off against losses of earlier years",
    "Profits & gains from business or profession",
};

} // namespace

std::optional<std::vector<HeadLine>> HeadOfIncome(const Practice& practice, std::string_view code)
{
    const Recordset rows = practice.balance.Query(
        "select amt1, amt2, amt3, amt4, amt5, amt6, amt7, amt8, amt9, Amt10, amt11, amt12, amt13, amt14 from "
        "{qelgeneral} where code = ? and [Type] = 'BUSI'",
        code);
    if (rows.Empty())
        return std::nullopt;
    std::vector<HeadLine> lines;
    for (std::size_t i = 0; i < kCaptions.size(); ++i)
        lines.push_back({std::string(kCaptions[i]), rows.First().At(i).Number()});
    return lines;
}

// The module replaces the row and leaves `name7` empty in it: such a row was written by the run that was noted last.
// Before the next run is noted, what is known of the row is written into it. Neither the amounts nor the place of the
// row in the file would tell: a second run may well write the same amounts, and a row deleted at the end of the table
// gives its place to the next one.
void ReadHeads(const Practice& practice, std::span<AssesseeYear* const> assesseeYears)
{
    std::string places;
    std::vector<Value> codes;
    for (AssesseeYear* assesseeYear : assesseeYears) {
        assesseeYear->headOfIncome.reset();
        assesseeYear->writtenFor = 0;
        places += codes.empty() ? "?" : ", ?";
        codes.emplace_back(assesseeYear->code);
    }
    const Recordset rows = practice.balance.QueryBound(
        "select head.code, head.amt14, head.name7, run.amt1 as minor from {qelgeneral} head "
        "left join {qelgeneral} run on run.code = head.code and run.[Type] = 'BUSIRUN' "
        "where head.[Type] = 'BUSI' and head.code in (" +
            places + ")",
        codes);
    for (const Row row : rows) {
        const std::string code = Upper(Trim(row["code"].Text())); // a server finds it in any letters
        const auto found = std::ranges::find_if(
            assesseeYears, [&](const AssesseeYear* each) { return Upper(Trim(each->code)) == code; });
        if (found == assesseeYears.end() || (*found)->headOfIncome)
            continue;
        (*found)->headOfIncome = row["amt14"].Number();
        (*found)->writtenFor = row["name7"].IsNull() ? row["minor"].Number() : Val(row["name7"].Text());
    }
}

void ReadHead(const Practice& practice, AssesseeYear& assesseeYear)
{
    AssesseeYear* const one[] = {&assesseeYear};
    ReadHeads(practice, one);
}

void NoteRun(const Practice& practice, std::string_view code, double minor)
{
    Transaction transaction({practice.balance});
    const Value before =
        practice.balance.Scalar("select amt1 from {qelgeneral} where code = ? and [Type] = 'BUSIRUN'", code);
    practice.balance.Execute("update {qelgeneral} set name7 = ? where code = ? and [Type] = 'BUSI' and name7 is null",
                             Value(before.Number()).Text(), code);
    practice.balance.Delete("from {qelgeneral} where code = ? and [Type] = 'BUSIRUN'", code);
    practice.balance.Insert("qelgeneral", {{"code", std::string(code)}, {"Type", "BUSIRUN"}, {"amt1", minor}});
    transaction.Commit();
}

bool HeadOfIncomeCameBack(const Practice& practice, std::string_view code)
{
    return !practice.balance
                .Query("select code from {qelgeneral} where code = ? and [Type] = 'BUSI' and name7 is null", code)
                .Empty();
}

std::string HeadInWords(const AssesseeYear& assesseeYear)
{
    if (!assesseeYear.headOfIncome)
        return "-";
    const std::string whose = assesseeYear.writtenFor == 0 ? "" : " (" + MinorInWords(assesseeYear.writtenFor) + ')';
    return FormatAmountIndian(Amount(*assesseeYear.headOfIncome), kIndianGrouping) + whose;
}

std::string WhyOwnRunIsDue(const AssesseeYear& assesseeYear)
{
    if (assesseeYear.writtenFor == 0)
        return "";
    return "The run of " + MinorInWords(assesseeYear.writtenFor) +
           " wrote this head of income. Enter starts the assessee's own run, which writes it anew.";
}

std::string MinorInWords(double minor) { return "minor " + Value(minor).Text(); }

std::string InWords(const std::vector<HeadLine>& lines)
{
    constexpr std::size_t captionWidth = 46, amountWidth = 20;
    std::string text;
    for (const HeadLine& line : lines) {
        const std::string amount = FormatAmountIndian(Amount(line.amount), kIndianGrouping);
        text += line.caption + std::string(captionWidth - std::min(captionWidth, line.caption.size()), ' ') +
                std::string(amountWidth - std::min(amountWidth, amount.size()), ' ') + amount + '\n';
    }
    return text;
}

} // namespace pgbp
