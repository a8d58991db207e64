#include "store/recordset.h"

#include "services/text.h"

#include <algorithm>
#include <stdexcept>

namespace pgbp {
namespace {

std::size_t Position(const std::vector<std::string>& columns, std::string_view column)
{
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const std::string& name) { return EqualsIgnoringCase(name, column); });
    return found - columns.begin();
}

} // namespace

const Value& Row::operator[](std::string_view column) const
{
    const std::size_t at = Position(*columns_, column);
    if (at == columns_->size())
        throw std::out_of_range("The statement gives no column " + std::string(column));
    return values_[at];
}

Record::Record(const Row& row)
{
    for (std::size_t i = 0; i < row.Size(); ++i) {
        columns_.push_back(row.Name(i));
        values_.push_back(row.At(i));
    }
}

const Value& Record::operator[](std::string_view column) const
{
    static const Value null;
    const std::size_t at = Position(columns_, column);
    return at == columns_.size() ? null : values_[at];
}

std::string AsText(const Recordset& rows)
{
    std::string text;
    for (const Row row : rows) {
        for (std::size_t i = 0; i < row.Size(); ++i)
            text.append(row.At(i).IsNull() ? "-" : "=" + row.At(i).Text()).append("\t");
        text += '\n';
    }
    return text;
}

} // namespace pgbp
