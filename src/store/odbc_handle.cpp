#include "store/odbc_handle.h"

#include "store/causes.h"
#include "store/utf16.h"

#include <algorithm>
#include <array>

namespace pgbp {
namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

/// What the driver answers about the last call on the handle.
EngineError Diagnostics(SQLSMALLINT type, SQLHANDLE handle, Attempt attempt)
{
    std::string words;
    Cause cause = Cause::Unknown; // the first record that tells one
    std::array<SQLWCHAR, 6> state{};
    std::u16string message(SQL_MAX_MESSAGE_LENGTH, u'\0');
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    for (SQLSMALLINT record = 1;
         SQL_SUCCEEDED(SQLGetDiagRecW(type, handle, record, state.data(), &native, Units(message),
                                      static_cast<SQLSMALLINT>(message.size()), &length));
         ++record) {
        const auto shown = std::min<std::size_t>(length, message.size());
        const std::string code = ToUtf8({reinterpret_cast<const char16_t*>(state.data()), state.size() - 1});
        words += (words.empty() ? "" : " ") + ToUtf8(std::u16string_view(message).substr(0, shown)) + " (" + code +
                 ", " + std::to_string(native) + ")";
        if (cause == Cause::Unknown)
            cause = OdbcCause(code, native, attempt);
    }
    return EngineError(cause, words.empty() ? "The database driver gives no reason." : words);
}

} // namespace

SQLWCHAR* Units(std::u16string& text) { return reinterpret_cast<SQLWCHAR*>(text.data()); }

Handle::Handle(SQLSMALLINT type, SQLHANDLE parent) : type_(type)
{
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &handle_)))
        throw EngineError(Cause::Unknown, "The database driver manager gives no handle.");
}

void Handle::Check(SQLRETURN result, Attempt attempt) const
{
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA)
        throw Diagnostics(type_, handle_, attempt);
}

} // namespace pgbp
