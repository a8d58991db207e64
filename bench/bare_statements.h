#pragma once

#include <filesystem>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace pgbp {

/// The floor of a screen's reads: the engine's own prepared statements, bound to one code, stepped to their end with
/// every field fetched, and nothing else. The files are attached as the module attaches them.
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
        for (sqlite3_stmt* statement : statements_)
            sqlite3_finalize(statement);
        sqlite3_close(database_);
    }
    BareStatements(const BareStatements&) = delete;

    /// A statement with at most one "?", which is the code.
    void Prepare(const std::string& sql)
    {
        sqlite3_stmt* statement = nullptr;
        Check(sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr));
        if (sqlite3_bind_parameter_count(statement) > 0)
            sqlite3_bind_text(statement, 1, code_.c_str(), -1, SQLITE_STATIC);
        statements_.push_back(statement);
    }

    /// Runs all statements; gives the number of fields read.
    long ReadAll()
    {
        long fields = 0;
        for (sqlite3_stmt* statement : statements_) {
            while (sqlite3_step(statement) == SQLITE_ROW)
                for (int i = 0; i < sqlite3_column_count(statement); ++i)
                    fields += sqlite3_column_bytes(statement, i) >= 0;
            sqlite3_reset(statement);
        }
        return fields;
    }

    void Run(const std::string& sql) { Check(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr)); }

  private:
    void Check(int result) const
    {
        if (result != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(database_));
    }

    std::string code_;
    sqlite3* database_ = nullptr;
    std::vector<sqlite3_stmt*> statements_;
};

} // namespace pgbp
