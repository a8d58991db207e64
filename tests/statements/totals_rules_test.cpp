#include "statements/ind_as_totals.h"
#include "statements/served_totals.h"
#include "statements/totals_rules.h"

#include "services/format.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

using namespace pgbp;
using namespace pgbp::test;

namespace {

/// A second evaluator: asks for the figure of a line, and works backwards from there, in whole rupees. The last rule of
/// a line counts. It knows neither texts nor the order of the rules.
class Backwards {
  public:
    Backwards(const std::string& rules, std::map<int, long> entries) : entries_(std::move(entries))
    {
        std::size_t from = 0;
        while (from < rules.size()) {
            const std::size_t end = std::min(rules.find(';', from), rules.size());
            const std::string rule = rules.substr(from, end - from);
            rules_[std::stoi(rule)] = rule.substr(rule.find('=') + 1);
            from = end + 1;
        }
    }

    long Figure(int line)
    {
        const auto rule = rules_.find(line);
        if (rule == rules_.end())
            return entries_.contains(line) ? entries_.at(line) : 0;
        if (!known_.contains(line)) {
            const char* at = rule->second.c_str();
            known_[line] = Sum(at);
        }
        return known_.at(line);
    }

    std::set<int> Computed() const
    {
        std::set<int> lines;
        for (const auto& [line, rule] : rules_)
            lines.insert(line);
        return lines;
    }

  private:
    long Sum(const char*& at)
    {
        long sum = 0;
        long sign = 1;
        for (; *at != '\0' && *at != ')'; ++at) {
            if (*at == '-')
                sign = -1;
            else if (*at == '+')
                sign = 1;
            else if (*at == '(')
                sum += sign * Sum(++at);
            else if (std::isdigit(*at))
                sum += sign * Range(at);
        }
        return sum;
    }

    long Range(const char*& at)
    {
        char* end = nullptr;
        const long from = std::strtol(at, &end, 10);
        const long to = end[0] == '.' ? std::strtol(end + 2, &end, 10) : from;
        at = end - 1;
        long sum = 0;
        for (long line = from; line <= to; ++line)
            sum += Figure(static_cast<int>(line));
        return sum;
    }

