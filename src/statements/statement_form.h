#pragma once

#include <string>
#include <string_view>

namespace pgbp {

enum class StatementKind { ProfitAndLoss, BalanceSheet };

/// "NEWBS" in the hand-over asks for the balance sheet, anything else for the profit and loss account.
StatementKind StatementKindOf(std::string_view glRep);

/// "PL" or "BAL".
std::string_view KindWord(StatementKind kind);

/// Which return and year a statement belongs to while its screen is open. From 2014 an individual's profit and loss
/// account runs with the number of a firm's return, 5; `FormITR` keeps the two apart, and for the forms from 2015
/// `ItrThreeCase` does.
struct StatementForm {
    int year = 0; ///< 2023 for the assessment year 2023-24
    StatementKind kind = StatementKind::ProfitAndLoss;
    int FormITR = 4; ///< the assessee's return form, at least 4
    int GlITR = 4;   ///< the number that the rules of this statement go by
    bool ItrThreeCase = false;
};

StatementForm OpenStatementForm(int year, int glITR, StatementKind kind);

/// Puts the form's number into the run-wide one for as long as it lives, then gives back FormITR.
class FormNumberWhileOpen {
  public:
    FormNumberWhileOpen(double& glITR, const StatementForm& form) : glITR_(glITR), formITR_(form.FormITR)
    {
        glITR_ = form.GlITR;
    }
    ~FormNumberWhileOpen() { glITR_ = formITR_; }
    FormNumberWhileOpen(const FormNumberWhileOpen&) = delete;
    FormNumberWhileOpen& operator=(const FormNumberWhileOpen&) = delete;

  private:
    double& glITR_;
    int formITR_;
};

/// `d_type` of the template that serves the form.
std::string TemplateName(const StatementForm& form);

} // namespace pgbp
