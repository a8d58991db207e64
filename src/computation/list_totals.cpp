#include "computation/list_totals.h"

#include "services/text.h"

namespace pgbp {

void ListTotals::Read(const Run& run)
{
    byType_.clear();
    for (const Row row :
         run.qeltemp.Query("select [Type], sum(amt1), sum(amt2), sum(amt3), sum(amt3 - amt2) from {temp1} where code = "
                           "? group by [Type]",
                           run.Code())) {
        Sums& sums = byType_[Upper(row.At(0).Text())];
        sums.amt1 += row.At(1).Number();
        sums.amt2 += row.At(2).Number();
        sums.amt3 += row.At(3).Number();
        sums.amt3LessAmt2 += row.At(4).Number();
    }
}

ListTotals::Sums ListTotals::Of(std::string_view type) const
{
    const auto found = byType_.find(Upper(type));
    return found == byType_.end() ? Sums() : found->second;
}

bool ListTotals::Has(std::string_view type) const { return byType_.contains(Upper(type)); }

} // namespace pgbp
