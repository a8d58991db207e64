#include "desktop/grid_view.h"

#include "desktop/captions.h"
#include "desktop/cell_delegate.h"
#include "desktop/form_view.h"
#include "desktop/grid_foot.h"
#include "desktop/theme.h"
#include "desktop/window_memory.h"
#include "services/amount_text.h"
#include "services/format.h"

#include <QAbstractTableModel>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <map>
#include <set>

namespace pgbp {
namespace {

QString DrawnText(const Grid& lines, int row, int column)
{
    const std::string& text = lines.Cell(row, column);
    return Text(row == 0 ? text : lines.columns()[static_cast<std::size_t>(column)].Drawn(text));
}

} // namespace

/// Reads the grid in place.
class GridModel : public QAbstractTableModel {
  public:
    explicit GridModel(const Grid& itsGrid) : grid_(itsGrid) {}

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : shownRows_; }
    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(grid_.columns().size());
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        // the grid may be shorter already than what is drawn of it
        return index.row() < grid_.Rows() ? CellData(index.row() + 1, index.column(), role) : QVariant();
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation == Qt::Vertical)
            return {};
        return role == Qt::TextAlignmentRole || role == Qt::DisplayRole ? CellData(0, section, role) : QVariant();
    }

    void Reload()
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

  private:
    QVariant CellData(int row, int column, int role) const
    {
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
            return its.kind == GridColumnKind::Serial ? Theme().muted : Theme().text;
        default:
            return {};
        }
    }

    const Grid& grid_;
    int shownRows_ = 0;
};

namespace {

constexpr int kWantedText = 30 * kUnit;
constexpr int kLeastText = 18 * kUnit; ///< of a text column; narrower, and the grid scrolls

int LeastHeight() { return 6 * GridRowHeight(); }

/// Asks for the height of all its rows.
class Rows : public QTableView {
  public:
    using QTableView::QTableView;

    int wantedWidth = 0;

    QSize sizeHint() const override
    {
        const int rows = model() ? model()->rowCount() * GridRowHeight() : 0;
        const int bar = horizontalScrollBar()->isVisibleTo(this) ? horizontalScrollBar()->sizeHint().height() : 0;
        const int height = horizontalHeader()->height() + rows + bar + 2 * kUnit;
        return {wantedWidth, std::max(height, LeastHeight())};
    }
};

} // namespace

GridView::GridView(Grid& itsGrid, FormView& itsForm, const Place& place)
    : ControlView(itsGrid, itsForm), grid_(itsGrid), model_(std::make_unique<GridModel>(itsGrid)),
      box_(new QWidget(place.parent)), table_(new Rows(box_))
{
    auto* below = new QVBoxLayout(box_);
    below->setContentsMargins(0, 0, 0, 0);
    below->setSpacing(0);
    below->addWidget(table_);
    changedListener_ = grid_.changed.Add([this] { stale_ = true; });
    const auto& columns = grid_.columns();
    first_ =
        static_cast<int>(std::find_if(columns.begin(), columns.end(),
                                      [](const GridColumn& column) { return column.kind != GridColumnKind::Hidden; }) -
                         columns.begin());
    table_->setModel(model_.get());
    Dress();
    chosen_.assign(columns.size(), 0);
    if (form.memory)
        chosen_ = form.memory->Columns(NameInMemory(), columns.size());
    QObject::connect(table_->horizontalHeader(), &QHeaderView::sectionResized, &connections,
                     [this](int column, int, int width) { Resized(column, width); });
    form.Watch(table_, *this);
    form.Watch(table_->viewport(), *this);
    QObject::connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, &connections,
                     [this](const QModelIndex& current) {
                         if (current.isValid() && current.row() + 1 != grid_.currentRow())
                             form.Act([&] { grid_.SetCurrentRow(current.row() + 1); });
                     });
    QObject::connect(table_, &QTableView::doubleClicked, &connections,
                     [this](const QModelIndex& index) { form.Act([&] { grid_.DoubleClick(index.row() + 1); }); });
    Shows(box_);
}

/// The widget outlives this view for a moment and must not look for the rows any more.
GridView::~GridView()
{
    grid_.changed.Remove(changedListener_);
    table_->setModel(nullptr);
}

