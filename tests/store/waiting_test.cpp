// Nothing waits for ever: a lock that another session holds and a server that does not answer end each call in time,
// with nothing half done, and the next try works.
#include "store/deadline_engine.h"
#include "store/engines_under_test.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <future>
#include <thread>

namespace pgbp {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// What the call fails with; it must fail, and soon.
std::string FailureWithin(std::chrono::milliseconds longest, const std::function<void()>& call)
{
    const auto start = Clock::now();
    std::string words = "nothing failed";
    try {
        call();
    } catch (const StoreError& error) {
        words = std::string(error.what()) + '|' + error.technical();
    }
    EXPECT_LT(Clock::now() - start, longest) << words;
    return words;
}

/// A session that keeps each call until it is let go.
struct SilentEngine : Engine {
    struct Other {
        std::promise<void> answer;
        std::shared_future<void> answered{answer.get_future()};
        std::atomic<bool> silent = false;
        std::atomic<int> opened = 0, closed = 0;
        std::string calls;
    };
    explicit SilentEngine(Other& end) : other(end) { ++other.opened; }
    ~SilentEngine() override { ++other.closed; }

    void Note(char call) const
    {
        if (other.silent)
            other.answered.wait();
        other.calls += call;
    }
    Recordset Query(const std::string&, std::span<const Value>) override { return Note('q'), Recordset(); }
    long Execute(const std::string&, std::span<const Value> values) override
    {
        Note('x');
        return static_cast<long>(values.size());
    }
    void Begin() override { Note('b'); }
    void Commit() override { Note('c'); }
    void Rollback() override { Note('r'); }
    const Dialect& dialect() const override { return kServerDialect; }
    void OwnTables(std::span<const std::string_view>) override {}

    Other& other;
};

TEST(Deadline, ASessionThatFallsSilentIsGivenUpAndTheNextTryOpensANewOne)
{
    SilentEngine::Other end;
    {
        const Connection connection(
            WithDeadline([&] { return std::make_shared<SilentEngine>(end); }, {.call = 100ms, .rollback = 50ms}), "");
        const auto failure = [&](const std::function<void()>& call) { return FailureWithin(10s, call); };
        EXPECT_EQ(connection.Execute("update {t} set a = ?, b = ?", 1, "two"), 2);
        {
            Transaction transaction({connection});
            connection.Execute("x");
            end.silent = true;
            const std::string late = failure([&] { connection.Execute("y"); });
            EXPECT_NE(late.find("does not answer"), std::string::npos) << late;
            EXPECT_NE(failure([&] { connection.Query("z"); }).find("is lost"), std::string::npos);
            EXPECT_NE(failure([&] { transaction.Commit(); }).find("is lost"), std::string::npos);
        }
        EXPECT_EQ(end.opened, 1) << "no new session within a transaction that has failed";
        end.silent = false;
        EXPECT_NE(FailureWithin(3s, [&] { connection.Query("q"); }).find("does not answer"), std::string::npos)
            << "one wait is enough for an action";
        connection.engine()->RenewPatience();
        {
            Transaction transaction({connection});
            connection.Execute("x");
            end.silent = true;
            const std::string late = failure([&] { transaction.Commit(); });
            EXPECT_NE(late.find("Look whether it is stored"), std::string::npos) << late;
        }
        connection.engine()->RenewPatience();
        EXPECT_EQ(end.opened, 2);
        EXPECT_EQ(end.calls, "xbxbx");
        end.answer.set_value();
        connection.Query("q");
        EXPECT_EQ(end.opened, 3);
    }
    for (int wait = 0; wait < 100 && end.closed < 3; ++wait)
        std::this_thread::sleep_for(20ms);
    EXPECT_EQ(end.closed, 3) << "a session that was given up is closed when its call comes back";
}

/// Stops the test server; it goes on with the end of this one.
class StoppedServer {
  public:
    StoppedServer()
    {
        const std::filesystem::path folder = std::getenv("PGBP_TEST_SERVER");
        std::string data;
        std::getline(std::ifstream(folder / "data"), data);
        std::ifstream(std::filesystem::path(data) / "pid") >> process_;
        EXPECT_EQ(kill(process_, SIGSTOP), 0);
        while (!StandsStill()) // a signal to many threads takes its time
            std::this_thread::sleep_for(1ms);
    }
    ~StoppedServer() { GoOn(); }
    void GoOn() const { kill(process_, SIGCONT); }

