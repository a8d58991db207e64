#pragma once

#include "store/connection.h"
#include "support/temporary_folder.h"
#include "support/test_server.h"

#include <gtest/gtest.h>

#include <ostream>

namespace pgbp {

enum class EngineKind { Embedded, Server };
void PrintTo(EngineKind kind, std::ostream* out);

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