void GridView::Dress()
{
    table_->setItemDelegate(new CellDelegate(*table_, first_));
    table_->setFocusPolicy(Qt::TabFocus);
    table_->setTabKeyNavigation(false);
    table_->setShowGrid(false);
    table_->setWordWrap(false);
    table_->setEditTriggers(QTableView::NoEditTriggers);
    table_->setSelectionBehavior(QTableView::SelectRows);
    table_->setSelectionMode(QTableView::ExtendedSelection);
    table_->setHorizontalScrollMode(QTableView::ScrollPerPixel);
    table_->setMinimumSize(90 * kUnit, LeastHeight());
    QHeaderView* rows = table_->verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(GridRowHeight());
    QHeaderView* headings = table_->horizontalHeader();
    headings->setSectionResizeMode(QHeaderView::Interactive);
    headings->setMinimumSectionSize(1);
    headings->setHighlightSections(false);
    headings->setFixedHeight(GridRowHeight() + kUnit);
    for (int column = 0; column < model_->columnCount(); ++column)
        table_->setColumnHidden(column,
                                grid_.columns()[static_cast<std::size_t>(column)].kind == GridColumnKind::Hidden);
}

QWidget* GridView::keyboard() const { return table_; }

void GridView::FromModel()
{
    ControlView::FromModel();
    const bool wasStale = std::exchange(stale_, false);
    if (wasStale) {
        sharing_ = true; // the header forgets its widths where the number of rows changes
        model_->Reload();
        table_->updateGeometry(); // for another number of rows
        Measure();
        ShowFoot();
        AskForWidth();
        ShareWidth();
    }
    FollowCurrentRow();
    if (wasStale)
        ShowCurrentRow();
}

void GridView::ShowCurrentRow()
{
    table_->scrollTo(table_->currentIndex());
    if (BeyondLeast() > 0 && form.form.focused() == &grid_)
        form.ShowFocused(*this);
}

void GridView::ShowWhole(bool whole)
{
    const int height = whole ? table_->sizeHint().height() : LeastHeight();
    if (table_->minimumHeight() != height)
        table_->setMinimumHeight(height);
}

int GridView::BeyondLeast() const { return table_->minimumHeight() - LeastHeight(); }

QRect GridView::Spot() const
{
    const QRect row = table_->visualRect(table_->currentIndex());
    return row.isValid() ? row.translated(table_->viewport()->mapTo(box_, QPoint())) : box_->rect();
}

void GridView::ShowFoot()
{
    const bool hasFoot = !grid_.footer().empty();
    if (hasFoot && !foot_) {
        foot_ = new GridFoot(grid_, *table_, box_);
        box_->layout()->addWidget(foot_);
    }
    if (foot_) {
        foot_->setVisible(hasFoot);
        foot_->update();
    }
}

void GridView::FollowCurrentRow()
{
    const int row = grid_.currentRow() - 1;
    if (table_->currentIndex().row() != row)
        table_->setCurrentIndex(model_->index(row, first_));
}

/// Room for all columns.
void GridView::AskForWidth()
{
    int wanted = 0;
    for (int column = 0; column < model_->columnCount(); ++column) {
        const GridColumn& its = grid_.columns()[static_cast<std::size_t>(column)];
        wanted += its.kind == GridColumnKind::Text ? kWantedText * its.weight : FixedWidth(column, false);
    }
    static_cast<Rows*>(table_)->wantedWidth = wanted;
}

QString GridView::NameInMemory() const { return Text(form.form.name() + '.' + grid_.name()); }

/// The preparer draws at the edge of a heading.
void GridView::Resized(int column, int width)
{
    if (sharing_)
        return;
    chosen_[static_cast<std::size_t>(column)] = std::max(width, kLeastText / 2);
    ShareWidth();
    if (form.memory)
        form.memory->KeepColumns(NameInMemory(), chosen_);
}

