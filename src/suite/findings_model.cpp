#include "suite/findings_model.h"

#include "desktop/captions.h"
#include "desktop/theme.h"
#include "suite/list_table.h"

#include <limits>

namespace pgbp {
namespace {

constexpr const char* kHeadings[] = {"Client", "Year", "Finding", "Concerns", "As stored", "As it follows", "Code"};

bool IsAmount(int column) { return column == FindingsModel::Stored || column == FindingsModel::Follows; }

const std::optional<double>& AmountOf(const Finding& finding, int column)
{
    return column == FindingsModel::Stored ? finding.stored : finding.follows;
}

QString TextOf(const Finding& finding, int column)
{
    switch (column) {
    case FindingsModel::Client:
        return Text(finding.client);
    case FindingsModel::Year:
        return Text(finding.year);
    case FindingsModel::What:
        return Text(finding.what);
    case FindingsModel::Where:
        return Text(finding.where);
    case FindingsModel::Code:
        return Text(finding.code);
    default:
        return Text(AmountInWords(AmountOf(finding, column)));
    }
}

/// A cell without an amount comes before all amounts.
QVariant SortedBy(const Finding& finding, int column)
{
    if (IsAmount(column))
        return AmountOf(finding, column).value_or(std::numeric_limits<double>::lowest());
    return TextOf(finding, column).toLower();
}

QVariant ColorOf(const Finding& finding, int column)
{
    if (column == FindingsModel::Code)
        return Theme().muted;
    return IsAmount(column) && AmountOf(finding, column).value_or(0) < 0 ? QVariant(Theme().negative) : QVariant();
}

} // namespace

void FindingsModel::Clear()
{
    beginResetModel();
    findings_.clear();
    endResetModel();
}

void FindingsModel::Add(std::vector<Finding> more)
{
    if (more.empty())
        return;
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(more.size()) - 1);
    findings_.insert(findings_.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
    endInsertRows();
}

void FindingsModel::RemoveOf(const std::string& code)
{
    for (int row = rowCount() - 1; row >= 0; --row)
        if (At(row).code == code) {
            beginRemoveRows({}, row, row);
            findings_.erase(findings_.begin() + row);
            endRemoveRows();
        }
}

int FindingsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(findings_.size());
}

int FindingsModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : ColumnCount; }

QVariant FindingsModel::data(const QModelIndex& index, int role) const
{
    const Finding& finding = At(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return TextOf(finding, index.column());
    case kSortRole:
        return SortedBy(finding, index.column());
    case Qt::TextAlignmentRole:
        return AlignmentOf(IsAmount(index.column()));
    case Qt::ForegroundRole:
        return ColorOf(finding, index.column());
    default:
        return {};
    }
}

QVariant FindingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal ? HeadingOf(section, kHeadings[section], IsAmount(section), role) : QVariant();
}

} // namespace pgbp
