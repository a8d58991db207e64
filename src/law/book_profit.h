#pragma once

namespace pgbp {

/// What the book profit of a firm's line of business is made of, in rupees.
struct BookProfitParts {
    int year = 0;                    ///< assessment year
    double netIncome = 0;            ///< of the line, after the partners' interest and remuneration were added back
    double otherHeads = 0;           ///< taken out of the profit as income of another head
    double exemptIncome = 0;         ///< taken out of the profit as exempt
    double auditAdjustment = 0;      ///< of the tax audit report, for the assessee
    double interestOnScreen = 0;     ///< as it stands in the computation
    double remunerationOnScreen = 0; ///< the same
    double interest = 0;             ///< of the partners as they are being entered
    double remuneration = 0;         ///< the same
    double interestDeducted = 0;     ///< deducted in the line
    double remunerationDeducted = 0; ///< the same
};

/// Book profit on which the remuneration of working partners is limited, rupees: Explanation 3 to section 40(b) of the
/// Income-tax Act, the profit before the remuneration of the partners and after their interest. From assessment year
/// 2023-24 income that was taken out of the profit counts.
double BookProfitBase(const BookProfitParts& parts);

} // namespace pgbp
