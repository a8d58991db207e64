#include "store/engines_under_test.h"

#include "store/files.h"
#include "support/new_data_files.h"

namespace pgbp {

void PrintTo(EngineKind kind, std::ostream* out) { *out << (kind == EngineKind::Embedded ? "embedded" : "server"); }

void StoreContract::SetUp()
{
    if (GetParam() == EngineKind::Embedded) {
        auto connections = OpenNewDataFiles(folder_, {"company", "balance"});
        company = connections[0];
        balance = connections[1];
    } else if (const auto login = TestServer()) {
        company = OpenFreshDatabase(*login, "Qel_VornCompany", "company");
        balance = OpenFreshDatabase(*login, "Qel_VornBalance", "balance");
    } else {
        GTEST_SKIP() << kNoServer;
    }
}

Connection StoreContract::OtherCompany() const
{
    return GetParam() == EngineKind::Embedded ? OpenFile({.path = folder_.path() / "company.mdb", .dsn = {}})
                                              : OpenServerConnection(*TestServer(), "Qel_VornCompany");
}

} // namespace pgbp
