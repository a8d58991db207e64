#include "entry/linked_client.h"

#include "services/text.h"
#include "store/files.h"

namespace pgbp {
namespace {

constexpr const char* kBooks = "balancesheet.mdb";

Value ClientNumber(const Run& run)
{
    return run.company.Scalar("select SNO from {misc_items} where code = ? and " +
                                  run.company.dialect().Trim("[Type]") + " = 'OVLINK'",
                              run.Glcode);
}

} // namespace

std::filesystem::path BooksFile(const Run& run)
{
    const std::string type = run.company.dialect().Trim("[Type]");
    const Value folder = run.company.Scalar("select linking from {misc_items} where " + type + " = 'OVPATH'");
    return std::filesystem::path(Trim(folder.Text())) / kBooks;
}

std::string BothYearsInFull(std::string_view glyear)
{
    return std::string(glyear.substr(0, 5)).append(glyear.substr(0, 2)).append(glyear.substr(5, 2));
}

std::optional<LinkedClient> FindLinkedClient(const Run& run, const std::string& year)
{
    const std::filesystem::path file = BooksFile(run);
    const Value client = ClientNumber(run);
    if (file == kBooks || client.IsNull())
        return std::nullopt;
    try {
        Connection books = OpenFile({.path = file, .dsn = {}});
        const Value code = books.Scalar("select code from {clientasst} where actual = ? and c_no = ? and ass_yr = ?",
                                        false, client, year);
        if (!code.IsNull())
            return LinkedClient{std::move(books), Trim(code.Text())};
    } catch (const std::runtime_error&) { // the accounts product is no part of this practice: its faults are not ours
                                          // to tell
    }
    return std::nullopt;
}

} // namespace pgbp
