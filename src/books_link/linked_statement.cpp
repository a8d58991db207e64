#include "books_link/linked_statement.h"

#include "books_link/book_amounts.h"
#include "services/amount_text.h"
#include "services/format.h"
#include "services/text.h"
#include "statements/no_books.h"
#include "statements/statement_rows.h"
#include "statements/template_store.h"
#include "statements/totals_rules.h"

namespace pgbp {
namespace {

constexpr StatementKind kKind = StatementKind::ProfitAndLoss;

/// The account of one line of business, line by line, as its screen shows it.
class LinkedStatement {
  public:
    LinkedStatement(const Run& run, double line)
        : form_(OpenStatementForm(run.Year(), static_cast<int>(run.GlITR), kKind)), kept_(run, kOfReturn, kKind),
          line_(line), rows_(LoadTemplate(run.tax, kTemplates, TemplateName(form_))),
          lines_(rows_, TotalsRules(OperationFor(form_), form_))
    {
        for (const auto& [slno, stored] : kept_.Read(line))
            if (const auto at = lines_.Find(slno))
                TakeStored(*at, stored);
    }

    void Take(const std::map<int, double>& amounts)
    {
        for (std::size_t at = 1; at <= lines_.Count(); ++at)
            if (!lines_.IsClosed(at) && IsLineOfBooks(lines_.Slno(at)))
                lines_.SetAmount(at, "");
        for (const auto& [slno, amount] : amounts) {
            const auto at = lines_.Find(slno);
            if (!at || !lines_.TakesNumber(*at))
                throw Fault("The account of the year has no line " + std::to_string(slno) +
                            ", which accounts of the books lead to.");
            lines_.SetAmount(*at, Rupees(amount));
            if (lines_.TakesDescription(*at))
                Describe(*at, slno == kOtherIncome ? "Other income" : "Other expenses");
        }
        const auto intraday = kept_.ReadIntraday(line_);
        lines_.Run(intraday ? intraday->profit : 0);
    }

    void Store(const Connection& balance) const
    {
        std::vector<std::vector<Field>> cells;
        for (std::size_t at = 1; at <= lines_.Count(); ++at)
            if (!Trim(lines_.At(at).text()).empty() && !IsNoBooksLine(lines_.Slno(at)))
                cells.push_back(CellOf(lines_, at, rows_[at - 1][kDescription], false));
        Transaction transaction({balance});
        kept_.Replace(line_, {.lines = cells, .details = kept_.ReadDetails(line_), .intraday = std::nullopt},
                      transaction);
        transaction.Commit();
    }

  private:
    void TakeStored(std::size_t at, const StoredLine& stored)
    {
        if (!lines_.IsClosed(at))
            lines_.SetAmount(at, FormatAmountIndian(stored.amount, kIndianGrouping));
        if (stored.isOwn)
            Describe(at, stored.description);
    }
    void Describe(std::size_t at, const std::string& text) { rows_[at - 1][kDescription] = text; }

    const StatementForm form_;
    const StatementRows kept_;
    const double line_;
    std::vector<StatementRow> rows_;
    StatementLines lines_;
};

} // namespace

void StoreLinkedStatement(const Run& run, double line, const std::map<int, double>& amounts)
{
    if (run.company.Query("select code from {business} where code = ? and sno = ?", run.Code(), line).Empty())
        throw Fault("There is no line of business " + Value(line).Text() + " of " + run.Code() + '.');
    if (amounts.empty())
        throw Fault("The books of the client hold no income and no expenditure.");
    LinkedStatement statement(run, line);
    statement.Take(amounts);
    statement.Store(run.balance);
}

void StoreLink(const Run& run, const Connection& books)
{
    const Value pan = run.company.Scalar("select pan from {assessee1} where code = ?", run.Code());
    const Value number = books.Scalar("select c_no from {clientcomp} where c_pan = ?", Trim(pan.Text()));
    if (Trim(pan.Text()).empty() || number.IsNull())
        throw Fault("The accounts product has no client with the PAN of " + run.Code() + '.');
    Transaction transaction({run.company});
    run.company.Delete("from {misc_items} where code = ? and " + run.company.dialect().Trim("[Type]") + " = 'OVLINK'",
                       run.Code());
    run.company.Insert("misc_items", {{"code", run.Code()}, {"Type", "OVLINK"}, {"SNO", number}});
    transaction.Commit();
}

} // namespace pgbp
