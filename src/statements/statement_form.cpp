#include "statements/statement_form.h"

#include "statements/form_predicates.h"

#include <algorithm>

namespace pgbp {
namespace {

using namespace forms;

/// A profit and loss template and whom it serves in which years. `#` in the name stands for the form's number.
struct TemplateChoice {
    int firstYear;
    int lastYear;
    bool (*serves)(const StatementForm&);
    std::string_view name;
};
constexpr TemplateChoice kTemplateChoices[] = {
    {.firstYear = 2019, .lastYear = kNoEnd, .serves = FilesAsFirm, .name = "PL_5_2019"},
    {.firstYear = 2018, .lastYear = 2018, .serves = FilesAsFirm, .name = "PL_5_2018a"},
    {.firstYear = 2017, .lastYear = 2017, .serves = FilesAsFirm, .name = "PL_5_2017"},
    {.firstYear = 2015, .lastYear = 2016, .serves = FilesAsFirm, .name = "PL_5_2015"},
    {.firstYear = 2019, .lastYear = kNoEnd, .serves = FilesAsIndividual, .name = "PL_3_2019"},
    {.firstYear = 2017, .lastYear = 2017, .serves = IsItrThree, .name = "PL_#_2"},
    {.firstYear = 2018, .lastYear = kNoEnd, .serves = IsItrThree, .name = "PL_#_2018"},
    {.firstYear = 2019, .lastYear = kNoEnd, .serves = RunsAsCompany, .name = "PL_6_2019"},
    {.firstYear = 2018, .lastYear = 2018, .serves = RunsAsCompany, .name = "PL_6_2018"},
    {.firstYear = 2013, .lastYear = kNoEnd, .serves = RunsAsFirmOrCompany, .name = "PL_#_1"},
    {.firstYear = kNoStart, .lastYear = kNoEnd, .serves = Any, .name = "PL_#"},
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
