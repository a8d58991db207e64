#include "store/odbc_statement.h"

#include "store/statement.h"
#include "store/utf16.h"

#include <algorithm>
#include <array>

namespace pgbp {
namespace {

constexpr SQLULEN kTimeoutSeconds = 5;
constexpr SQLULEN kLongText = 4000; ///< characters from which on a driver wants a text bound as long

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

Value ReadNumber(const Handle& statement, SQLUSMALLINT at)
{
    double number = 0;
    SQLLEN length = 0;
    statement.Check(SQLGetData(statement.get(), at, SQL_C_DOUBLE, &number, sizeof number, &length));
    return length == SQL_NULL_DATA ? Value() : Value(number);
}

Value ReadDate(const Handle& statement, SQLUSMALLINT at)
{
    SQL_TIMESTAMP_STRUCT stamp{};
    SQLLEN length = 0;
    statement.Check(SQLGetData(statement.get(), at, SQL_C_TYPE_TIMESTAMP, &stamp, sizeof stamp, &length));
    if (length == SQL_NULL_DATA)
        return {};
    return DateTime{stamp.year, stamp.month, stamp.day, stamp.hour, stamp.minute, stamp.second};
}

/// A long text comes in pieces, each ended by a zero that is not part of it.
Value ReadText(const Handle& statement, SQLUSMALLINT at)
{
    std::u16string text;
    std::array<char16_t, 1024> piece;
    SQLLEN length = 0;
    SQLRETURN result = SQL_SUCCESS_WITH_INFO;
    while (result == SQL_SUCCESS_WITH_INFO) {
        result = SQLGetData(statement.get(), at, SQL_C_WCHAR, piece.data(), sizeof piece, &length);
        statement.Check(result);
        if (length == SQL_NULL_DATA)
            return {};
        if (result == SQL_NO_DATA)
            break;
        const bool whole = length != SQL_NO_TOTAL && length < static_cast<SQLLEN>(sizeof piece);
        text.append(piece.data(), whole ? length / sizeof(char16_t) : piece.size() - 1);
    }
    return ToUtf8(text);
}

using Reader = Value (*)(const Handle& statement, SQLUSMALLINT at);

Reader ReaderOf(SQLSMALLINT type)
{
    constexpr SQLSMALLINT numbers[] = {SQL_BIT,  SQL_TINYINT, SQL_SMALLINT, SQL_INTEGER, SQL_BIGINT,
                                       SQL_REAL, SQL_FLOAT,   SQL_DOUBLE,   SQL_DECIMAL, SQL_NUMERIC};
    if (std::find(std::begin(numbers), std::end(numbers), type) != std::end(numbers))
        return ReadNumber;
    return type == SQL_TYPE_DATE || type == SQL_TYPE_TIMESTAMP ? ReadDate : ReadText;
}

/// The readers of a result's columns, whose names go to `names`.
std::vector<Reader> Describe(const Handle& statement, std::vector<std::string>& names)
{
    SQLSMALLINT count = 0;
    statement.Check(SQLNumResultCols(statement.get(), &count));
    std::vector<Reader> readers;
    for (SQLUSMALLINT at = 1; at <= count; ++at) {
        std::u16string name(256, u'\0');
        SQLSMALLINT length = 0, type = 0;
        statement.Check(SQLDescribeColW(statement.get(), at, Units(name), static_cast<SQLSMALLINT>(name.size()),
                                        &length, &type, nullptr, nullptr, nullptr));
        names.push_back(ToUtf8(std::u16string_view(name).substr(0, length)));
        readers.push_back(ReaderOf(type));
    }
    return readers;
}

} // namespace

OdbcStatement::OdbcStatement(SQLHANDLE session, const std::string& sql) : Handle(SQL_HANDLE_STMT, session)
{
    // Where a driver knows no such limit, the session's own ones hold.
    SQLSetStmtAttr(get(), SQL_ATTR_QUERY_TIMEOUT, reinterpret_cast<SQLPOINTER>(kTimeoutSeconds), 0);
    std::u16string text = ToUtf16(sql);
    Check(SQLPrepareW(get(), Units(text), static_cast<SQLINTEGER>(text.size())));
}

void OdbcStatement::Execute(std::span<const Value> values) const
{
    SQLSMALLINT wanted = 0;
    Check(SQLNumParams(get(), &wanted));
    if (static_cast<std::size_t>(wanted) != values.size())
        throw EngineError(Cause::Unknown, "The statement takes another number of values.");
    std::vector<Parameter> parameters(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        parameters[i].Bind(*this, static_cast<SQLUSMALLINT>(i + 1), values[i]);
    Check(SQLExecute(get()));
}

long OdbcStatement::RowsChanged() const
{
    SQLLEN rows = 0;
    Check(SQLRowCount(get(), &rows));
    return static_cast<long>(std::max<SQLLEN>(rows, 0));
}

Recordset OdbcStatement::Rows() const
{
    auto columns = std::make_shared<std::vector<std::string>>();
    const std::vector<Reader> readers = Describe(*this, *columns);
    std::vector<Value> cells;
    SQLRETURN result;
    while ((result = SQLFetch(get())) != SQL_NO_DATA) {
        Check(result);
        for (std::size_t i = 0; i < readers.size(); ++i)
            cells.push_back(readers[i](*this, static_cast<SQLUSMALLINT>(i + 1)));
    }
    return {std::move(columns), std::move(cells)};
}

void OdbcStatement::Close() const
{
    SQLFreeStmt(get(), SQL_CLOSE);
    SQLFreeStmt(get(), SQL_RESET_PARAMS);
}

} // namespace pgbp
