#pragma once

#include "store/connection.h"
#include "store/server.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <ostream>

namespace pgbp {

/// A folder of its own that goes with its owner.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

  private:
    std::filesystem::path path_;
};

/// Makes the folder's new files, "company" as company.mdb, and opens them in one session.
std::vector<Connection> OpenNewFiles(const TemporaryFolder& folder, std::initializer_list<std::string_view> names);

enum class EngineKind { Embedded, Server };
void PrintTo(EngineKind kind, std::ostream* out);

/// The server that the test run has started, its driver made known to this process; nothing when there is none.
std::optional<ServerLogin> TestServer();

/// Fresh `company` and `balance` on the engine that the parameter names.
class StoreContract : public testing::TestWithParam<EngineKind> {
  protected:
    void SetUp() override;

    const Dialect& dialect() const { return company.dialect(); }

    /// `company` in another session, as another workstation opens it.
    Connection OtherCompany() const;

    Connection company, balance;

  private:
    TemporaryFolder folder_;
};

} // namespace pgbp
