#include "suite/table_text.h"

#include "services/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <optional>
#include <stdexcept>

namespace pgbp {
namespace {

/// What is told of a client's years; no table of the suite.
const Table kYears{"", "years", {{"year", ColumnKind::Text}, {"itr", ColumnKind::Number}}, {}};
const Column kKeys[] = {{"year", ColumnKind::Text}, {"line", ColumnKind::Number}};

const Column* Find(std::span<const Column> columns, std::string_view name)
{
    const auto found =
        std::ranges::find_if(columns, [&](const Column& column) { return EqualsIgnoringCase(column.name, name); });
    return found == columns.end() ? nullptr : &*found;
}

const Column& ColumnOf(const Table& table, std::string_view name)
{
    if (const Column* column = Find(table.columns, name))
        return *column;
    if (const Column* key = Find(kKeys, name))
        return *key;
    throw std::invalid_argument("the table " + std::string(table.name) + " has no column " + std::string(name));
}

const Table& TableNamed(std::string_view name)
{
    if (name == kYears.name)
        return kYears;
    const auto found = std::ranges::find_if(Tables(), [&](const Table& table) {
        return EqualsIgnoringCase(std::string(table.file) + '.' + std::string(table.name), name);
    });
    if (found == Tables().end())
        throw std::invalid_argument("there is no table " + std::string(name));
    return *found;
}

double ReadNumber(std::string_view text)
{
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number))
        throw std::invalid_argument('"' + std::string(text) + "\" is no number");
    return number;
}

bool ReadFlag(std::string_view text)
{
    if (text != "yes" && text != "1" && text != "no" && text != "0")
        throw std::invalid_argument('"' + std::string(text) + "\" is neither yes nor no");
    return text == "yes" || text == "1";
}

DateTime ReadDate(std::string_view text)
{
    const auto date = FromIsoText(text);
    if (!date)
        throw std::invalid_argument('"' + std::string(text) + "\" is no date such as 2024-03-31");
    return *date;
}

Value ReadCell(std::string_view text, ColumnKind kind)
{
    if (text.empty())
        return {};
    switch (kind) {
    case ColumnKind::Number:
        return ReadNumber(text);
    case ColumnKind::Flag:
        return ReadFlag(text);
    case ColumnKind::Date:
        return ReadDate(text);
    default:
        return text;
    }
}

std::vector<std::string_view> Fields(std::string_view line)
{
    std::vector<std::string_view> fields;
    for (std::size_t from = 0; from <= line.size();) {
        const std::size_t end = std::min(line.find('\t', from), line.size());
        fields.push_back(line.substr(from, end - from));
        from = end + 1;
    }
    return fields;
}

/// Reads one file line by line and tells at which line it fails.
class Reader {
  public:
    explicit Reader(const std::filesystem::path& path) : path_(path), in_(path)
    {
        if (!in_)
            throw std::runtime_error("The file " + path.string() + " cannot be read.");
    }

    std::vector<TableText> All(const Table* single)
    {
        std::string line;
        if (single)
            Begin(*single, {});
        while (std::getline(in_, line)) {
            ++lineNumber_;
            if (!line.empty() && line.front() != '#')
                Told([&] { Take(Fields(line)); });
        }
        return std::move(tables_);
    }

  private:
    template <typename Work>
    void Told(Work work)
    {
        try {
            work();
        } catch (const std::invalid_argument& error) {
            throw std::runtime_error(path_.string() + ", line " + std::to_string(lineNumber_) + ": " + error.what() +
                                     ".");
        }
    }

    void Take(std::vector<std::string_view> fields)
    {
        if (fields.front().starts_with('['))
            Begin(TableNamed(fields.front().substr(1, fields.front().find(']') - 1)), std::span(fields).subspan(1));
        else if (tables_.empty())
            throw std::invalid_argument("a line \"[file.table]\" must come first");
        else if (!headingRead_)
            TakeHeading(fields);
        else
            TakeRow(fields);
    }

    void Begin(const Table& table, std::span<const std::string_view> fixed)
    {
        const std::string file(table.file);
        tables_.push_back({(file.empty() ? "" : file + '.') + std::string(table.name), {}, {}});
        table_ = &table;
        headingRead_ = false;
        places_.clear();
        fixed_.clear();
        for (const std::string_view field : fixed) {
            const auto equals = std::min(field.find('='), field.size());
            const Column& column = ColumnOf(table, field.substr(0, equals));
            tables_.back().columns.emplace_back(column.name);
            fixed_.push_back(ReadCell(field.substr(std::min(equals + 1, field.size())), column.kind));
        }
    }

    void TakeHeading(std::span<const std::string_view> names)
    {
        for (const std::string_view name : names) {
            const Column* column = name.starts_with('#') ? nullptr : &ColumnOf(*table_, name);
            places_.push_back(column ? std::optional(column->kind) : std::nullopt);
            if (column)
                tables_.back().columns.emplace_back(column->name);
        }
        headingRead_ = true;
    }

    void TakeRow(std::span<const std::string_view> fields)
    {
        if (fields.size() > places_.size())
            throw std::invalid_argument("the row has more fields than the heading");
        std::vector<Value> row = fixed_;
        for (std::size_t i = 0; i < places_.size(); ++i)
            if (places_[i])
                row.push_back(i < fields.size() ? ReadCell(fields[i], *places_[i]) : Value());
        tables_.back().rows.push_back(std::move(row));
    }

    std::filesystem::path path_;
    std::ifstream in_;
    int lineNumber_ = 0;
    std::vector<TableText> tables_;
    const Table* table_ = nullptr;
    bool headingRead_ = false;
    std::vector<std::optional<ColumnKind>> places_; // what stands in each field; nothing for a remark
    std::vector<Value> fixed_;
};

} // namespace

std::size_t TableText::IndexOf(std::string_view column) const
{
    const auto found =
        std::ranges::find_if(columns, [&](const std::string& each) { return EqualsIgnoringCase(each, column); });
    if (found == columns.end())
        throw std::out_of_range("The rows of " + name + " have no column " + std::string(column) + ".");
    return static_cast<std::size_t>(found - columns.begin());
}

TableText ReadTable(const std::filesystem::path& path, const Table& table) { return Reader(path).All(&table).front(); }

std::vector<TableText> ReadTables(const std::filesystem::path& path) { return Reader(path).All(nullptr); }

} // namespace pgbp
