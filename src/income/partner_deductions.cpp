#include "income/partner_deductions.h"

#include "income/summary_rules.h"
#include "law/remuneration_limit.h"
#include "records/keys.h"
#include "services/format.h"

#include <algorithm>

namespace pgbp {
namespace {

constexpr std::string_view kMarkerSeen = "New"; ///< `GLrep` after the remuneration was refreshed

/// The assessee's own row comes before a child's, and the row without a minor before one with 0.
Value DeductedAmount(const Run& run, std::string_view type)
{
    const Recordset rows = QueryOfMinor(run, "select amt1, minor from {business1} where code = ? and [Type] = ?",
                                        {run.Glcode, type}, run.company.dialect().insertionOrder);
    const auto rank = [](const Row& row) { return row["minor"].IsNull() ? 0 : row["minor"].Flag() ? 2 : 1; };
    Value amount;
    int best = 3;
    for (const Row row : rows)
        if (rank(row) < best) {
            best = rank(row);
            amount = row["amt1"];
        }
    return amount;
}

} // namespace

PartnerDeductions::PartnerDeductions(Screen& summary, std::function<double()> total)
    : lblpart1(summary, "lblpart1", "Less : Interest"), txtlesspart1(summary, "txtlesspart1"),
      txtlesspart1P(summary, "txtlesspart1P", "0.00", LabelLook::Amount),
      cmdmax(summary, "cmdmax", "Calculate Maximum Remuneration"), lblpart2(summary, "lblpart2", "Less : Remuneration"),
      txtlesspart2(summary, "txtlesspart2"), txtlesspart2P(summary, "txtlesspart2P", "0.00", LabelLook::Amount),
      form_(summary), run_(summary.run),
      total_(std::move(total)), interest_{txtlesspart1, "LESSINTT", "Interest to partners", true},
      remuneration_{txtlesspart2, "LESSREMU", "Remuneration to partners", false}
{
    txtlesspart1.onLostFocus = [this] { Leave(interest_); };
    txtlesspart2.onLostFocus = [this] { Leave(remuneration_); };
}

void PartnerDeductions::Show()
{
    for (const auto& [field, type, name, zero] : {interest_, remuneration_})
        if (const Value amount = DeductedAmount(run_, type); !amount.IsNull())
            field = Amount(amount.Number());
}

void PartnerDeductions::TakeInterestFromPartners()
{
    txtlesspart1.enabled = run_.GLlock == 0;
    const Recordset partners = run_.company.Query(
        "select amt3 from {business1} where code = ? and [Type] = 'PARTINTT' and amt3 <> 0", run_.Glcode);
    if (partners.Empty())
        return;
    txtlesspart1 = "0.00";
    txtlesspart1.enabled = false;
    for (const Row partner : partners)
        txtlesspart1 = Amount(Val(txtlesspart1) + partner.At(0).Number());
    Store(interest_);
}

void PartnerDeductions::RefreshRemuneration()
{
    if (run_.GLrep == kMarkerSeen)
        return;
    if (cmdmax.visible && !IsKeptByHand())
        CalculateMaximum();
    run_.GLrep = kMarkerSeen; // behind the work: a refresh that failed comes again
}

bool PartnerDeductions::IsKeptByHand() const
{
    const Recordset setup = run_.company.Query("select auto_rem from {setup} where code = ?", run_.Glcode);
    return setup.Empty() || setup.First().At(0).Flag();
}

double PartnerDeductions::BookProfit() const
{
    double exempt = 0;
    if (SummaryRules{run_.Year(), run_.Glstatus}.AddsExemptToProfit())
        exempt = run_.company
                     .Scalar("select sum(amt1) as [Tot] from {business1} where code = ? and "
                             "([Type] = '544' or [Type] = 'less')",
                             run_.Glcode)
                     .Number();
    return total_() + exempt - Val(txtlesspart1);
}

double PartnerDeductions::PaidRemuneration() const
{
    return run_.company
        .Scalar("select sum(amt1) as [tot] from {business1} where code = ? and [Type] = 'PARTREMU'", run_.Glcode)
        .Number();
}

/// Section 40(b)(v): the limit on the book profit, but not more than the partners were paid.
double PartnerDeductions::MaximumRemuneration() const
{
    const double limit = RoundOff(RemunerationLimit(BookProfit(), run_.Year(), run_.Glstatus), 0);
    const double paid = PaidRemuneration();
    return limit > paid ? RoundOff(paid, 0) : limit;
}

/// The field follows the store: an amount that it refuses is never on the screen.
bool PartnerDeductions::CalculateMaximum()
{
    const std::string maximum = Amount(MaximumRemuneration());
    const Recordset stored = run_.company.Query(
        "select amt1, name1, minor from {business1} where code = ? and [Type] = 'LESSREMU'", run_.Glcode);
    const bool stands = IsTheRow(stored, remuneration_, Val(maximum)) && stored.First()["minor"].IsNull();
    const bool writes = !stands && !run_.readOnly;
    if (writes) {
        Transaction transaction({run_.company});
        run_.company.Delete("from {business1} where code = ? and [Type] = 'LESSREMU'", run_.Glcode);
        run_.company.Insert("business1", {{"code", run_.Code()},
                                          {"name1", remuneration_.name},
                                          {"amt1", Val(maximum)},
                                          {"Type", remuneration_.type}});
        transaction.Commit();
    }
    txtlesspart2 = maximum;
    return writes;
}

void PartnerDeductions::Leave(const Deduction& deduction) const
{
    if (deduction.field.text().empty())
        deduction.field = "0.00";
    const bool isChanged = DeductedAmount(run_, deduction.type).Number() != Val(deduction.field);
    Store(deduction);
    if (isChanged)
        form_.TellSaved(std::string(deduction.name), Val(deduction.field));
}

/// The condition of the rows that a new row replaces. The remuneration keeps a stored minor of 0.
std::string PartnerDeductions::OwnRows(const Deduction& deduction) const
{
    if (run_.GLminor != 0)
        return "from {business1} where code = ? and [Type] = ? and minor = ?";
    const Dialect& words = run_.company.dialect();
    return "from {business1} where code = ? and [Type] = ? and " +
           std::string(deduction.zeroMinorIsOwn ? words.noMinorOrZero : words.noMinor);
}

/// True when one row stands, with the amount and the name that would be written.
bool PartnerDeductions::IsTheRow(const Recordset& rows, const Deduction& deduction, double amount)
{
    return rows.Size() == 1 && rows.First()["amt1"].Number() == amount &&
           rows.First()["name1"].Text() == deduction.name;
}

/// The rows are written only when they would differ: walking through the field costs the store nothing.
bool PartnerDeductions::IsStored(const Deduction& deduction) const
{
    std::vector<Value> values{run_.Glcode, deduction.type};
    if (run_.GLminor != 0)
        values.emplace_back(run_.GLminor);
    return IsTheRow(run_.company.QueryBound("select amt1, name1 " + OwnRows(deduction), values), deduction,
                    Val(deduction.field));
}

void PartnerDeductions::Store(const Deduction& deduction) const
{
    if (run_.readOnly || IsStored(deduction))
        return;
    std::vector<Value> values{run_.Glcode, deduction.type};
    if (run_.GLminor != 0)
        values.emplace_back(run_.GLminor);
    Transaction transaction({run_.company});
    run_.company.ExecuteBound(std::string(run_.company.dialect().DeleteWord) + OwnRows(deduction), values);
    run_.company.Insert("business1", {{"code", run_.Code()},
                                      {"name1", deduction.name},
                                      {"amt1", Val(deduction.field)},
                                      {"Type", deduction.type},
                                      {"Minor", MinorOfRun(run_)}});
    transaction.Commit();
}

} // namespace pgbp
