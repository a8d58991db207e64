#include "law/book_profit.h"

namespace pgbp {

double BookProfitBase(const BookProfitParts& parts)
{
    const double takenOut = parts.year >= 2023 ? parts.otherHeads + parts.exemptIncome : 0;
    return parts.netIncome + takenOut + parts.auditAdjustment - parts.remunerationOnScreen - parts.interestOnScreen +
           parts.interest + parts.remuneration + parts.interestDeducted + parts.remunerationDeducted - parts.interest;
}

} // namespace pgbp
