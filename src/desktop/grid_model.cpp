#include "desktop/grid_model.h"

#include "desktop/captions.h"
#include "desktop/theme.h"
#include "services/amount_text.h"
#include "services/format.h"

namespace pgbp {

QString DrawnText(const Grid& grid, int row, int column)
{
    const std::string& text = grid.Cell(row, column);
    return Text(row == 0 ? text : grid.columns()[static_cast<std::size_t>(column)].Drawn(text));
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shownRows_; }

int GridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(grid_.columns().size());
}

/// The grid may be shorter already than what is drawn of it.
QVariant GridModel::data(const QModelIndex& index, int role) const
{
    return index.row() < grid_.Rows() ? CellData(index.row() + 1, index.column(), role) : QVariant();
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return {};
    const bool isShown = role == Qt::TextAlignmentRole || role == Qt::DisplayRole || role == Qt::ToolTipRole;
    return isShown ? CellData(0, section, role) : QVariant();
}

void GridModel::Reload()
{
    if (shownRows_ != grid_.Rows()) {
        beginResetModel();
        shownRows_ = grid_.Rows();
        endResetModel();
    } else if (shownRows_ > 0) {
        emit dataChanged(index(0, 0), index(shownRows_ - 1, columnCount() - 1));
    }
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void GridModel::Update(int row, int column)
{
    if (row <= shownRows_)
        emit dataChanged(index(row - 1, column), index(row - 1, column));
}

QVariant GridModel::CellData(int row, int column, int role) const
{
    static const QFont totals = FontOf(Type::Total);
    const CellLook look = row == 0 ? CellLook::Plain : grid_.Look(row, column);
    const GridColumn& its = grid_.columns()[static_cast<std::size_t>(column)];
    switch (role) {
    case Qt::DisplayRole:
        return DrawnText(grid_, row, column);
    case Qt::ToolTipRole:
        return its.kind == GridColumnKind::Text ? DrawnText(grid_, row, column) : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant::fromValue((its.IsNumber() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        if (its.IsNumber() && Val(grid_.Cell(row, column)) < 0)
            return Theme().negative;
        if (its.kind == GridColumnKind::Mark)
            return Theme().accent;
        return its.kind == GridColumnKind::Serial || its.muted ? Theme().muted : Theme().text;
    case Qt::BackgroundRole:
        if (look == CellLook::Plain)
            return {};
        return look == CellLook::Own ? Theme().mark : Theme().computed;
    case Qt::FontRole:
        return look == CellLook::Computed ? totals : QVariant();
    default:
        return {};
    }
}

} // namespace pgbp