    std::map<int, std::string> rules_;
    std::map<int, long> entries_;
    std::map<int, long> known_;
};

/// Figure of `result` when 1 stands in `line` alone: how often, and with which sign, the line counts.
double Weight(const StatementTotals& totals, std::size_t rows, std::size_t line, std::size_t result)
{
    std::vector<AmountCell> amounts(rows + 1);
    amounts[line].SetText("1");
    totals.Run(amounts);
    return amounts[result].figure();
}

/// Entries up to and with the line of a number count with this sign; 0 leaves them out.
struct Section {
    int lastSlno;
    int sign;
};
using Sections = std::vector<Section>;

const Sections kProfitAndLoss = {{187, 1}, {258, -1}, {260, 1}, {262, -1}};
const Sections kProfitAndLoss2019 = {{8017, -1}, {8021, 1}, {8028, 1}, {8034, -1},
                                     {187, 1},   {258, -1}, {260, 1},  {262, -1}};
const Sections kNoAccountCase = {{269, 0}, {270, 1}, {271, -1}};
const Sections kNoAccountCases = {{269, 0}, {270, 1}, {271, -1}, {1163, 0}, {1164, 1}, {1165, -1}};
const Sections kApplication = {{2026, 1}, {2027, -1}, {2062, 1}, {2076, -1}, {2080, 1}};
const Sections kApplicationAndNoAccounts = {{2026, 1}, {2027, -1}, {2062, 1}, {2076, -1}, {2080, 1}, {2087, 0}};

/// What a form adds up: behind line `after` the entries of these sections reach the result, each once.
struct Account {
    const char* name;
    int after; ///< number of the line before the first entry, 0 for the top
    Sections sections;
    int result;
    std::vector<std::string> leftOut; ///< how the captions begin of the entries that the form itself adds to nothing
};

const std::string kToNonResidents = "If Yes, amount paid to non-residents";
const std::vector<std::string> kNoAccounts = {"Amount of total sundry debtors", "Amount of total sundry creditors",
                                              "Amount of total stock-in-trade", "Amount of the cash balance"};

const std::vector<Account>& Accounts()
{
    static const std::vector<Account> accounts = {
        {"PL_4", 0, kProfitAndLoss, 262, {}},
        {"PL_4", 262, kNoAccountCase, 272, {"Gross receipts"}},
        {"PL_5", 0, kProfitAndLoss, 262, {}},
        {"PL_5", 262, kNoAccountCase, 272, {"Gross receipts"}},
        {"PL_6", 0, kProfitAndLoss, 262, {}},
        {"PL_5_1", 0, kProfitAndLoss, 262, {kToNonResidents}},
        {"PL_5_1", 262, kNoAccountCase, 272, {"Gross receipts"}},
        {"PL_5_2015", 0, kProfitAndLoss, 262, {kToNonResidents}},
        {"PL_5_2015", 262, kNoAccountCase, 272, {"Gross receipts"}},
        {"PL_6_1", 0, kProfitAndLoss, 262, {kToNonResidents}},
        {"PL_5_2", 0, kProfitAndLoss, 262, {kToNonResidents}},
        {"PL_5_2", 262, kNoAccountCases, 1167, {"Gross receipts", "Gross receipts"}},
        {"PL_5_2017", 0, kProfitAndLoss, 262, {kToNonResidents}},
        {"PL_5_2017", 262, kNoAccountCases, 1167, {"Gross receipts", "Gross receipts"}},
        {"PL_5_2018", 0, kProfitAndLoss, 262, {kToNonResidents}},
        {"PL_5_2018", 262, kNoAccountCases, 1167, {"Gross receipts", "Gross receipts"}},
        {"PL_5_2018a", 0, kProfitAndLoss, 262, {kToNonResidents}},
        {"PL_5_2018a", 262, kNoAccountCases, 1167, {"Gross receipts", "Gross receipts"}},
        {"PL_6_2018", 0, kProfitAndLoss, 262, {kToNonResidents}},
        {"PL_6_2018", 262, {{269, 0}, {270, 1}, {271, -1}, {1167, 0}}, 272, {"Gross receipts", "Total profit (53d)"}},
        {"PL_3_2019", 0, kProfitAndLoss2019, 262, {kToNonResidents}},
        {"PL_3_2019", 262, kNoAccountCases, 1167, {"Gross receipts", "Gross receipts"}},
        {"PL_5_2019", 0, kProfitAndLoss2019, 262, {kToNonResidents}},
        {"PL_5_2019", 262, kNoAccountCases, 1167, {"Gross receipts", "Gross receipts"}},
        {"PL_6_2019", 0, kProfitAndLoss2019, 262, {kToNonResidents}},
        {"PL_6_2019",
         262,
         {{272, 0}},
         262,
         {"Total presumptive income from goods carriage u/s 44AE", "Gross receipts", "Gross profit", "Expenses",
          "Net profit"}},
        {"BS_4", 0, {{2024, 1}}, 2024, {}},
        {"BS_4", 2024, kApplicationAndNoAccounts, 2082, kNoAccounts},
        {"BS_5", 0, {{2024, 1}}, 2024, {}},
        {"BS_5", 2024, kApplicationAndNoAccounts, 2082, kNoAccounts},
        {"BS_6", 0, {{2103, 0}, {2024, 1}}, 2024, {"Authorised"}},
        {"BS_6", 2024, kApplication, 2082, {}},
        {"INDAS", 0, {{7503, 0}, {7601, 1}}, 7601, {"Authorised"}},
        {"INDAS",
         7601,
         {{7605, 1},
          {7607, -1},
          {7611, 1},
          {7613, -1},
          {7616, 1},
          {7617, -1},
          {7620, 1},
          {7622, -1},
          {7626, 1},
          {7627, -1},
          {7655, 1},
          {7659, 0},
          {7671, 1},
          {7672, 0},
          {7717, 1},
          {7721, 0},
          {7730, 1}},
         7732,
         {"for the purpose of business", "not for the purpose of business", "given to shareholder",
          "Non-current assets included in J above", "for the purpose of business", "not for the purpose of business",
          "given to a shareholder"}},
        {"INDASPL", 0, {{7041, 1}}, 7043, {}},
        {"INDASPL", 7043, {{7142, 1}}, 7143, {kToNonResidents}},
        {"INDASPL", 7143, {{7146, 1}, {8015, -1}, {7151, -1}, {7153, 1}}, 7154, {}},
        {"INDASPL", 7154, {{7160, 1}}, 7162, {}},
        {"INDASPL",
         7162,
         {{7172, 1}, {7174, 0}, {7183, 1}, {7185, 0}},
         7187,
         {"Income tax relating to items that will not be", "Income tax relating to items that will be"}},
        {"INDASPL", 7187, kNoAccountCase, 272, {"Gross receipts"}},
        {"INDAS_232", 0, {{7515, 1}}, 7518, {}},
        {"INDAS_232",
         7518,
         {{7525, 0}, {7539, 1}, {7542, 0}, {7553, 1}},
         7556,
         {"Foreign currency", "Rupee", "Trade Payables", "Other financial liabilities"}},
        {"INDAS_232", 7556, {{7599, 1}}, 7600, {}},
        {"INDAS_232", 7600, {{7601, 0}}, 7732, {"Total Equity and liabilities"}},
        {"INDAS_232",
         7601,
         {{7605, 1},
          {7607, -1},
          {7609, 1},
          {7613, -1},
          {7616, 1},
          {7617, -1},
          {7620, 1},
          {7622, -1},
          {7626, 1},
          {7627, -1},
          {7647, 1},
          {7650, 0},
          {7653, 1},
          {7659, 0},
          {7664, 1},
          {7666, 0},
          {7669, 1},
          {7672, 0}},
         7673,
         {"Security deposits", "for the purpose of business", "not for the purpose of business", "given to shareholder",
          "Capital Advances", "Non-current assets included in J above"}},
        {"INDAS_232",
         7673,
         {{7682, 1}, {7722, 0}, {7728, 1}},
         7732,
         {"Listed equities",
          "Unlisted equities",
          "Total (ia + ib)",
          "Investment in Preference shares",
          "Investment in government",
          "Investment in debentures",
          "Investment in Mutual funds",
          "Investment in partnership firms",
          "Other Investments",
          "Total Current investments",
          "Secured, considered good",
          "Unsecured, considered good",
          "Doubtful",
          "Balances with Banks",
          "Cheque, drafts in hand",
          "Cash on hand",
          "__",
          "__",
          "Bank Balances other than III above",
          "Security Deposits",
          "Loans to related parties",
          "__",
          "__",
          "for the purpose of business",
          "not for the purpose of business",
          "given to a shareholder",
          "Other Financial Assets"}},
    };
    return accounts;
}

} // namespace

