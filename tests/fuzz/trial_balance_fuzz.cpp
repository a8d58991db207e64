#include "trial_balance/accounts.h"
#include "trial_balance/proposal.h"
#include "workbook/workbook.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

/// Any bytes are refused with a message, or give accounts with names and figures, for each of which there is a
/// proposal.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace pgbp::trial;
    static const Proposer proposer(Statement::ProfitAndLoss,
                                   std::vector<FormLine>{{1, "Sale of goods", {}, Side::Credit},
                                                         {2, "Rents", {}, Side::Debit},
                                                         {3, "To others", {"Interest"}, Side::Debit}});
    try {
        TrialBalance list = AccountsOf(TablesOf({reinterpret_cast<const char*>(data), size}));
        if (list.bySigns && MinusIsDebit(list))
            TurnSides(list);
        for (const Account& account : list.accounts) {
            if (account.name.empty() || !std::isfinite(account.balance))
                std::abort();
            const Proposal proposal = proposer.For(account);
            if (proposal.slno && (account.balance < 0) != (proposal.slno == 1))
                std::abort();
        }
    } catch (const TrialBalanceError&) { // the file is refused
    } catch (const pgbp::xls::WorkbookError&) {
    }
    return 0;
}
