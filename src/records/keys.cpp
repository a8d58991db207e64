#include "records/keys.h"

namespace pgbp {

Recordset QueryOfMinor(const Run& run, std::string sql, std::vector<Value> values, std::string_view behind)
{
    if (run.GLminor != 0) {
        sql += " and minor = ?";
        values.emplace_back(run.GLminor);
    }
    sql += behind;
    return run.company.QueryBound(sql, values);
}

Value MinorOfRun(const Run& run) { return run.GLminor != 0 ? Value(run.GLminor) : Value(); }

double NextSno(const Run& run, const Transaction&)
{
    double next = run.company.NextNumber("business", "SNO");
    const std::string lock = run.company.dialect().Lock("assessee1", "company");
    if (next == 1 && !lock.empty()) { // no line yet to lock: the clients stand for them, of whom there is one at least
        run.company.Execute(lock);
        next = run.company.NextNumber("business", "SNO");
    }
    return next == kUnsavedLine ? next + 1 : next;
}

} // namespace pgbp