/// Texts share what the others leave, by weight, the light ones first: what they need beyond their share the heavy ones
/// give, and the last one takes what is left, so that the amounts stay at the right edge.
void GridView::ShareWidth()
{
    sharing_ = true;
    const auto& columns = grid_.columns();
    std::multimap<int, int> texts; // columns by weight
    int left = table_->viewport()->width();
    int weights = 0;
    const bool isNarrow = WidthOfAll() > left;
    for (int i = 0; i < model_->columnCount(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        if (columns[at].kind == GridColumnKind::Text) {
            texts.emplace(columns[at].weight, i);
            weights += columns[at].weight;
            continue;
        }
        const int width = chosen_[at] > 0 ? chosen_[at] : FixedWidth(i, isNarrow);
        table_->setColumnWidth(i, width);
        left -= width;
    }
    for (const auto& [weight, i] : texts) {
        const int chosen = weights > weight ? chosen_[static_cast<std::size_t>(i)] : 0;
        const int width = chosen > 0 ? chosen : std::max(LeastOfText(i), left * weight / weights);
        table_->setColumnWidth(i, width);
        left -= width;
        weights -= weight;
    }
    sharing_ = false;
}

/// The width at which amounts have their usual columns and texts what they need.
int GridView::WidthOfAll() const
{
    int width = 0;
    for (int i = 0; i < model_->columnCount(); ++i)
        width += grid_.columns()[static_cast<std::size_t>(i)].kind == GridColumnKind::Text ? LeastOfText(i)
                                                                                           : FixedWidth(i, false);
    return width;
}

int GridView::WidthOf(const QString& text) const
{
    return table_->fontMetrics().horizontalAdvance(text) + 3 * CellDelegate::kMargin;
}

void GridView::Measure()
{
    widest_.assign(grid_.columns().size(), 0);
    for (int column = 0; column < model_->columnCount(); ++column) {
        if (table_->isColumnHidden(column) || grid_.Rows() == 0)
            continue;
        int longest = 1;
        for (int row = 2; row <= grid_.Rows(); ++row)
            if (grid_.Cell(row, column).size() > grid_.Cell(longest, column).size())
                longest = row;
        widest_[static_cast<std::size_t>(column)] = WidthOf(DrawnText(grid_, longest, column));
    }
}

/// A short text shows whole, say a code or a number; a long one gives way.
int GridView::LeastOfText(int column) const
{
    const auto at = static_cast<std::size_t>(column);
    return std::clamp(std::max(widest_[at], WidthOf(Text(grid_.columns()[at].heading))), kLeastText, kWantedText);
}

/// An amount is never cut: its column is as wide as its longest text asks.
int GridView::FixedWidth(int at, bool isNarrow) const
{
    const GridColumn& column = grid_.columns()[static_cast<std::size_t>(at)];
    const int total = foot_ && foot_->isVisibleTo(box_) ? foot_->WidthFor(at) : 0;
    const int least = std::max(WidthOf(Text(column.heading)), total);
    switch (column.kind) {
    case GridColumnKind::Amount:
        return std::max(
            {WidthOf(isNarrow ? "0,00,000.00" : "00,00,00,00,000.00"), widest_[static_cast<std::size_t>(at)], least});
    case GridColumnKind::Rate:
        return std::max(WidthOf("100.00"), least);
    case GridColumnKind::Serial:
        return std::max(WidthOf("0000"), least);
    default:
        return 0;
    }
}

bool GridView::KeyPressed(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Copy)) {
        Copy();
        return true;
    }
    return ControlView::KeyPressed(event);
}

bool GridView::Noticed(QEvent& event)
{
    if (event.type() == QEvent::Resize) {
        ShareWidth();
        table_->scrollTo(table_->currentIndex());
    }
    return false;
}

bool GridView::Wants(Key key) const { return key != Key::Left && key != Key::Right; }

QString GridView::CopiedText(int row, int column) const
{
    const bool isAmount = grid_.columns()[static_cast<std::size_t>(column)].kind == GridColumnKind::Amount;
    return isAmount ? Text(UngroupedAmount(grid_.Cell(row, column))) : DrawnText(grid_, row, column);
}

/// The selected rows as they are read, amounts as a spreadsheet takes them.
void GridView::Copy() const
{
    std::set<int> rows;
    for (const QModelIndex& index : table_->selectionModel()->selectedRows(first_))
        rows.insert(index.row());
    QString copied;
    for (const int row : rows) {
        QStringList cells;
        for (int column = 0; column < model_->columnCount(); ++column)
            if (!table_->isColumnHidden(column))
                cells << CopiedText(row + 1, column);
        copied += cells.join('\t') + '\n';
    }
    QGuiApplication::clipboard()->setText(copied);
}

} // namespace pgbp
