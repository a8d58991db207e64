#pragma once

#include "startup/run.h"

#include <memory>
#include <utility>

namespace pgbp {

/// When the store of a run refuses. Writes are counted, the begin and the commit of a transaction among them.
struct Refusal {
    int write = 0;            ///< the first write that is refused, from 1; 0 refuses none
    bool once = true;         ///< that one alone; else it and all that follows, reads too, until `write` is 0
    bool afterCommit = false; ///< a commit is carried out, and reported as failed
    int writes = 0;           ///< asked for so far

    bool HasBegun() const { return write != 0 && writes >= write; }
    bool RefusesWrite()
    {
        ++writes;
        return once ? writes == write : HasBegun();
    }
};

/// An engine that refuses statements as one does on a locked file or a full disk: nothing of the statement is done.
class FailingEngine : public Engine {
  public:
    FailingEngine(std::shared_ptr<Engine> engine, Refusal& refusal) : engine_(std::move(engine)), refusal_(refusal) {}

    Recordset Query(const std::string& sql, std::span<const Value> values) override
    {
        ThrowIf(!refusal_.once && refusal_.HasBegun());
        return engine_->Query(sql, values);
    }
    long Execute(const std::string& sql, std::span<const Value> values) override
    {
        ThrowIf(refusal_.RefusesWrite());
        return engine_->Execute(sql, values);
    }
    void Begin() override
    {
        ThrowIf(refusal_.RefusesWrite());
        engine_->Begin();
    }
    void LockForWriting(const std::string& tablePrefix) override { engine_->LockForWriting(tablePrefix); }
    void Commit() override
    {
        const bool refused = refusal_.RefusesWrite();
        if (!refused || refusal_.afterCommit)
            engine_->Commit();
        ThrowIf(refused);
    }
    void Rollback() override { engine_->Rollback(); }
    const Dialect& dialect() const override { return engine_->dialect(); }

  private:
    static void ThrowIf(bool refused)
    {
        if (refused)
            throw StoreError("refused");
    }

    std::shared_ptr<Engine> engine_;
    Refusal& refusal_;
};

/// Puts the refusing engine before the files, or the databases of a server, that a run writes to.
inline void LetFail(Run& run, Refusal& refusal)
{
    const auto failing = [&](const Connection& connection) {
        return std::make_shared<FailingEngine>(connection.engine(), refusal);
    };
    const auto practice = failing(run.company);
    if (run.balance.engine() == run.company.engine()) {
        run.balance = Connection(practice, "[balance].");
        run.tax = Connection(practice, "[tax].");
    } else {
        run.balance = Connection(failing(run.balance), "");
    }
    run.company = Connection(practice, "");
    run.qeltemp = Connection(failing(run.qeltemp), "");
}

} // namespace pgbp
