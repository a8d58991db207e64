#include "store/odbc_engine.h"

#include "store/statement.h"
#include "store/utf16.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <unordered_map>

namespace pgbp {
namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

constexpr SQLULEN kLoginTimeoutSeconds = 5;
constexpr SQLULEN kLongText = 4000; ///< characters from which on a driver wants a text bound as long

SQLWCHAR* Units(std::u16string& text) { return reinterpret_cast<SQLWCHAR*>(text.data()); }
SQLINTEGER Length(const std::u16string& text) { return static_cast<SQLINTEGER>(text.size()); }

/// The driver's words about the last call on the handle.
std::string Diagnostics(SQLSMALLINT type, SQLHANDLE handle)
{
    std::string words;
    std::array<SQLWCHAR, 6> state{};
    std::u16string message(SQL_MAX_MESSAGE_LENGTH, u'\0');
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    for (SQLSMALLINT record = 1;
         SQL_SUCCEEDED(SQLGetDiagRecW(type, handle, record, state.data(), &native, Units(message),
                                      static_cast<SQLSMALLINT>(message.size()), &length));
         ++record) {
        const auto shown = std::min<std::size_t>(length, message.size());
        words += (words.empty() ? "" : " ") + ToUtf8(std::u16string_view(message).substr(0, shown));
    }
    return words.empty() ? "The database driver gives no reason." : words;
}

class Handle {
  public:
    Handle(SQLSMALLINT type, SQLHANDLE parent) : type_(type)
    {
        if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &handle_)))
            throw StoreError("The database driver manager gives no handle.");
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { SQLFreeHandle(type_, handle_); }

    SQLHANDLE get() const { return handle_; }

    void Check(SQLRETURN result) const
    {
        if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA)
            throw StoreError(Diagnostics(type_, handle_));
    }

  private:
    SQLSMALLINT type_;
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

struct Environment : Handle {
    Environment() : Handle(SQL_HANDLE_ENV, SQL_NULL_HANDLE)
    {
        Check(SQLSetEnvAttr(get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0));
    }
};

struct Session : Handle {
    Session(const Environment& environment, const std::string& connectionString)
        : Handle(SQL_HANDLE_DBC, environment.get())
    {
        SetAttribute(SQL_ATTR_LOGIN_TIMEOUT, kLoginTimeoutSeconds);
        std::u16string text = ToUtf16(connectionString);
        Check(SQLDriverConnectW(get(), nullptr, Units(text), static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr,
                                SQL_DRIVER_NOPROMPT));
    }
    ~Session() { SQLDisconnect(get()); }

    void SetAttribute(SQLINTEGER attribute, SQLULEN value)
    {
        Check(SQLSetConnectAttrW(get(), attribute, reinterpret_cast<SQLPOINTER>(value), SQL_IS_UINTEGER));
    }
};

/// One value with the room that the driver reads it from.
class Parameter {
  public:
    void Bind(const Handle& statement, SQLUSMALLINT at, const Value& value)
    {
        if (const auto* number = std::get_if<double>(&value.Held()))
            BindNumber(statement, at, *number);
        else if (const auto* text = std::get_if<std::string>(&value.Held()))
            BindText(statement, at, *text);
        else if (const auto* date = std::get_if<DateTime>(&value.Held()))
            BindDate(statement, at, *date);
        else
            BindNull(statement, at);
    }

  private:
    void BindNumber(const Handle& statement, SQLUSMALLINT at, double number)
    {
        number_ = number;
        Bind(statement, at, SQL_C_DOUBLE, SQL_DOUBLE, 15, &number_, sizeof number_);
    }

    void BindText(const Handle& statement, SQLUSMALLINT at, std::string_view text)
    {
        text_ = ToUtf16(WithoutTrailingBlanks(text));
        const SQLULEN width = std::max<SQLULEN>(1, text_.size());
        Bind(statement, at, SQL_C_WCHAR, width > kLongText ? SQL_WLONGVARCHAR : SQL_WVARCHAR, width, Units(text_),
             static_cast<SQLLEN>(text_.size() * sizeof(SQLWCHAR)));
    }

