#include "suite/list_table.h"

#include "desktop/cell_delegate.h"
#include "desktop/theme.h"

#include <QApplication>
#include <QHeaderView>
#include <QTableView>

#include <algorithm>

namespace pgbp {
namespace {

int WidthOf(const QString& text)
{
    return QFontMetrics(QApplication::font()).horizontalAdvance(text) + 2 * CellDelegate::kMargin + kUnit;
}

} // namespace

QTableView* MakeListTable(QAbstractItemModel& model, int stretched, std::span<const UsualText> usualTexts)
{
    auto* table = new QTableView;
    table->setModel(&model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setShowGrid(false);
    table->setItemDelegate(new CellDelegate(*table, 0));
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(GridRowHeight());
    auto* heading = table->horizontalHeader();
    heading->setSectionResizeMode(stretched, QHeaderView::Stretch);
    heading->setHighlightSections(false);
    heading->setSectionsClickable(true);
    heading->setSortIndicatorShown(true);
    for (const auto& [column, text] : usualTexts)
        table->setColumnWidth(
            column,
            std::max(WidthOf(text), WidthOf(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString())));
    return table;
}

QVariant HeadingOf(int column, const char* heading, bool isAmount, int role)
{
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromLatin1(heading);
    case Qt::ToolTipRole:
        return QString("Sorts by this column: Ctrl+%1").arg(column + 1);
    case Qt::TextAlignmentRole:
        return AlignmentOf(isAmount);
    default:
        return {};
    }
}

int AlignmentOf(bool isAmount)
{
    return static_cast<int>(Qt::AlignVCenter | (isAmount ? Qt::AlignRight : Qt::AlignLeft));
}

} // namespace pgbp