TEST(TotalsRules, EveryFormAgreesWithTheSecondEvaluator)
{
    int checked = 0;
    for (const auto& [name, rules] : RulesInFull()) {
        SCOPED_TRACE(name);
        const TemplateFile& file = TemplateNamed(name);
        std::vector<AmountCell> amounts(file.rows.size() + 1);
        std::map<int, long> entries;
        for (std::size_t line = 1; line <= file.rows.size(); ++line)
            if (IsEntry(file.At(line))) {
                const long rupees = 1000003 + 7919 * static_cast<long>(line * line);
                entries[static_cast<int>(line)] = rupees;
                amounts[line].SetText(FormatAmountIndian(std::to_string(rupees), kIndianGrouping));
            }
        const StatementTotals totals = TotalsOf(file);
        Backwards second(rules, entries);

        std::set<int> computed;
        for (const std::size_t line : totals.ComputedRows()) {
            computed.insert(static_cast<int>(line));
            EXPECT_TRUE(file.At(line).isBlocked && file.At(line).isNumber)
                << "line " << line << " is open or a heading";
        }
        EXPECT_EQ(computed, second.Computed());

        for (const char* run : {"first", "second"}) { // the second, as after the next key, changes nothing
            totals.Run(amounts);
            for (const int line : computed) {
                EXPECT_EQ(amounts[static_cast<std::size_t>(line)].text(),
                          FormatAmountIndian(std::to_string(second.Figure(line)), kIndianGrouping))
                    << run << " run, line " << line;
                ++checked;
            }
        }
    }
    EXPECT_EQ(RulesInFull().size(), 20u);
    EXPECT_GT(checked, 1000);
}

TEST(TotalsRules, EachEntryReachesItsResultOnceWithItsSign)
{
    for (const Account& account : Accounts()) {
        const TemplateFile& file = TemplateNamed(account.name);
        const StatementTotals totals = TotalsOf(file);
        const std::size_t result = file.Line(account.result);
        ASSERT_NE(result, 0u) << account.name;
        std::size_t line = account.after == 0 ? 0 : file.Line(account.after);
        std::vector<std::string> leftOut;
        for (const Section& section : account.sections) {
            ASSERT_NE(file.Line(section.lastSlno), 0u) << account.name << ' ' << section.lastSlno;
            while (line < file.Line(section.lastSlno)) {
                const TemplateRow& row = file.At(++line);
                if (!IsEntry(row))
                    continue;
                const double weight = Weight(totals, file.rows.size(), line, result);
                if (weight == 0)
                    leftOut.push_back(CaptionOf(row));
                else
                    EXPECT_EQ(weight, section.sign) << account.name << " line " << line << ' ' << CaptionOf(row);
            }
        }
        EXPECT_TRUE(std::ranges::equal(leftOut, account.leftOut,
                                       [](auto& caption, auto& start) { return caption.starts_with(start); }))
            << account.name << " after " << account.after << ": " << testing::PrintToString(leftOut);
    }
}

