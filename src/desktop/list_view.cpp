#include "desktop/list_view.h"

#include "desktop/captions.h"
#include "desktop/cell_delegate.h"
#include "desktop/form_view.h"
#include "desktop/theme.h"

#include <QListWidget>
#include <QMouseEvent>

#include <algorithm>

namespace pgbp {
namespace {

int LeastHeight() { return 6 * GridRowHeight(); }

} // namespace

ListView::ListView(List& itsList, FormView& itsForm, const Place& place)
    : ControlView(itsList, itsForm), list_(itsList), rows_(new QListWidget(place.parent))
{
    rows_->setFocusPolicy(Qt::TabFocus);
    rows_->setItemDelegate(new CellDelegate(*rows_, 0));
    rows_->setUniformItemSizes(true);
    rows_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    rows_->setMinimumSize(80 * kUnit, LeastHeight());
    form.Watch(rows_, *this);
    form.Watch(rows_->viewport(), *this);
    QObject::connect(rows_, &QListWidget::clicked, &connections,
                     [this](const QModelIndex& index) { form.Act([&] { list_.Click(index.row() + 1); }); });
    Shows(rows_);
}

void ListView::FromModel()
{
    ControlView::FromModel();
    ShowItems();
    rows_->setCurrentRow(list_.current() - 1);
}

/// With the empty spot below the last one.
void ListView::ShowWhole(bool whole)
{
    const int rows = (rows_->count() + 1) * GridRowHeight() + 2 * kUnit;
    const int height = whole ? std::max(rows, LeastHeight()) : LeastHeight();
    if (rows_->minimumHeight() != height)
        rows_->setMinimumHeight(height);
}

int ListView::BeyondLeast() const { return rows_->minimumHeight() - LeastHeight(); }

QRect ListView::Spot() const
{
    const QRect row = rows_->visualItemRect(rows_->currentItem());
    return row.isValid() ? row.translated(rows_->viewport()->mapTo(rows_, QPoint())) : rows_->rect();
}

void ListView::ShowItems()
{
    const auto& items = list_.items();
    const auto shown = [&](int i) { return rows_->item(i)->text() == Text(items[static_cast<std::size_t>(i)]); };
    bool alike = rows_->count() == static_cast<int>(items.size());
    for (int i = 0; alike && i < rows_->count(); ++i)
        alike = shown(i);
    if (alike)
        return;
    rows_->clear();
    for (const auto& title : items) {
        auto* item = new QListWidgetItem(Text(title), rows_);
        item->setToolTip(Text(title));
        item->setSizeHint({0, GridRowHeight()});
    }
}

/// The toolkit tells nothing of a double click below the last row.
bool ListView::Noticed(QEvent& event)
{
    if (event.type() != QEvent::MouseButtonDblClick)
        return false;
    const QModelIndex index = rows_->indexAt(static_cast<QMouseEvent&>(event).pos());
    form.Act([&] { list_.DoubleClick(index.row() + 1); });
    return true;
}

} // namespace pgbp
