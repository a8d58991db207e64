#pragma once

#include <filesystem>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace pgbp {

/// The floor of a screen's reads: the engine's own prepared statements, bound to one code, stepped to their end with
/// every field fetched, and nothing else. The files are attached as the module attaches them; a plain "begin" has only
/// those take part in the commit that were written to.
class BareStatements {
  public:
    BareStatements(const std::filesystem::path& practice, std::string code) : code_(std::move(code))
    {
        Check(sqlite3_open_v2((practice / "server/company.mdb").c_str(), &database_, SQLITE_OPEN_READWRITE, nullptr));
        for (const char* name : {"balance", "tax"})
            Run("attach '" + (practice / "server" / (std::string(name) + ".mdb")).string() + "' as " + name);
        Run("attach '" + (practice / "client/data/qeltemp.mdb").string() + "' as qeltemp");
    }
    ~BareStatements()
    {
        for (const auto& [statement, times] : statements_)
            sqlite3_finalize(statement);
        sqlite3_close(database_);
    }
    BareStatements(const BareStatements&) = delete;

    /// A statement with at most one "?", which is the code; it runs that many times, one after the other.
    void Prepare(const std::string& sql, int times = 1)
    {
        sqlite3_stmt* statement = nullptr;
        Check(sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr));
        if (sqlite3_bind_parameter_count(statement) > 0)
            sqlite3_bind_text(statement, 1, code_.c_str(), -1, SQLITE_STATIC);
        statements_.emplace_back(statement, times);
    }

    /// Runs all statements; gives the number of fields read.
    long ReadAll()
    {
        long fields = 0;
        for (const auto& [statement, times] : statements_)
            for (int i = 0; i < times; ++i)
                fields += Read(statement);
        return fields;
    }

    void Run(const std::string& sql) { Check(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr)); }

  private:
    long Read(sqlite3_stmt* statement) const
    {
        long fields = 0;
        int result = sqlite3_step(statement);
        for (; result == SQLITE_ROW; result = sqlite3_step(statement))
            for (int i = 0; i < sqlite3_column_count(statement); ++i)
                fields += sqlite3_column_bytes(statement, i) >= 0;
        if (result != SQLITE_DONE)
            throw std::runtime_error(sqlite3_errmsg(database_));
        sqlite3_reset(statement);
        return fields;
    }

    void Check(int result) const
    {
        if (result != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(database_));
    }

    std::string code_;
    sqlite3* database_ = nullptr;
    std::vector<std::pair<sqlite3_stmt*, int>> statements_;
};

} // namespace pgbp