    void BindDate(const Handle& statement, SQLUSMALLINT at, const DateTime& date)
    {
        stamp_ = {static_cast<SQLSMALLINT>(date.year),
                  static_cast<SQLUSMALLINT>(date.month),
                  static_cast<SQLUSMALLINT>(date.day),
                  static_cast<SQLUSMALLINT>(date.hour),
                  static_cast<SQLUSMALLINT>(date.minute),
                  static_cast<SQLUSMALLINT>(date.second),
                  0};
        Bind(statement, at, SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, 19, &stamp_, sizeof stamp_);
    }

    void BindNull(const Handle& statement, SQLUSMALLINT at)
    {
        Bind(statement, at, SQL_C_WCHAR, SQL_WVARCHAR, 1, nullptr, SQL_NULL_DATA);
    }

    void Bind(const Handle& statement, SQLUSMALLINT at, SQLSMALLINT cType, SQLSMALLINT sqlType, SQLULEN width,
              SQLPOINTER room, SQLLEN length)
    {
        length_ = length;
        statement.Check(
            SQLBindParameter(statement.get(), at, SQL_PARAM_INPUT, cType, sqlType, width, 0, room, 0, &length_));
    }

    double number_ = 0;
    std::u16string text_;
    SQL_TIMESTAMP_STRUCT stamp_{};
    SQLLEN length_ = 0;
};

enum class CellKind { Number, Date, Text };

CellKind KindOfType(SQLSMALLINT type)
{
    switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return CellKind::Number;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
        return CellKind::Date;
    default:
        return CellKind::Text;
    }
}

/// A statement prepared once.
class Prepared : public Handle {
  public:
    Prepared(const Session& session, const std::string& sql) : Handle(SQL_HANDLE_STMT, session.get())
    {
        std::u16string text = ToUtf16(sql);
        Check(SQLPrepareW(get(), Units(text), Length(text)));
    }

    void Execute(std::span<const Value> values)
    {
        SQLSMALLINT wanted = 0;
        Check(SQLNumParams(get(), &wanted));
        if (static_cast<std::size_t>(wanted) != values.size())
            throw StoreError("The statement takes another number of values.");
        std::vector<Parameter> parameters(values.size());
        for (std::size_t i = 0; i < values.size(); ++i)
            parameters[i].Bind(*this, static_cast<SQLUSMALLINT>(i + 1), values[i]);
        Check(SQLExecute(get()));
    }

    long RowsChanged() const
    {
        SQLLEN rows = 0;
        Check(SQLRowCount(get(), &rows));
        return static_cast<long>(std::max<SQLLEN>(rows, 0));
    }

    Recordset Rows() const
    {
        auto columns = std::make_shared<std::vector<std::string>>();
        const std::vector<CellKind> kinds = Describe(*columns);
        std::vector<Value> cells;
        SQLRETURN result;
        while ((result = SQLFetch(get())) != SQL_NO_DATA) {
            Check(result);
            for (std::size_t i = 0; i < kinds.size(); ++i)
                cells.push_back(Cell(static_cast<SQLUSMALLINT>(i + 1), kinds[i]));
        }
        return {std::move(columns), std::move(cells)};
    }

    void Close() const
    {
        SQLFreeStmt(get(), SQL_CLOSE);
        SQLFreeStmt(get(), SQL_RESET_PARAMS);
    }

  private:
    std::vector<CellKind> Describe(std::vector<std::string>& names) const
    {
        SQLSMALLINT count = 0;
        Check(SQLNumResultCols(get(), &count));
        std::vector<CellKind> kinds;
        for (SQLUSMALLINT at = 1; at <= count; ++at) {
            std::u16string name(256, u'\0');
            SQLSMALLINT length = 0, type = 0;
            Check(SQLDescribeColW(get(), at, Units(name), static_cast<SQLSMALLINT>(name.size()), &length, &type,
                                  nullptr, nullptr, nullptr));
            names.push_back(ToUtf8(std::u16string_view(name).substr(0, length)));
            kinds.push_back(KindOfType(type));
        }
        return kinds;
    }

