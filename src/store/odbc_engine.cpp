#include "store/odbc_engine.h"

#include "services/text.h"
#include "store/odbc_statement.h"
#include "store/statement.h"
#include "store/utf16.h"

#include <chrono>
#include <optional>
#include <unordered_map>

namespace pgbp {
namespace {

constexpr SQLULEN kLoginTimeoutSeconds = 5;
constexpr std::chrono::milliseconds kWait{
    500}; ///< a refusal that took longer was waited for; a deadlock is told at once

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
                                SQL_DRIVER_NOPROMPT),
              Attempt::Open);
    }
    ~Session() { SQLDisconnect(get()); }

    std::string Product() const
    {
        std::u16string name(64, u'\0');
        SQLSMALLINT bytes = 0;
        Check(SQLGetInfoW(get(), SQL_DBMS_NAME, Units(name), static_cast<SQLSMALLINT>(name.size() * sizeof(SQLWCHAR)),
                          &bytes));
        return ToUtf8(std::u16string_view(name).substr(0, static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR)));
    }

    /// Asked after a call has failed.
    bool IsLost() const
    {
        SQLUINTEGER lost = SQL_CD_FALSE;
        return SQL_SUCCEEDED(SQLGetConnectAttrW(get(), SQL_ATTR_CONNECTION_DEAD, &lost, sizeof lost, nullptr)) &&
               lost == SQL_CD_TRUE;
    }

    void SetAttribute(SQLINTEGER attribute, SQLULEN value)
    {
        Check(SQLSetConnectAttrW(get(), attribute, reinterpret_cast<SQLPOINTER>(value), SQL_IS_UINTEGER));
    }
};

class OdbcEngine : public Engine {
    /// Tells the loss of the session apart from what else can fail.
    template <typename Work>
    auto Telling(Work work)
    {
        if (outOfPatience_)
            throw *outOfPatience_;
        const auto asked = std::chrono::steady_clock::now();
        try {
            return work();
        } catch (const EngineError& error) {
            if (session_.IsLost())
                throw SessionLost(error.what());
            if (error.cause() == Cause::Locked && std::chrono::steady_clock::now() - asked > kWait)
                outOfPatience_ = error;
            throw;
        }
    }

    template <typename Work>
    auto Run(const std::string& sql, std::span<const Value> values, Work work)
    {
        return Telling([&] {
            try {
                OdbcStatement& statement = prepared_.try_emplace(sql, session_.get(), sql).first->second;
                statement.Execute(values);
                auto result = work(statement);
                statement.Close();
                return result;
            } catch (const EngineError& error) {
                prepared_.erase(sql);
                throw EngineError(error.cause(), TechnicalText(error.what(), sql, values));
            }
        });
    }

  public:
    OdbcEngine(const std::string& connectionString, DialectOf dialectOf)
        : session_(environment_, connectionString), dialect_(dialectOf(session_.Product()))
    {
        if (!dialect_.sessionStart.empty())
            Execute(std::string(dialect_.sessionStart), {});
    }
    ~OdbcEngine() override { Rollback(); }

    Recordset Query(const std::string& sql, std::span<const Value> values) override
    {
        return Run(sql, values, [](const OdbcStatement& statement) { return statement.Rows(); });
    }

    long Execute(const std::string& sql, std::span<const Value> values) override
    {
        return Run(sql, values, [](const OdbcStatement& statement) { return statement.RowsChanged(); });
    }

    void Begin() override
    {
        if (inTransaction_)
            throw EngineError(Cause::Unknown, "A transaction is open already.");
        Telling([&] { session_.SetAttribute(SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_OFF); });
        inTransaction_ = true;
    }

    void Commit() override
    {
        Telling([&] { session_.Check(SQLEndTran(SQL_HANDLE_DBC, session_.get(), SQL_COMMIT)); });
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

    void RenewPatience() override { outOfPatience_.reset(); }

  private:
    Environment environment_;
    Session session_;
    const Dialect& dialect_;
    bool inTransaction_ = false;
    std::optional<EngineError> outOfPatience_; ///< what the statement met that waited in vain
    std::unordered_map<std::string, OdbcStatement> prepared_;
};

} // namespace

std::string ConnectionPart(std::string_view value)
{
    return value.find_first_of(";={}") == std::string_view::npos ? std::string(value)
                                                                 : '{' + Replace(value, "}", "}}") + '}';
}

std::shared_ptr<Engine> OpenOdbcEngine(const std::string& connectionString, DialectOf dialectOf)
{
    return std::make_shared<OdbcEngine>(connectionString, dialectOf);
}

} // namespace pgbp
