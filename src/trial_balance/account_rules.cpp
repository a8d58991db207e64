#include "trial_balance/account_rules.h"

#include "trial_balance/words.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pgbp::trial {
namespace {

constexpr auto PL = Statement::ProfitAndLoss;
constexpr auto BS = Statement::BalanceSheet;
constexpr auto Dr = Side::Debit;
constexpr auto Cr = Side::Credit;
constexpr auto Both = Side::None;

constexpr std::string_view kAdvance = "advance recoverable cash kind value received|advance other capital advance";
constexpr std::string_view kRevenue = "balance revenue authority|current tax asset";
constexpr std::string_view kCreditor = "sundry creditor|trade payable current";
constexpr std::string_view kBlock = "gross block property plant|gross block";
constexpr std::string_view kCapital =
    "proprietor capital|partner member capital|issued subscribed paid up|issued subscribed fully paid up";

constexpr AccountRule kAccountRules[] = {
    // what is owed at the end of the year is no expense and no income, whatever for
    {BS, Dr, "prepaid|accrued|receivable|recoverable", kAdvance},
    {BS, Cr, "outstanding|unpaid|payable|accrued", kCreditor},
    {BS, Both, "outstanding|payable|receivable|prepaid|unpaid", ""},
    {BS, Dr, "sundry debtor|debtor", "sundry debtor|other sundry debtor|unsecured considered good current"},
    {BS, Cr, "sundry creditor|creditor", kCreditor},
    {BS, Both, "debtor|creditor", ""},
    {BS, Both, "profit loss", "profit loss accumulated balance|profit loss"},

    // stock and trade
    {PL, Dr, "opening stock raw|opening raw", "opening stock raw material|opening stock finished good"},
    {PL, Dr, "opening stock progress|opening wip", "opening stock work progress|opening stock finished good"},
    {PL, Dr, "opening stock", "opening stock finished good|opening stock"},
    {BS, Dr, "closing stock raw", "raw material inventory"},
    {BS, Dr, "closing stock", "finished good traded good|stock trade respect good acquired trading|finished good"},
    {PL, Cr, "closing stock", "closing stock finished stock|closing stock finished good|closing stock"},
    {PL, Both, "sale return|return inward|purchase return|return outward|good return", ""},
    // interest before what it is paid on
    {PL, Dr, "interest partner|interest capital", "interest paid india resident partner|interest other|interest"},
    {PL, Dr, "interest", "interest other|interest paid india resident other|interest"},
    {PL, Cr, "interest", "interest income|interest"},

    // taxes that go through the books, deposits and advances, before what they are for
    {PL, Dr, "late fee|penalty|gst expense|tds expense", "other"},
    {PL, Dr, "provision tax|current tax", "provision current tax"},
    {PL, Dr, "deferred tax", "provision deferred tax"},
    {BS, Cr, "provision tax|provision income", "provision income tax|current tax liability"},
    {BS, Dr, "income tax|advance tax|tds|tcs|refund|gst|cgst|sgst|igst|utgst|vat|cenvat", kRevenue},
    {BS, Cr, "tds|tcs|gst|cgst|sgst|igst|utgst|vat|service tax|sale tax", kCreditor},
    {BS, Dr, "fixed deposit|fdr|fd", "balance bank|balance bank nature cash cash equivalent"},
    {BS, Dr, "deposit", "deposit loan advance corporate other|security deposit current"},
    {BS, Dr, "advance", kAdvance},
    {BS, Cr, "advance|deposit", kCreditor},

    // what is sold and bought
    {PL, Cr, "scrap", "other income"},
    {PL, Cr, "service|job work|labour receipt|consultancy|professional|fee",
     "sale service|sale gross receipt business profession"},
    {PL, Cr, "profit sale asset|profit sale fixed|profit sale car|profit sale vehicle|profit sale machinery",
     "profit sale fixed asset"},
    {PL, Cr, "profit sale investment|profit sale share|profit mutual", "profit sale other investment"},
    {PL, Dr, "loss sale", "other"},
    {PL, Dr, "sale promotion|business promotion", "sale promotion including publicity"},
    {PL, Cr, "sale", "sale good|sale product good|sale gross receipt business profession"},
    {PL, Dr, "purchase", "purchase"},

    // people
    {PL, Dr, "salary partner|remuneration partner", "salary remuneration partner firm|salary wage"},
    {PL, Dr, "direct wage|factory wage", "direct wage|salary wage"},
    {PL, Dr, "medical reimbursement|reimbursement medical", "reimbursement medical"},
    {PL, Dr, "leave encashment", "leave encashment"},
    {PL, Dr, "leave travel|lta|ltc", "leave travel benefit"},
    {PL, Dr, "provident fund|pf|epf", "contribution recognised provident fund"},
    {PL, Dr, "superannuation", "contribution approved superannuation fund"},
    {PL, Dr, "gratuity", "contribution recognised gratuity fund"},
    {PL, Dr, "esi|esic", "contribution other fund"},
    {PL, Dr, "staff welfare|welfare|tea|refreshment", "workmen staff welfare"},
    {PL, Dr, "bonus", "bonus"},
    {PL, Dr, "salary|wage|stipend", "salary wage"},
    {PL, Dr, "labour|job work", "other direct|salary wage"},

    // insurance
    {PL, Dr, "keyman", "keyman insurance"},
    {PL, Dr, "mediclaim|medical insurance|health insurance", "medical insurance"},
    {PL, Dr, "life insurance|lic", "life insurance"},
    {PL, Dr, "factory insurance", "factory insurance|other insurance including factory office car good"},
    {PL, Cr, "insurance", "other income"},
    {PL, Dr, "insurance", "other insurance including factory office car good|other insurance"},

    // rates, and running the business
    {PL, Dr, "custom duty", "custom duty"},
    {PL, Dr, "property tax|municipal tax|house tax|professional tax|stamp duty|road tax|licence|rate tax|stt",
     "other rate tax duty cess stt ctt|other rate tax duty cess"},
    {PL, Dr, "carriage inward|freight inward|cartage inward|loading", "carriage inward|freight"},
    {PL, Dr, "freight|carriage|cartage|transportation|delivery", "freight outward|freight"},
    {PL, Dr, "power|fuel", "power fuel"},
    {PL, Dr, "store consumption|spare|consumable", "consumption store spare part"},
    {PL, Dr, "factory rent", "factory rent rate|rent"},
    {PL, Both, "rent", "rent"},
    {PL, Dr, "repair machinery|maintenance machinery|repair plant", "repair machinery"},
    {PL, Dr, "repair building|maintenance building|repair shop|repair office", "repair building"},
    {PL, Dr, "repair vehicle|vehicle expense|vehicle running|car expense|petrol|diesel|conveyance|taxi", "conveyance"},
    {PL, Dr, "repair|maintenance", "other"},
    {PL, Dr, "entertainment", "entertainment"},
    {PL, Dr, "hospitality", "hospitality"},
    {PL, Dr, "conference|seminar", "conference"},
    {PL, Dr, "advertisement|marketing|publicity", "advertisement"},
    {PL, Dr, "brokerage|commission", "commission other|commission"},
    {PL, Cr, "brokerage|commission", "commission"},
    {PL, Cr, "dividend", "dividend income|dividend"},
    {PL, Dr, "royalty", "royalty other"},
    {PL, Dr, "audit", "audit fee"},
    {PL, Dr, "professional|consultancy|legal|technical fee|accounting",
     "professional consultancy fee technical service other|other"},
    {PL, Dr, "hotel|lodging|boarding", "hotel boarding lodging"},
    {PL, Dr, "foreign travel", "foreign travel|travel including foreign travel"},
    {PL, Dr, "travel", "travel other foreign travel|travel including foreign travel"},
    {PL, Dr, "telephone|mobile expense|mobile bill|mobile charge", "telephone"},
    {PL, Dr, "guest house", "guest house"},
    {PL, Dr, "club", "club"},
    {PL, Dr, "festival|diwali|pooja|puja", "festival celebration"},
    {PL, Dr, "scholarship", "scholarship"},
    {PL, Dr, "gift", "gift"},
    {PL, Dr, "donation|charity", "donation"},
    {PL, Cr, "exchange", "gain loss foreign exchange fluctuation|profit currency fluctuation"},
    {PL, Cr, "agricultural|agriculture", "agricultural income|agriculture income"},

    // debts, provisions and depreciation
    {PL, Dr, "provision bad debt|provision doubtful", "provision bad doubtful debt"},
    {PL, Dr, "bad debt", ""}, // above one lakh the form asks whose, each in a place of its own
    {PL, Dr, "provision", "other provision"},
    {BS, Cr, "provision", "other provision"},
    {BS, Cr, "depreciation", "depreciation fixed asset|depreciation property plant"},
    {PL, Dr, "depreciation|amortisation", "depreciation amortisation|depreciation"},

    // what the form has no line for, and things that are bought rather than spent
    {PL, Dr, "expense|charge|fee|hire|running|written off", "other"},
    {BS, Dr,
     "furniture|fixture|machinery|plant|vehicle|car|scooter|truck|computer|laptop|printer|building|land|equipment|"
     "conditioner|mobile|premise|godown|shop|goodwill|tool",
     kBlock},
    {PL, Dr,
     "printing|stationery|postage|courier|office|software|website|miscellaneous|general|subscription|membership|"
     "newspaper|book|security|cleaning|housekeeping|water|packing|discount|round|registration|sample|testing|"
     "exhibition|training|recruitment|pantry|gardening",
     "other"},
    {PL, Cr, "discount|round|miscellaneous|incentive|cashback|written back|subsidy|rebate|drawback|income",
     "other income"},

    // what the balance sheet holds
    {BS, Dr, "cash", "cash hand"},
    {BS, Dr, "bank", "balance bank|balance bank nature cash cash equivalent"},
    {BS, Cr, "capital", kCapital},
    {BS, Both, "capital|drawing", ""},
    {BS, Cr, "overdraft|bank|term loan|cash credit", "bank rupee loan secured loan|bank rupee loan term loan"},
    {BS, Cr, "loan", "other unsecured loan|other unsecured loan short term|other loan borrowing"},
    {BS, Dr, "loan", kAdvance},
    {BS, Cr, "revaluation reserve", "revaluation reserve"},
    {BS, Cr, "general reserve|reserve|surplus", "general reserve|other reserve"},
    {BS, Dr, "preliminary", "miscellaneous expenditure written off adjusted"},
    {BS, Both, "suspense|investment|share|debenture|mutual|stock", ""},
};

constexpr AccountRule kGroupRules[] = {
    {BS, Dr, "debtor|receivable", "sundry debtor|other sundry debtor|unsecured considered good current"},
    {BS, Cr, "creditor|payable", kCreditor},
    {BS, Dr, "duty tax", kRevenue},
    {BS, Cr, "duty tax", kCreditor},
    {BS, Cr, "provision", ""},
    {BS, Both, "debtor|receivable|creditor|payable|provision", ""},
    {PL, Cr, "sale", "sale good|sale product good|sale gross receipt business profession"},
    {PL, Dr, "purchase", "purchase"},
    {PL, Both, "sale|purchase|expense|income|revenue|expenditure|receipt", ""},
    {BS, Dr, "fixed deposit|fdr|fd", "balance bank|balance bank nature cash cash equivalent"},
    {BS, Dr, "deposit", "deposit loan advance corporate other|security deposit current"},
    {BS, Dr, "cash hand|cash", "cash hand"},
    {BS, Cr, "unsecured loan", "other unsecured loan|other unsecured loan short term|other loan borrowing"},
    {BS, Cr, "secured loan|bank|overdraft", "bank rupee loan secured loan|bank rupee loan term loan"},
    {BS, Dr, "bank", "balance bank|balance bank nature cash cash equivalent"},
    {BS, Dr, "fixed asset", kBlock},
    {BS, Cr, "capital", kCapital},
    {BS, Dr, "loan advance|loan", kAdvance},
    {BS, Both,
     "capital|reserve|loan|asset|liability|investment|stock|inventory|suspense|branch|drawing|advance|cash|bank|"
     "deposit|"
     "surplus|provision",
     ""},
};

using Word = std::pair<std::string_view, std::string_view>;

/// Other words for one thing; an empty one is a word that every account has.
constexpr std::array kPlain = std::to_array<Word>({
    {"a", ""},
    {"ac", ""},
    {"account", ""},
    {"accommodation", "lodging"},
    {"advt", "advertisement"},
    {"advertising", "advertisement"},
    {"amortization", "amortisation"},
    {"and", ""},
    {"any", ""},
    {"at", ""},
    {"auditor", "audit"},
    {"broadband", "telephone"},
    {"by", ""},
    {"c", ""},
    {"cab", "taxi"},
    {"comm", "commission"},
    {"consultant", "consultancy"},
    {"consulting", "consultancy"},
    {"depn", "depreciation"},
    {"earned", "income"},
    {"electric", "power"},
    {"electricity", "power"},
    {"employee", "staff"},
    {"exp", "expense"},
    {"expences", "expense"},
    {"for", ""},
    {"from", ""},
    {"if", ""},
    {"in", ""},
    {"internet", "telephone"},
    {"intt", "interest"},
    {"int", "interest"},
    {"labor", "labour"},
    {"license", "licence"},
    {"machine", "machinery"},
    {"misc", "miscellaneous"},
    {"od", "overdraft"},
    {"of", ""},
    {"on", ""},
    {"or", ""},
    {"paid", ""},
    {"phone", "telephone"},
    {"prof", "professional"},
    {"rem", "remuneration"},
    {"remun", "remuneration"},
    {"repairing", "repair"},
    {"rounding", "round"},
    {"s", ""},
    {"selling", "sale"},
    {"stationary", "stationery"},
    {"the", ""},
    {"to", ""},
    {"tour", "travel"},
    {"transport", "transportation"},
    {"traveling", "travel"},
    {"travelling", "travel"},
    {"with", ""},
    {"workshop", "seminar"},
});

/// One of several things as the thing itself.
std::string Singular(std::string word)
{
    if (word.size() > 4 && word.ends_with("ies"))
        return word.replace(word.size() - 3, 3, "y");
    if (word.size() > 3 && word.ends_with('s') && !word.ends_with("ss") && !word.ends_with("us"))
        word.pop_back();
    return word;
}

std::string Plain(const std::string& word)
{
    const auto find = [](std::string_view wanted) { return std::ranges::find(kPlain, wanted, &Word::first); };
    auto found = find(word);
    if (found != kPlain.end())
        return std::string(found->second);
    std::string singular = Singular(word);
    found = find(singular);
    return found == kPlain.end() ? singular : std::string(found->second);
}

} // namespace

std::span<const AccountRule> AccountRules() { return kAccountRules; }
std::span<const AccountRule> GroupRules() { return kGroupRules; }

std::vector<std::string> PlainWords(std::string_view text)
{
    std::vector<std::string> words;
    for (const std::string& word : WordsOf(text))
        if (std::string plain = Plain(word); !plain.empty() && !HasWord(words, plain))
            words.push_back(std::move(plain));
    return words;
}

std::vector<std::string_view> PartsOf(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (std::size_t from = 0, end = 0; from < text.size(); from = end + 1) {
        end = std::min(text.find(separator, from), text.size());
        parts.push_back(text.substr(from, end - from));
    }
    return parts;
}

} // namespace pgbp::trial