  private:
    /// Every thread of the server is in the state "T", which stands behind its name in brackets.
    bool StandsStill() const
    {
        const std::filesystem::path threads = "/proc/" + std::to_string(process_) + "/task";
        for (const auto& thread : std::filesystem::directory_iterator(threads)) {
            std::string stat;
            std::getline(std::ifstream(thread.path() / "stat"), stat);
            const auto name = stat.rfind(')');
            if (name != std::string::npos && stat.substr(name).substr(2, 1) != "T")
                return false;
        }
        return true;
    }

    pid_t process_ = 0;
};

class Waiting : public StoreContract {
  protected:
    void SetUp() override
    {
        StoreContract::SetUp();
        if (IsSkipped())
            return;
        company.Insert("business", {{"code", "A"}, {"SNO", 1}, {"name1", "as it was"}});
    }
    void Write(std::string_view name) const
    {
        company.Insert("business", {{"code", "A"}, {"SNO", 2}});
        company.Execute("update {business} set name1 = ? where sno = 1", name);
    }
    std::string Stored() const
    {
        return company.Scalar("select name1 from {business} where sno = 1").Text() + ' ' +
               company.Scalar("select count(*) from {business}").Text();
    }
};

TEST_P(Waiting, ForALockEndsAndLeavesNothing)
{
    const Connection other = OtherCompany();
    {
        Transaction theirs({other});
        other.Execute("update {business} set name1 = ? where sno = 1", "theirs");
        const std::string words = FailureWithin(20s, [&] {
            Transaction transaction({company, balance});
            Write("mine");
            transaction.Commit();
        });
        EXPECT_NE(words.find("another program is using the database server"), std::string::npos) << words;
    }
    company.engine()->RenewPatience();
    EXPECT_EQ(Stored(), "as it was 1");
    Write("mine");
    EXPECT_EQ(Stored(), "mine 2");
}

TEST_P(Waiting, ForAServerThatStopsWithinASaveEndsAndLeavesNothing)
{
    const auto stopped = [&] {
        Transaction transaction({company, balance});
        Write("lost");
        const StoppedServer server;
        const auto start = Clock::now();
        EXPECT_NE(FailureWithin(20s, [&] { Write("after"); }).find("does not answer"), std::string::npos);
        EXPECT_GT(Clock::now() - start, 4s) << "a slow server is not a stopped one";
        return FailureWithin(3s, [&] { transaction.Commit(); });
    };
    const auto start = Clock::now();
    EXPECT_NE(stopped().find("is lost"), std::string::npos);
    EXPECT_LT(Clock::now() - start, 25s) << "with the rollback of the other database";
    company.engine()->RenewPatience();
    EXPECT_EQ(Stored(), "as it was 1");
    Write("again");
    EXPECT_EQ(Stored(), "again 2");
}

TEST_P(Waiting, ForAServerThatIsStillStoppedEndsEachTime)
{
    const StoppedServer server;
    for (int tries = 0; tries < 2; ++tries) { // the second one has no session any more
        EXPECT_NE(FailureWithin(20s, [&] { company.Query("select * from {business}"); }), "nothing failed");
        company.engine()->RenewPatience();
    }
    EXPECT_NE(FailureWithin(20s, [] { OpenServerConnection(*TestServer(), "Qel_VornCompany"); }), "nothing failed");
    server.GoOn();
    EXPECT_EQ(Stored(), "as it was 1");
}

INSTANTIATE_TEST_SUITE_P(Server, Waiting, testing::Values(EngineKind::Server));

} // namespace
} // namespace pgbp
