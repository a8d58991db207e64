#include "entry/linked_client.h"

#include "services/ini_file.h"
#include "services/text.h"
#include "store/files.h"

namespace pgbp {
namespace {

constexpr const char* kBooks = "balancesheet.mdb";

/// Types of settings may have blanks around them.
std::string IsOfType(const Run& run, const char* type)
{
    return run.company.dialect().Trim("[Type]") + " = '" + type + '\'';
}

std::string FolderOfBooks(const Run& run)
{
    return Trim(run.company.Scalar("select linking from {misc_items} where " + IsOfType(run, "OVPATH")).Text());
}

/// The folder may be written with the slashes of another platform.
std::filesystem::path BooksIn(const std::string& folder)
{
    return std::filesystem::path(Replace(folder, "\\", "/")) / kBooks;
}

/// "2023-2024" for "2023-24".
std::string BothYearsInFull(const std::string& glyear)
{
    return glyear.size() < 7 ? glyear : glyear.substr(0, 5) + glyear.substr(0, 2) + glyear.substr(5, 2);
}

} // namespace

std::string LinkedClient::Status() const
{
    return books.Scalar("select c_status from {clientcomp} where c_no = ?", number).Text();
}

std::filesystem::path BooksFile(const Run& run) { return BooksIn(FolderOfBooks(run)); }

double LinkedNumber(const Run& run)
{
    return run.company.Scalar("select SNO from {misc_items} where code = ? and " + IsOfType(run, "OVLINK"), run.Code())
        .Number();
}

std::string LinkedCode(const Connection& books, double client, const std::string& glyear)
{
    for (const std::string& year : {BothYearsInFull(glyear), glyear})
        if (const Value code = books.Scalar(
                "select code from {clientasst} where actual = ? and c_no = ? and ass_yr = ?", false, client, year);
            !code.IsNull())
            return Trim(code.Text());
    return {};
}

std::optional<LinkedClient> FindLinkedClient(const Run& run)
{
    const std::string folder = FolderOfBooks(run);
    const std::filesystem::path file = BooksIn(folder);
    if (folder.empty() || !FileExists(file))
        return std::nullopt;
    const double number = LinkedNumber(run);
    if (number == 0)
        return std::nullopt;
    try {
        const Connection books = OpenFileToRead({.path = file, .dsn = {}});
        if (const std::string code = LinkedCode(books, number, run.Glyear); !code.empty())
            return LinkedClient{folder, number, code, books};
    } catch (const StoreError&) { // the accounts product is no part of this practice: its faults are not ours to tell
    }
    return std::nullopt;
}

} // namespace pgbp
