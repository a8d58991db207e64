#include "store/deadline_engine.h"

#include <condition_variable>
#include <future>
#include <mutex>
#include <thread>
#include <type_traits>
#include <utility>

namespace pgbp {
namespace {

constexpr const char* kNoAnswer = "The database server does not answer in time.";

/// No driver can be relied on to end a call whose other end went silent. So the session lives on a thread of its own,
/// which is left alone with a call that takes too long, and closes the session when that call comes back.
class SessionThread {
    struct Shared {
        std::mutex mutex;
        std::condition_variable changed;
        std::function<void()> work;
        bool ended = false;
        std::shared_ptr<Engine> engine; ///< touched by the thread alone
    };

  public:
    SessionThread() { std::thread(Live, shared_).detach(); }
    SessionThread(const SessionThread&) = delete;
    SessionThread& operator=(const SessionThread&) = delete;
    ~SessionThread()
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->ended = true;
        shared_->changed.notify_one();
    }

    /// Runs `work` on the thread. Nothing when it is not done after `patience`: then the thread must be let go, and
    /// whatever `work` uses must be its own.
    template <typename Work, typename Result = std::invoke_result_t<Work, std::shared_ptr<Engine>&>>
    std::optional<Result> Run(Work work, std::chrono::milliseconds patience)
    {
        auto task = std::make_shared<std::packaged_task<Result()>>(
            [work = std::move(work), shared = shared_.get()] { return work(shared->engine); });
        auto result = task->get_future();
        {
            const std::lock_guard lock(shared_->mutex);
            shared_->work = [task] { (*task)(); };
            shared_->changed.notify_one();
        }
        if (result.wait_for(patience) != std::future_status::ready)
            return std::nullopt;
        return result.get();
    }

  private:
    static void Live(const std::shared_ptr<Shared>& shared)
    {
        std::unique_lock lock(shared->mutex);
        while (true) {
            shared->changed.wait(lock, [&] { return shared->ended || shared->work; });
            if (!shared->work)
                break;
            const auto work = std::exchange(shared->work, nullptr);
            lock.unlock();
            work();
            lock.lock();
        }
        lock.unlock();
        shared->engine.reset();
    }

    std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
};

class DeadlineEngine : public Engine {
  public:
    DeadlineEngine(std::function<std::shared_ptr<Engine>()> open, Patience patience)
        : open_(std::move(open)), patience_(patience)
    {
        Open();
    }
    ~DeadlineEngine() override
    {
        if (thread_)
            thread_->Run([](std::shared_ptr<Engine>& engine) { return engine.reset(), true; }, patience_.rollback);
    }

    Recordset Query(const std::string& sql, std::span<const Value> values) override
    {
        return Call([sql, own = Copy(values)](Engine& engine) { return engine.Query(sql, own); });
    }

    long Execute(const std::string& sql, std::span<const Value> values) override
    {
        return Call([sql, own = Copy(values)](Engine& engine) { return engine.Execute(sql, own); });
    }

    void Begin() override
    {
        Call([](Engine& engine) { return engine.Begin(), true; });
        inTransaction_ = true;
    }

    void Commit() override
    {
        const bool reached = thread_ != nullptr;
        try {
            Call([](Engine& engine) { return engine.Commit(), true; });
        } catch (const SessionLost& lost) {
            if (!reached)
                throw;
            throw SessionLost(lost.what(), Cause::Uncertain);
        }
        inTransaction_ = false;
    }

    /// A session that was given up rolls back when it is closed.
    void Rollback() override
    {
        if (thread_ && inTransaction_ &&
            !thread_->Run([](auto& engine) { return engine->Rollback(), true; }, patience_.rollback))
            thread_.reset();
        inTransaction_ = false;
    }

    const Dialect& dialect() const override { return *dialect_; }

    /// The tables of a server belong to all its sessions.
    void OwnTables(std::span<const std::string_view>) override {}

    void RenewPatience() override
    {
        isSilent_ = false;
        if (thread_)
            thread_->Run([](auto& engine) { return engine->RenewPatience(), true; }, patience_.rollback);
    }

  private:
    static std::vector<Value> Copy(std::span<const Value> values) { return {values.begin(), values.end()}; }

    void Open()
    {
        auto thread = std::make_unique<SessionThread>();
        const auto dialect = thread->Run(
            [open = open_](std::shared_ptr<Engine>& engine) {
                engine = open();
                return &engine->dialect();
            },
            patience_.call);
        if (!dialect)
            Complain();
        dialect_ = *dialect;
        thread_ = std::move(thread);
    }

    template <typename Work>
    std::invoke_result_t<Work, Engine&> Call(Work work)
    {
        if (!thread_ && inTransaction_)
            throw SessionLost("The connection to the database server is lost.");
        if (isSilent_)
            Complain();
        if (!thread_)
            Open();
        try {
            if (auto result = thread_->Run([work](auto& engine) { return work(*engine); }, patience_.call))
                return std::move(*result);
        } catch (const SessionLost&) {
            thread_.reset();
            throw;
        }
        thread_.reset();
        Complain();
    }

    [[noreturn]] void Complain()
    {
        isSilent_ = true;
        throw SessionLost(kNoAnswer);
    }

    const std::function<std::shared_ptr<Engine>()> open_;
    const Patience patience_;
    const Dialect* dialect_ = nullptr;
    std::unique_ptr<SessionThread> thread_; ///< none while no session is open
    bool inTransaction_ = false;
    bool isSilent_ = false; ///< a call waited in vain since patience was renewed
};

} // namespace

std::shared_ptr<Engine> WithDeadline(std::function<std::shared_ptr<Engine>()> open, Patience patience)
{
    return std::make_shared<DeadlineEngine>(std::move(open), patience);
}

} // namespace pgbp
