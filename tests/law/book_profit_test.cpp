#include "law/book_profit.h"
#include "law/remuneration_limit.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

// By hand for 2023: 500000 + 7000 + 5000 + 1000 - 60000 - 240000 + 260000 + 60000 + 90000 = 623000; the interest that
// is being entered adds nothing, since it is deducted before the remuneration.
TEST(BookProfit, CountsWhatIsEnteredInPlaceOfWhatStands)
{
    const BookProfitParts parts{.year = 2023,
                                .netIncome = 500000,
                                .otherHeads = 7000,
                                .exemptIncome = 5000,
                                .auditAdjustment = 1000,
                                .interestOnScreen = 60000,
                                .remunerationOnScreen = 240000,
                                .interest = 75000,
                                .remuneration = 260000,
                                .interestDeducted = 60000,
                                .remunerationDeducted = 90000};
    EXPECT_EQ(BookProfitBase(parts), 623000);
    BookProfitParts before = parts;
    before.year = 2022;
    EXPECT_EQ(BookProfitBase(before), 611000);
    EXPECT_EQ(RemunerationLimit(BookProfitBase(parts), 2023, "06"), 463800); // 270000 + 323000 at 60 %
}

} // namespace
} // namespace pgbp
