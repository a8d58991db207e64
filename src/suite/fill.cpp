#include "suite/fill.h"

#include "suite/clients.h"

#include <algorithm>
#include <span>

namespace pgbp {
namespace {

/// Of sixteen clients of a practice; most have little to tell.
constexpr std::string_view kSixteenClients[] = {
    "1002-professional", "1006-transporter", "1002-professional", "1007-with-minor",
    "1002-professional", "1006-transporter", "1005-trust",        "1002-professional",
    "1006-transporter",  "1001-trader",      "1002-professional", "1006-transporter",
    "1002-professional", "1003-firm",        "1002-professional", "1006-transporter",
};

std::vector<Client> ReadSixteenClients(const std::filesystem::path& dataFolder)
{
    std::vector<Client> clients;
    for (const std::string_view name : kSixteenClients)
        clients.push_back(ReadClient(dataFolder / "clients" / (std::string(name) + ".txt")));
    return clients;
}

/// The client with no more than his first years.
Client WithFirstYears(Client client, std::size_t count)
{
    const TableText years = client.Years();
    const std::size_t inYears = years.IndexOf("year");
    const auto isLater = [&](const Value& year) {
        const auto later = std::span(years.rows).subspan(count);
        return std::ranges::any_of(later, [&](const auto& row) { return row[inYears].Text() == year.Text(); });
    };
    for (TableText& text : client.tables)
        if (text.name != "company.assessee")
            std::erase_if(text.rows, [&](const auto& row) { return isLater(row[text.IndexOf("year")]); });
    return client;
}

long RowsOf(const Client& client)
{
    constexpr long rowsOfAYear = 2; // for the one that names it
    long rows = 0;
    for (const TableText& text : client.tables)
        rows += static_cast<long>(text.rows.size()) * (text.name == "years" ? rowsOfAYear : 1);
    return rows;
}

} // namespace

long FillPractice(const Practice& practice, const std::filesystem::path& dataFolder, int assesseeYears)
{
    const std::vector<Client> clients = ReadSixteenClients(dataFolder);
    Transaction transaction({practice.company, practice.balance});
    LineNumbers lines(practice.company);
    double number = practice.company.NextNumber("assessee", "company");
    long rows = 0;
    const auto add = [&](const Client& client, int serial) {
        WriteClient(practice, client, {number, serial}, lines);
        number += client.width;
        rows += RowsOf(client);
    };
    for (int serial = 1, left = assesseeYears; left > 0; ++serial) {
        const Client& client = clients[static_cast<std::size_t>(serial - 1) % clients.size()];
        const int years = static_cast<int>(client.Years().rows.size());
        if (years <= left)
            add(client, serial);
        else
            add(WithFirstYears(client, static_cast<std::size_t>(left)), serial);
        left -= years;
    }
    transaction.Commit();
    return rows;
}

} // namespace pgbp
