#pragma once

#include <filesystem>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace pgbp {

/// Whether the practice is linked with the accounts product.
inline constexpr const char* kLinkOfBooks =
    "select linking from main.misc_items where trim([Type]) collate nocase = 'OVPATH'";

/// The floor of a screen's reads: the engine's own prepared statements, bound to one code, stepped to their end with
/// every field fetched, and nothing else. The files are attached as the module attaches them; a plain "begin" has only
/// those take part in the commit that were written to. Journal, flushing, indexes and locks are the module's.
class BareStatements {
  public:
    BareStatements(const std::filesystem::path& practice, std::string code) : code_(std::move(code))
    {
        Check(sqlite3_open_v2((practice / "server/company.mdb").c_str(), &database_,
                              SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr));
        for (const char* name : {"balance", "tax"})
            Run("attach '" + (practice / "server" / (std::string(name) + ".mdb")).string() + "' as " + name);
        Run("attach '" + (practice / "client/data/qeltemp.mdb").string() + "' as qeltemp");
        Run("pragma temp_store = memory");
    }
    ~BareStatements()
    {
        for (const Prepared& each : statements_) {
            sqlite3_finalize(each.statement);
            sqlite3_finalize(each.into);
        }
        sqlite3_close(database_);
    }
    BareStatements(const BareStatements&) = delete;

    /// A statement with at most one "?", which is the code; it runs that many times, one after the other.
    void Prepare(const std::string& sql, int times = 1) { statements_.push_back({Made(sql), times}); }

    /// From here on the statements are those of another assessee-year.
    void BindCode(const std::string& code)
    {
        code_ = code;
        for (const Prepared& each : statements_)
            if (sqlite3_bind_parameter_count(each.statement) > 0)
                sqlite3_bind_text(each.statement, 1, code_.c_str(), -1, SQLITE_STATIC);
    }

    /// A select whose rows an insert takes over, each field bound: the two tables may lie in different stores.
    void PrepareCopy(const std::string& select, const std::string& insert)
    {
        statements_.push_back({Made(select), 1, Made(insert)});
    }

    /// Runs all statements; gives the number of fields read.
    long ReadAll()
    {
        long fields = 0;
        for (const Prepared& each : statements_)
            for (int i = 0; i < each.times; ++i)
                fields += Read(each.statement, each.into);
        return fields;
    }

    /// Makes a table of the working file as the module holds it: in memory and without an index.
    void HoldInMemory(const std::string& table)
    {
        sqlite3_stmt* made = nullptr;
        const std::string sql = "select replace(sql, 'CREATE TABLE', 'CREATE TEMP TABLE') from qeltemp.sqlite_master "
                                "where type = 'table' and name = '" +
                                table + '\'';
        Check(sqlite3_prepare_v2(database_, sql.c_str(), -1, &made, nullptr));
        if (sqlite3_step(made) != SQLITE_ROW)
            throw std::runtime_error("The working file has no table " + table);
        const std::string text = reinterpret_cast<const char*>(sqlite3_column_text(made, 0));
        sqlite3_finalize(made);
        Run(text);
    }

    void Run(const std::string& sql) { Check(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr)); }

  private:
    struct Prepared {
        sqlite3_stmt* statement;
        int times;
        sqlite3_stmt* into = nullptr;
    };

    sqlite3_stmt* Made(const std::string& sql) const
    {
        sqlite3_stmt* statement = nullptr;
        Check(sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr));
        if (sqlite3_bind_parameter_count(statement) > 0)
            sqlite3_bind_text(statement, 1, code_.c_str(), -1, SQLITE_STATIC);
        return statement;
    }

    long Read(sqlite3_stmt* statement, sqlite3_stmt* into) const
    {
        long fields = 0;
        int result = sqlite3_step(statement);
        for (; result == SQLITE_ROW; result = sqlite3_step(statement)) {
            for (int i = 0; i < sqlite3_column_count(statement); ++i)
                fields += Fetch(statement, i);
            if (into)
                Add(statement, into);
        }
        Finish(statement, result);
        return fields;
    }

    /// As it is stored: a number asked for its text would be written out.
    static bool Fetch(sqlite3_stmt* row, int field)
    {
        if (sqlite3_column_type(row, field) == SQLITE_TEXT)
            return sqlite3_column_text(row, field) != nullptr;
        return sqlite3_column_double(row, field) != 0;
    }

    void Add(sqlite3_stmt* row, sqlite3_stmt* into) const
    {
        for (int i = 0; i < sqlite3_column_count(row); ++i)
            if (sqlite3_column_type(row, i) == SQLITE_TEXT)
                sqlite3_bind_text(into, i + 1, reinterpret_cast<const char*>(sqlite3_column_text(row, i)),
                                  sqlite3_column_bytes(row, i), SQLITE_STATIC);
            else
                sqlite3_bind_value(into, i + 1, sqlite3_column_value(row, i));
        Finish(into, sqlite3_step(into));
    }

    void Finish(sqlite3_stmt* statement, int result) const
    {
        if (result != SQLITE_DONE)
            throw std::runtime_error(sqlite3_errmsg(database_));
        sqlite3_reset(statement);
    }

    void Check(int result) const
    {
        if (result != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(database_));
    }

    std::string code_;
    sqlite3* database_ = nullptr;
    std::vector<Prepared> statements_;
};

/// The rows that one recompute of a firm's summary reads.
inline void PrepareRecompute(BareStatements& bare)
{
    for (const char* sql : {
             "select distinct amt2 from balance.qelgeneral where code = ? and Type = 'NEWPL' and amt2 is not null",
             "select sno from business where code = ?",
             "select code from business where code = ?",
             "select name3 from main.misc_items where code = ? and Type = 'Fast2018'",
             "select code from business where code = ? and Type = '5'",
             "select amount from tax.system where Type = 'LIC' and date <= '2023-03-31 00:00:00' order by date desc",
             "select * from tax.system where Type = '44AD' and [from] = 2017",
             "select Type, sum(net), sum(net44), sum(loss) from business where code = ? group by Type",
             "select sum(net) from business where code = ? and Type = '9'",
             "select Type, amt1, amt2, amt3, amt4 from business1 where code = ? and (Type = 'LIC' or Type = 'UTI' or "
             "Type = 'SEC' or Type = 'MF' or Type = 'ZADHOC') order by rowid",
             "select amt1, minor from business1 where code = ? and Type = 'LESSINTT' order by rowid",
             "select amt1, minor from business1 where code = ? and Type = 'LESSREMU' order by rowid",
             "select sum(loss) from business where code = ? and Type = '0'",
             "select amt3 from business1 where code = ? and Type = 'PARTINTT' and amt3 <> 0",
         })
        bare.Prepare(sql);
}

} // namespace pgbp