    Value Cell(SQLUSMALLINT at, CellKind kind) const
    {
        switch (kind) {
        case CellKind::Number:
            return Number(at);
        case CellKind::Date:
            return Date(at);
        case CellKind::Text:
            return Text(at);
        }
        return {};
    }

    Value Number(SQLUSMALLINT at) const
    {
        double number = 0;
        SQLLEN length = 0;
        Check(SQLGetData(get(), at, SQL_C_DOUBLE, &number, sizeof number, &length));
        return length == SQL_NULL_DATA ? Value() : Value(number);
    }

    Value Date(SQLUSMALLINT at) const
    {
        SQL_TIMESTAMP_STRUCT stamp{};
        SQLLEN length = 0;
        Check(SQLGetData(get(), at, SQL_C_TYPE_TIMESTAMP, &stamp, sizeof stamp, &length));
        if (length == SQL_NULL_DATA)
            return {};
        return DateTime{stamp.year, stamp.month, stamp.day, stamp.hour, stamp.minute, stamp.second};
    }

    /// A long text comes in pieces, each ended by a zero that is not part of it.
    Value Text(SQLUSMALLINT at) const
    {
        std::u16string text;
        std::array<char16_t, 1024> piece;
        SQLLEN length = 0;
        SQLRETURN result;
        while ((result = SQLGetData(get(), at, SQL_C_WCHAR, piece.data(), sizeof piece, &length)) != SQL_NO_DATA) {
            Check(result);
            if (length == SQL_NULL_DATA)
                return {};
            const bool whole = length != SQL_NO_TOTAL && length < static_cast<SQLLEN>(sizeof piece);
            text.append(piece.data(), whole ? length / sizeof(char16_t) : piece.size() - 1);
            if (result == SQL_SUCCESS)
                break;
        }
        return ToUtf8(text);
    }
};

class OdbcEngine : public Engine {
    template <typename Work>
    auto Run(const std::string& sql, std::span<const Value> values, Work work)
    {
        try {
            Prepared& statement = prepared_.try_emplace(sql, session_, sql).first->second;
            statement.Execute(values);
            auto result = work(statement);
            statement.Close();
            return result;
        } catch (const StoreError& error) {
            prepared_.erase(sql);
            throw StatementError(error.what(), sql, values);
        }
    }

  public:
    OdbcEngine(const std::string& connectionString, const Dialect& dialect)
        : session_(environment_, connectionString), dialect_(dialect)
    {
    }
    ~OdbcEngine() override { Rollback(); }

    Recordset Query(const std::string& sql, std::span<const Value> values) override
    {
        return Run(sql, values, [](const Prepared& statement) { return statement.Rows(); });
    }

    long Execute(const std::string& sql, std::span<const Value> values) override
    {
        return Run(sql, values, [](const Prepared& statement) { return statement.RowsChanged(); });
    }

    void Begin() override
    {
        if (inTransaction_)
            throw StoreError("A transaction is open already.");
        session_.SetAttribute(SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_OFF);
        inTransaction_ = true;
    }

    void Commit() override
    {
        session_.Check(SQLEndTran(SQL_HANDLE_DBC, session_.get(), SQL_COMMIT));
        inTransaction_ = false;
        session_.SetAttribute(SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_ON);
    }

    void Rollback() override
    {
        if (!inTransaction_)
            return;
        // What a lost server answers here does not matter: it rolls back by itself.
        SQLEndTran(SQL_HANDLE_DBC, session_.get(), SQL_ROLLBACK);
        SQLSetConnectAttrW(session_.get(), SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_ON),
                           SQL_IS_UINTEGER);
        inTransaction_ = false;
    }

    const Dialect& dialect() const override { return dialect_; }

  private:
    Environment environment_;
    Session session_;
    const Dialect& dialect_;
    bool inTransaction_ = false;
    std::unordered_map<std::string, Prepared> prepared_;
};

} // namespace

std::shared_ptr<Engine> OpenOdbcEngine(const std::string& connectionString, const Dialect& dialect)
{
    return std::make_shared<OdbcEngine>(connectionString, dialect);
}

} // namespace pgbp
