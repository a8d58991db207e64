#include "suite/clients.h"

#include "suite/pan.h"
#include "suite/row_writer.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace pgbp {
namespace {

constexpr double kNotSavedYet = 90000;
constexpr std::string_view kAssessee = "company.assessee";
constexpr std::string_view kYears = "years";

Value OfCopy(const Value& value, int serial)
{
    const auto* text = serial == 0 ? nullptr : std::get_if<std::string>(&value.Held());
    return text && IsPan(*text) ? Value(PanOfCopy(*text, serial)) : value;
}

const TableText& Named(const Client& client, std::string_view name)
{
    const auto found = std::ranges::find(client.tables, name, &TableText::name);
    if (found == client.tables.end())
        throw std::out_of_range("the rows of " + std::string(name) + " are missing");
    return *found;
}

double FirstNumber(const Client& client)
{
    const TableText& master = Named(client, kAssessee);
    return master.rows.at(0)[master.IndexOf("company")].Number();
}

double LastNumber(const Client& client)
{
    double last = 0;
    for (const TableText& text : client.tables)
        if (text.name == kAssessee)
            for (const auto& row : text.rows)
                last = std::max(last, row[text.IndexOf("company")].Number());
    return last;
}

/// Rows of a statement are tied to their line by `amt2`, all others by `sno`.
std::string_view LineColumn(const TableText& text) { return text.name == "balance.qelgeneral" ? "amt2" : "SNO"; }

/// Turns the rows of a client file into rows of the store.
class ClientWriter {
  public:
    ClientWriter(const Practice& practice, const Client& client, const ClientCopy& copy, LineNumbers& lines)
        : practice_(practice), client_(client), copy_(copy), lines_(lines)
    {
    }

    void Write()
    {
        for (const TableText& text : client_.tables)
            if (text.name == kAssessee)
                WriteAssessees(text);
            else if (text.name == kYears)
                WriteYears(text);
            else
                WriteRows(text);
    }

  private:
    const Connection& FileOf(const TableText& text) const
    {
        return text.name.starts_with("company.") ? practice_.company : practice_.balance;
    }

    std::string_view TableOf(const TableText& text) const
    {
        return std::string_view(text.name).substr(text.name.find('.') + 1);
    }

    Value Name(const Value& name) const
    {
        return copy_.serial == 0 ? name : Value(name.Text() + ' ' + std::to_string(copy_.serial));
    }

    void WriteAssessees(const TableText& text)
    {
        const std::size_t number = text.IndexOf("company");
        const std::size_t name = text.IndexOf("comp_name");
        const RowWriter writer(practice_.company, TableOf(text), text.columns);
        for (std::vector<Value> row : text.rows) {
            row[number] = copy_.number + row[number].Number() - client_.number;
            row[name] = Name(row[name]);
            for (Value& value : row)
                value = OfCopy(value, copy_.serial);
            writer.Add(row);
        }
    }

    void WriteYears(const TableText& years) const
    {
        const TableText& master = Named(client_, kAssessee);
        const Value name = Name(master.rows.front()[master.IndexOf("comp_name")]);
        const Value pan = OfCopy(master.rows.front()[master.IndexOf("pan")], copy_.serial);
        for (const auto& row : years.rows)
            AddAssesseeYear(practice_.company, copy_.number, name, pan, row[years.IndexOf("year")].Text(), true);
    }

    void WriteRows(const TableText& text)
    {
        std::vector<std::string> columns = text.columns;
        const std::size_t year = text.IndexOf("year");
        columns[year] = "code";
        const auto line = static_cast<std::size_t>(std::ranges::find(columns, "line") - columns.begin());
        if (line < columns.size())
            columns[line] = LineColumn(text);
        const RowWriter writer(FileOf(text), TableOf(text), columns);
        for (std::vector<Value> row : text.rows) {
            if (line < row.size())
                row[line] = LineNumber(row[year].Text(), row[line]);
            row[year] = CodeOf(copy_.number, row[year].Text());
            for (Value& value : row)
                value = OfCopy(value, copy_.serial);
            writer.Add(row);
        }
    }

    Value LineNumber(const std::string& year, const Value& line)
    {
        if (line.IsNull())
            return line;
        const auto [place, isNew] = numbers_.try_emplace({year, line.Number()}, 0.0);
        if (isNew)
            place->second = lines_.Next();
        return place->second;
    }

    const Practice& practice_;
    const Client& client_;
    const ClientCopy copy_;
    LineNumbers& lines_;
    std::map<std::pair<std::string, double>, double> numbers_; // by year and line
};

} // namespace

LineNumbers::LineNumbers(const Connection& company) : last_(company.NextNumber("business", "SNO") - 1) {}

double LineNumbers::Next()
{
    last_ += last_ + 1 == kNotSavedYet ? 2 : 1;
    return last_;
}

const TableText& Client::Years() const { return Named(*this, kYears); }

Client ReadClient(const std::filesystem::path& path)
try {
    Client client{.tables = ReadTables(path)};
    client.number = FirstNumber(client);
    client.width = LastNumber(client) - client.number + 1;
    client.Years();
    return client;
} catch (const std::logic_error& error) {
    throw std::runtime_error(path.string() + ": " + error.what());
}

void WriteClient(const Practice& practice, const Client& client, const ClientCopy& copy, LineNumbers& lines)
{
    ClientWriter(practice, client, copy, lines).Write();
}

std::string CodeOf(double client, std::string_view year) { return Value(client).Text() + 'r' + std::string(year); }

void AddAssesseeYear(const Connection& company, double client, const Value& name, const Value& pan,
                     std::string_view year, bool hasBusiness)
{
    const std::string code = CodeOf(client, year);
    company.Execute("insert into {assessee1} (code, company, [year], comp_name, pan) values (?, ?, ?, ?, ?)", code,
                    client, year, name, pan);
    company.Execute("insert into {misc_items} (code, [Type], name3) values (?, 'Fast2018', ?)", code,
                    hasBusiness ? "1" : "0");
}

} // namespace pgbp