/// Credits and expenses have totals of their own, and none of them is in the net profit.
TEST(TotalsRules, NetProfitUnderIndAsTakesInterestAndDepreciationOnly)
{
    const TemplateFile& file = TemplateNamed("INDASPL");
    const StatementTotals totals = TotalsOf(file);
    std::map<std::size_t, double> weights;
    for (std::size_t line = 1; line <= file.rows.size(); ++line)
        if (const double weight = IsEntry(file.At(line)) ? Weight(totals, file.rows.size(), line, kIndNetProfitRow) : 0)
            weights[line] = weight;
    EXPECT_EQ(weights, (std::map<std::size_t, double>{{145, 1}, {146, 1}, {148, -1}}));
}

TEST(TotalsRules, IntradayProfitReachesTheProfitOfAnIndividualOnly)
{
    for (const auto& [name, expected] : {std::pair("PL_3_2019", "500"), {"PL_5_2019", "0"}, {"PL_6_2019", "0"}}) {
        const TemplateFile& file = TemplateNamed(name);
        std::vector<AmountCell> amounts(file.rows.size() + 1);
        TotalsOf(file).Run(amounts, 500);
        EXPECT_EQ(amounts[file.Line(255)].text(), expected) << name;
    }
}

/// Its lines are added at the places of the account, and the rules that reach beyond its end are left out.
TEST(TotalsRules, ABalanceSheetPassesThroughTheRulesOfTheAccount)
{
    const auto open = [](int year, int glITR) { return OpenStatementForm(year, glITR, StatementKind::BalanceSheet); };
    const auto rowsOf = [](const StatementForm& form) { return TemplateNamed(TemplateName(form)).rows.size(); };
    for (int year = 2005; year <= 2026; ++year)
        for (const int glITR : {4, 5, 6}) {
            const StatementForm form = open(year, glITR);
            const StatementTotals totals(TotalsRules(OperationFor(form), form), rowsOf(form));
            EXPECT_LE(std::ranges::max(totals.ComputedRows()), rowsOf(form)) << year << ' ' << glITR;
        }

    struct Case {
        int year, glITR;
        std::size_t line;
        const char* figure; ///< when 1 stands in every line
        std::size_t last;   ///< computed line
    };
    const Case cases[] = {
        {2012, 4, 86, "-40", 86},   // 21 = 16, less 22 + 23 + 7 + 6 lines + 10 + 4 + 17 lines + 5 + 5 lines
        {2018, 4, 86, "-40", 86},   // the same rules: an individual's balance sheet never runs as a firm's
        {2012, 5, 87, "-41", 87},   // as above with 11 for the 10
        {2012, 6, 103, "-49", 103}, // -41 less 2, less 3, plus 1, less 4
        {2014, 5, 36, "22", 87},    // 8 + 11 + 3
        {2017, 5, 37, "23", 88},    // 9 + 11 + 3
        {2018, 5, 41, "27", 86},    // 13 + 11 + 3
        {2016, 6, 38, "24", 97},    // 10 + 11 + 3
        {2018, 6, 42, "28", 105},   // 14 + 11 + 3
        {2026, 4, 87, "12", 87},    // ten lines + 2
        {2026, 5, 88, "-1", 88},    // gross profit 14 - 1 - 1 - 3 - 11 - 11 = -13, + 12
        {2026, 6, 88, "-1", 106},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.year) + ' ' + std::to_string(c.glITR));
        const StatementForm form = open(c.year, c.glITR);
        const StatementTotals totals(TotalsRules(OperationFor(form), form), rowsOf(form));
        std::vector<AmountCell> amounts(rowsOf(form) + 1, AmountCell("1"));
        totals.Run(amounts);
        EXPECT_EQ(amounts[c.line].text(), c.figure);
        EXPECT_EQ(totals.ComputedRows().back(), c.last);
    }
    EXPECT_TRUE(
        TotalsRules(TotalsOperation::Cal_Total, OpenStatementForm(2020, 7, StatementKind::ProfitAndLoss)).empty());
}

TEST(TotalsRules, LayoutOfAnIndAsBalanceSheetIsKnownByItsLines)
{
    const auto published = IndTotalsRules(IndStatement::INDBS, 204);
    EXPECT_EQ(IndTotalsRules(IndStatement::INDBS, 0).data(), published.data());
    for (const std::size_t rows : {87u, 88u, 107u, 232u})
        EXPECT_NE(IndTotalsRules(IndStatement::INDBS, rows).data(), published.data());
    EXPECT_EQ(TemplateNamed("INDAS").At(kIndEquityAndLiabilitiesRow).slno, 7601);
    EXPECT_EQ(TemplateNamed("INDAS").At(kIndAssetsRow).slno, 7732);
    EXPECT_EQ(TemplateNamed("INDASPL").At(kIndNetProfitRow).slno, 7149);
}
