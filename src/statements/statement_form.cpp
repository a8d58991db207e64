#include "statements/statement_form.h"

#include <algorithm>
#include <limits>

namespace pgbp {
namespace {

constexpr int kNoStart = std::numeric_limits<int>::min();
constexpr int kNoEnd = std::numeric_limits<int>::max();

bool IsFirm(const StatementForm& form) { return form.GlITR == 5 && !form.ItrThreeCase; }
bool IsIndividual(const StatementForm& form) { return form.FormITR == 4; }
bool IsItrThree(const StatementForm& form) { return form.ItrThreeCase; }
bool IsCompany(const StatementForm& form) { return form.GlITR == 6; }
bool RunsAsFirmOrCompany(const StatementForm& form) { return form.GlITR == 5 || form.GlITR == 6; }
bool IsAny(const StatementForm&) { return true; }

/// A profit and loss template and whom it serves in which years. `#` in the name stands for the form's number.
struct TemplateChoice {
    int firstYear;
    int lastYear;
    bool (*serves)(const StatementForm&);
    std::string_view name;
};
constexpr TemplateChoice kTemplateChoices[] = {
    {2019, kNoEnd, IsFirm, "PL_5_2019"},       {2018, 2018, IsFirm, "PL_5_2018a"},
    {2017, 2017, IsFirm, "PL_5_2017"},         {2015, 2016, IsFirm, "PL_5_2015"},
    {2019, kNoEnd, IsIndividual, "PL_3_2019"}, {2017, 2017, IsItrThree, "PL_#_2"},
    {2018, kNoEnd, IsItrThree, "PL_#_2018"},   {2019, kNoEnd, IsCompany, "PL_6_2019"},
    {2018, 2018, IsCompany, "PL_6_2018"},      {2013, kNoEnd, RunsAsFirmOrCompany, "PL_#_1"},
    {kNoStart, kNoEnd, IsAny, "PL_#"},
};

std::string WithNumber(std::string_view name, int number)
{
    std::string text(name);
    if (const auto at = text.find('#'); at != std::string::npos)
        text.replace(at, 1, std::to_string(number));
    return text;
}

} // namespace

StatementKind StatementKindOf(std::string_view glRep)
{
    return glRep == "NEWBS" ? StatementKind::BalanceSheet : StatementKind::ProfitAndLoss;
}

std::string_view KindWord(StatementKind kind) { return kind == StatementKind::BalanceSheet ? "BAL" : "PL"; }

StatementForm OpenStatementForm(int year, int glITR, StatementKind kind)
{
    StatementForm form{.year = year, .kind = kind, .FormITR = std::max(glITR, 4)};
    const bool individualsProfit = form.FormITR == 4 && kind == StatementKind::ProfitAndLoss;
    form.ItrThreeCase = individualsProfit && year >= 2015;
    form.GlITR = individualsProfit && year >= 2014 ? 5 : form.FormITR;
    return form;
}

std::string TemplateName(const StatementForm& form)
{
    if (form.kind == StatementKind::BalanceSheet)
        return WithNumber("BS_#", form.GlITR);
    const auto serves = [&](const TemplateChoice& choice) {
        return choice.firstYear <= form.year && form.year <= choice.lastYear && choice.serves(form);
    };
    return WithNumber(std::ranges::find_if(kTemplateChoices, serves)->name, form.GlITR);
}

} // namespace pgbp
