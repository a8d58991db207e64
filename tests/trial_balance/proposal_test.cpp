#include "trial_balance/account_rules.h"
#include "trial_balance/words.h"

#include <gtest/gtest.h>

namespace pgbp::trial {
namespace {

TEST(AccountRules, AreWrittenInPlainWords)
{
    for (const auto rules : {AccountRules(), GroupRules()})
        for (const AccountRule& rule : rules)
            for (const std::string_view alternative : PartsOf(rule.words, '|'))
                for (const std::string_view word : PartsOf(alternative, ' '))
                    EXPECT_EQ(PlainWords(word), std::vector<std::string>{std::string(word)}) << alternative;
}

TEST(AccountWords, AreOneForOneThing)
{
    EXPECT_EQ(PlainWords("Salaries & Wages A/c"), (std::vector<std::string>{"salary", "wage"}));
    EXPECT_EQ(PlainWords("Adv. Exp. - TRAVELLING (Director's)"),
              (std::vector<std::string>{"adv", "expense", "travel", "director"}));
    EXPECT_EQ(KeyOf("  Director's  fees "), KeyOf("DIRECTOR S FEES"))
        << "a stored statement has blanks for apostrophes";
    EXPECT_NE(KeyOf("Rent"), KeyOf("Rents"));
}

TEST(TrialBalanceSigns, AreTurnedWhereTheWordsSaySo)
{
    TrialBalance list{.accounts = {{.name = "Sales", .balance = 500},
                                   {.name = "Purchases", .balance = -300},
                                   {.name = "Cash", .balance = -200}}};
    EXPECT_TRUE(MinusIsDebit(list));
    TurnSides(list);
    EXPECT_FALSE(MinusIsDebit(list));
    EXPECT_EQ(list.accounts[0].balance, -500);
    EXPECT_FALSE(MinusIsDebit({.accounts = {{.name = "Mahesh", .balance = -5}}}))
        << "no word gives a side: a plus is a debit, as most programs write it";
}

} // namespace
} // namespace pgbp::trial
