#include "suite/chooser_model.h"

#include "desktop/captions.h"
#include "desktop/theme.h"
#include "suite/list_table.h"

namespace pgbp {
namespace {

constexpr const char* kHeadings[] = {"Client", "Year", "Kind", "PAN", "Head of income", "Written by", "Code"};

/// The client's earlier years stand back behind his newest one.
QVariant ColorOf(YearList& list, std::size_t row, int column)
{
    switch (column) {
    case YearList::Client:
    case YearList::Year:
        return list.IsNewest(row) ? QVariant() : QVariant(Theme().muted);
    case YearList::Head: {
        const auto& head = list.WithHead(row).headOfIncome;
        if (!head)
            return Theme().muted;
        return *head < 0 ? QVariant(Theme().negative) : QVariant();
    }
    case YearList::Code:
        return Theme().muted;
    default:
        return {};
    }
}

QVariant GroundOf(YearList& list, std::size_t row, int column)
{
    const bool tellsHead = column == YearList::Head || column == YearList::WrittenBy;
    return tellsHead && list.WithHead(row).writtenFor != 0 ? QVariant(Theme().mark) : QVariant();
}

} // namespace

void AssesseeYearModel::Change(const std::function<void()>& work)
{
    beginResetModel();
    work();
    endResetModel();
}

int AssesseeYearModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(list_.Size());
}

int AssesseeYearModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : YearList::ColumnCount;
}

QVariant AssesseeYearModel::data(const QModelIndex& index, int role) const
{
    const auto row = static_cast<std::size_t>(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return Text(list_.CellText(row, static_cast<YearList::Column>(index.column())));
    case Qt::TextAlignmentRole:
        return AlignmentOf(index.column() == YearList::Head);
    case Qt::ForegroundRole:
        return ColorOf(list_, row, index.column());
    case Qt::BackgroundRole:
        return GroundOf(list_, row, index.column());
    default:
        return {};
    }
}

QVariant AssesseeYearModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal ? HeadingOf(section, kHeadings[section], section == YearList::Head, role)
                                         : QVariant();
}

} // namespace pgbp
