#include "load/practice.h"

#include "services/ini_file.h"
#include "startup/settings.h"
#include "store/files.h"
#include "store/schema.h"
#include "suite/clients.h"
#include "suite/fill.h"
#include "support/empty_practice.h"
#include "support/test_server.h"

#include <fstream>
#include <ostream>

namespace pgbp {
namespace {

constexpr const char* kYear = "2023-24"; ///< the year in work of the firm, its third one
constexpr int kOthersForEach = 4;

struct Stores {
    Connection company;
    Connection balance;
};

Stores Open(const std::filesystem::path& folder)
{
    TestBoxes boxes;
    TestFiles files;
    TestProcesses processes;
    Run run({boxes, files, processes, folder});
    ReadSettings(run);
    std::string why;
    if (run.IsSqlStore) {
        if (!OpenServerConnections(run, why))
            throw std::runtime_error(why);
        return {run.company, run.balance};
    }
    const DataFile stored[] = {{folder / "server/company.mdb", {}}, {folder / "server/balance.mdb", {}}};
    const auto opened = OpenFiles(stored);
    return {opened[0], opened[1]};
}

/// Many rows a statement: there are a hundred thousand.
void CopyRows(const Table& table, const Connection& from, const Connection& to)
{
    constexpr std::size_t kRows = 100;
    const Recordset rows = from.Query("select * from {" + std::string(table.name) + '}');
    if (rows.Empty())
        return;
    std::string columns;
    std::string marks;
    for (std::size_t i = 0; i < rows.First().Size(); ++i) {
        columns.append(i == 0 ? "[" : ",[").append(rows.First().Name(i)).append("]");
        marks += i == 0 ? "?" : ",?";
    }
    std::string text;
    std::vector<Value> values;
    const auto add = [&] {
        to.ExecuteBound("insert into {" + std::string(table.name) + "} (" + columns + ") values " + text, values);
        text.clear();
        values.clear();
    };
    Transaction transaction({to});
    for (const Row row : rows) {
        text += (text.empty() ? "(" : ",(") + marks + ')';
        for (std::size_t i = 0; i < row.Size(); ++i)
            values.push_back(row.At(i));
        if (values.size() == kRows * row.Size())
            add();
    }
    if (!values.empty())
        add();
    transaction.Commit();
}

void Print(std::ostream& out, const char* what, const Recordset& rows)
{
    for (const Row row : rows) {
        out << what;
        for (std::size_t i = 0; i < row.Size(); ++i)
            out << '\t' << row.At(i).Text();
        out << '\n';
    }
}

} // namespace

std::vector<std::string> MakePractice(const std::filesystem::path& folder, int firms)
{
    CreatePractice(folder, PGBP_DATA);
    const Practice practice(folder);
    FillPractice(practice, PGBP_DATA, kOthersForEach * firms);
    const Client firm = ReadClient(std::filesystem::path(PGBP_DATA) / "clients/1003-firm.txt");
    std::vector<std::string> codes;
    Transaction transaction({practice.company, practice.balance});
    LineNumbers lines(practice.company);
    double number = practice.company.NextNumber("assessee", "company");
    for (int serial = 1; serial <= firms; ++serial, number += firm.width) {
        WriteClient(practice, firm, {number, serial}, lines);
        codes.push_back(CodeOf(number, kYear));
    }
    transaction.Commit();
    return codes;
}

void PutOnServer(const std::filesystem::path& folder, const ServerLogin& login, Indexes indexes)
{
    const Stores files = Open(folder);
    for (const auto& [name, database, from] : {std::tuple("company", "Qel_VornCompany", files.company),
                                               std::tuple("balance", "Qel_VornBalance", files.balance)}) {
        const Connection to = OpenFreshDatabase(login, database, name);
        for (const Table& table : Tables()) {
            if (table.file != name)
                continue;
            if (indexes == Indexes::None) {
                to.Execute("drop table {" + std::string(table.name) + '}');
                to.Execute(CreateTableText(table, to.dialect()));
            }
            CopyRows(table, from, to);
        }
    }
    std::ofstream(folder / "Settings.ini") << "[DBTYPE]\nDB=SQL\n";
    std::ofstream(folder / "VornServer.ini")
        << "[Server]\nServerNM=" << login.server << "\n[Login]\nLogName=" << login.user << "\nLogPwd=" << login.password
        << '\n';
}

void PrintRows(const std::filesystem::path& folder, std::ostream& out)
{
    const Stores stores = Open(folder);
    Print(out, "line", stores.company.Query("select code, name1, SNO, NET from {business} where [Type] = '1'"));
    Print(out, "other", stores.company.Query("select code, SNO, amt1 from {misc_items} where [Type] = 'BusOth'"));
    Print(out, "items",
          stores.company.Query("select code, SNO, count(*) from {business1} where SNO is not null group by code, SNO"));
    Print(out, "head", stores.balance.Query("select code, amt1 from {qelgeneral} where [Type] = 'BUSI'"));
}

} // namespace pgbp
