#include "trial_balance/proposal.h"

#include "trial_balance/account_rules.h"
#include "trial_balance/words.h"

#include <algorithm>
#include <initializer_list>

namespace pgbp::trial {
namespace {

using Words = std::vector<std::string>;

/// Likeness below which words and line are strangers; and the one that a rule's own words for a line must reach.
constexpr double kNear = 0.75;
constexpr double kRuleHits = 0.75;
constexpr double kWhole = 1;

/// What explains a caption stands in brackets; a short one there is another name.
std::string WithoutExplanations(std::string caption)
{
    constexpr std::size_t kShort = 8;
    for (auto open = caption.find('('); open != std::string::npos; open = caption.find('(', open + 1)) {
        const auto end = std::min(caption.find(')', open), caption.size() - 1);
        if (end - open > kShort)
            caption.erase(open, end - open + 1);
    }
    return caption;
}

/// The words that tell a line from the others.
Words LineWords(std::string_view text)
{
    Words words = PlainWords(WithoutExplanations(std::string(text)));
    std::erase_if(words, [](const std::string& word) { return word == "expense" || word == "than" || word == "etc"; });
    return words;
}

bool IsGeneric(const Words& own)
{
    return std::ranges::all_of(own, [](const std::string& word) { return word == "other"; });
}

Side SideOfBalance(double balance) { return balance < 0 ? Side::Credit : Side::Debit; }

bool Fits(const AccountRule& rule, const Words& words, Side side)
{
    if (rule.side != Side::None && rule.side != side)
        return false;
    return std::ranges::any_of(PartsOf(rule.words, '|'), [&](std::string_view wanted) {
        return std::ranges::all_of(PartsOf(wanted, ' '), [&](std::string_view word) { return HasWord(words, word); });
    });
}

const AccountRule* RuleFor(std::span<const AccountRule> rules, const Words& words, Side side, Statement statement)
{
    for (const AccountRule& rule : rules)
        if ((statement == Statement::Unknown || rule.statement == statement) && Fits(rule, words, side))
            return &rule;
    return nullptr;
}

} // namespace

Proposer::Proposer(Statement statement, std::span<const FormLine> lines) : statement_(statement)
{
    for (const FormLine& line : lines) {
        Known known{.slno = line.slno,
                    .side = line.side,
                    .own = LineWords(line.caption),
                    .above = {},
                    .depth = line.headings.size()};
        for (const std::string& heading : line.headings)
            for (std::string& word : LineWords(heading))
                if (!HasWord(known.own, word) && !HasWord(known.above, word))
                    known.above.push_back(std::move(word));
        if (IsGeneric(known.own) && !line.headings.empty()) // "To others" says only under what it stands
            for (const std::string& word : LineWords(line.headings.front()))
                if (!HasWord(known.own, word))
                    known.own.push_back(word);
        lines_.push_back(std::move(known));
    }
}

/// The mean of how much of the words the line has, and how much of the line the words are. Words of the headings above
/// are welcome and not missed.
double Proposer::Likeness(const Words& words, const Known& line)
{
    double found = 0;
    double foundOwn = 0;
    for (const std::string& word : words) {
        const bool isOwn = HasWord(line.own, word);
        foundOwn += isOwn ? 1 : 0;
        found += isOwn || HasWord(line.above, word) ? 1 : 0;
    }
    if (foundOwn == 0)
        return 0;
    const double ofWords = found / static_cast<double>(words.size());
    const double ofLine = foundOwn / static_cast<double>(line.own.size());
    return 2 * ofWords * ofLine / (ofWords + ofLine);
}

/// Of lines that are alike the one that stands under fewer headings; none where those are as many.
std::optional<int> Proposer::Best(const Words& words, Side side, double atLeast) const
{
    const Known* best = nullptr;
    double most = 0;
    bool isAlone = false;
    for (const Known& line : lines_) {
        if (line.side != side)
            continue;
        const double likeness = Likeness(words, line);
        if (likeness < atLeast || likeness < most)
            continue;
        if (likeness > most || line.depth < best->depth) {
            isAlone = true;
            best = &line;
            most = likeness;
        } else if (line.depth == best->depth && (line.own != best->own || line.above != best->above)) {
            isAlone = false; // of the empty lines of one heading the first is meant
        }
    }
    return best && isAlone ? std::optional(best->slno) : std::nullopt;
}

Proposal Proposer::For(const Account& account) const
{
    const Side side = SideOfBalance(account.balance);
    const Words words = PlainWords(account.name);
    const Words groupWords = PlainWords(account.group);
    const AccountRule* ofGroup = RuleFor(GroupRules(), groupWords, side, Statement::Unknown);
    const AccountRule* rule =
        ofGroup && !ofGroup->line.empty()
            ? ofGroup
            : RuleFor(AccountRules(), words, side, ofGroup ? ofGroup->statement : Statement::Unknown);
    rule = rule ? rule : ofGroup;
    Proposal proposal{.statement = rule ? rule->statement : Statement::Unknown};
    if (proposal.statement != Statement::Unknown && proposal.statement != statement_)
        return proposal;
    const bool isDirect = HasWord(groupWords, "direct");
    for (const std::string_view line : PartsOf(rule ? rule->line : "", '|')) {
        Words wanted = LineWords(line);
        if (isDirect) {
            wanted.emplace_back("direct");
            proposal.slno = Best(wanted, side, kWhole);
            wanted.pop_back();
        }
        if (!proposal.slno)
            proposal.slno = Best(wanted, side, kRuleHits);
        if (proposal.slno)
            return proposal;
    }
    if (!rule || rule == ofGroup)
        proposal.slno = Best(LineWords(account.name), side, kNear);
    return proposal;
}

bool MinusIsDebit(const TrialBalance& trialBalance)
{
    int votes = 0;
    for (const Account& account : trialBalance.accounts) {
        const Words words = PlainWords(account.name + ' ' + account.group);
        const auto tells = [&](Side side, std::initializer_list<std::string_view> any) {
            if (std::ranges::any_of(any, [&](std::string_view word) { return HasWord(words, word); }))
                votes += SideOfBalance(account.balance) == side ? -1 : 1;
        };
        if (account.balance == 0)
            continue;
        tells(Side::Debit, {"purchase", "salary", "expense", "debtor", "cash", "wage", "asset", "charge"});
        tells(Side::Credit, {"sale", "creditor", "capital", "income", "liability", "payable"});
    }
    return votes > 0;
}

void TurnSides(TrialBalance& trialBalance)
{
    for (Account& account : trialBalance.accounts) {
        account.balance = 0 - account.balance;
        account.opening = 0 - account.opening;
    }
}

} // namespace pgbp::trial
