#include "store/engines_under_test.h"

#include "services/ini_file.h"
#include "store/files.h"
#include "store/schema.h"

#include <cstdlib>
#include <random>

namespace pgbp {
namespace {

Connection OpenFreshDatabase(const ServerLogin& login, std::string_view database, std::string_view file)
{
    const Connection connection = OpenServerConnection(login, database);
    for (const Table& table : Tables()) {
        if (table.file != file)
            continue;
        connection.Execute("drop table if exists {" + std::string(table.name) + "}");
        connection.Execute(CreateTableText(table, connection.dialect()));
    }
    return connection;
}

} // namespace

TemporaryFolder::TemporaryFolder()
    : path_(std::filesystem::temp_directory_path() / ("store-" + std::to_string(std::random_device{}())))
{
    std::filesystem::create_directories(path_);
}

TemporaryFolder::~TemporaryFolder() { std::filesystem::remove_all(path_); }

std::vector<Connection> OpenNewFiles(const TemporaryFolder& folder, std::initializer_list<std::string_view> names)
{
    std::vector<DataFile> files;
    for (const std::string_view name : names) {
        files.push_back({.path = folder / (std::string(name) + ".mdb"), .dsn = {}});
        CreateEmbeddedFile(files.back().path, name);
    }
    return OpenFiles(files);
}

void PrintTo(EngineKind kind, std::ostream* out) { *out << (kind == EngineKind::Embedded ? "embedded" : "server"); }

std::optional<ServerLogin> TestServer()
{
    const char* folder = std::getenv("PGBP_TEST_SERVER");
    const std::string address = folder ? FirstLine(std::filesystem::path(folder) / "address") : "";
    if (address.empty())
        return std::nullopt;
    setenv("ODBCSYSINI", folder, 1);
    return ServerLogin{address, " preparer ", R"("Pa;ss{wo}rd=1}")", false};
}

void StoreContract::SetUp()
{
    if (GetParam() == EngineKind::Embedded) {
        auto connections = OpenNewFiles(folder_, {"company", "balance"});
        company = connections[0];
        balance = connections[1];
    } else if (const auto login = TestServer()) {
        company = OpenFreshDatabase(*login, "Qel_VornCompany", "company");
        balance = OpenFreshDatabase(*login, "Qel_VornBalance", "balance");
    } else {
        GTEST_SKIP() << "No database server: install mariadb-server and odbc-mariadb, and run through ctest.";
    }
}

Connection StoreContract::OtherCompany() const
{
    return GetParam() == EngineKind::Embedded ? OpenFile({.path = folder_ / "company.mdb", .dsn = {}})
                                              : OpenServerConnection(*TestServer(), "Qel_VornCompany");
}

} // namespace pgbp
