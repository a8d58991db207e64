#include "startup/frmmdi.h"

#include "startup/run.h"
#include "startup/status.h"

namespace pgbp {

/// Companies chose on another screen of the suite, which left its answer here.
bool ReportsUnderIndAS(const Run& run)
{
    constexpr int kFirstYear = 2023;
    if (run.Year() < kFirstYear || !IsCompany(run.Glstatus))
        return false;
    const Value answer =
        run.company.Scalar("select add1 from {misc_items} where code = ? and [Type] = 'FRMCHK'", run.Glcode);
    return answer.Text() == "Yes";
}

frmmdi::frmmdi(Run& itsRun) : Screen(itsRun, "frmmdi", itsRun.title) {}

void frmmdi::Activate()
{
    if (wasActive_)
        return;
    wasActive_ = true;
    run.FormCheckDone = ReportsUnderIndAS(run);
    NameClient();
    run.screens.Show(screens::frmbusiness);
}

void frmmdi::Close() { run.screens.End(); }

void frmmdi::NameClient()
{
    const Recordset client = run.company.Query("select comp_name from {assessee1} where code = ?", run.Code());
    if (client.Empty())
        return;
    run.clientName = client.First()["comp_name"].Text();
    caption = run.title + " - " + run.clientName + " - " + run.Glyear;
}

} // namespace pgbp
