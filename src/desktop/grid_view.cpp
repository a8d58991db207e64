#include "desktop/grid_view.h"

#include "desktop/caption_line.h"
#include "desktop/captions.h"
#include "desktop/cell_delegate.h"
#include "desktop/form_view.h"
#include "desktop/grid_foot.h"
#include "desktop/grid_model.h"
#include "desktop/text_sync.h"
#include "desktop/theme.h"
#include "desktop/window_memory.h"
#include "services/amount_text.h"
#include "services/format.h"
#include "services/text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <map>
#include <set>

namespace pgbp {
namespace {

constexpr int kWantedText = 30 * kUnit;
constexpr int kLeastText = 18 * kUnit; ///< of a text column; narrower, and the grid scrolls

int LeastHeight() { return 6 * GridRowHeight(); }

/// Asks for the height of all its rows.
class Rows : public QTableView {
  public:
    explicit Rows(QWidget* parent) : QTableView(parent)
    {
        viewport()->setAttribute(Qt::WA_OpaquePaintEvent); // a cell is drawn without all that lies below the grid
    }

    int wantedWidth = 0;

    QSize sizeHint() const override
    {
        const int rows = verticalHeader()->length();
        const int bar = horizontalScrollBar()->isVisibleTo(this) ? horizontalScrollBar()->sizeHint().height() : 0;
        const int height = horizontalHeader()->height() + rows + bar + 2 * kUnit;
        return {wantedWidth, std::max(height, LeastHeight())};
    }

  protected:
    void paintEvent(QPaintEvent* event) override
    {
        QPainter(viewport()).fillRect(event->rect(), Theme().panel);
        QTableView::paintEvent(event);
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
    cellListener_ = grid_.cellChanged.Add([this](int row, int column) { cells_.emplace_back(row, column); });
    movedListener_ = grid_.moved.Add([this] { moved_ = true; });
    const auto& columns = grid_.columns();
    first_ =
        static_cast<int>(std::find_if(columns.begin(), columns.end(),
                                      [](const GridColumn& column) { return column.kind != GridColumnKind::Hidden; }) -
                         columns.begin());
    for (int i = 0; i < static_cast<int>(columns.size()); ++i)
        if (IsText(i) && (caption_ < 0 || columns[static_cast<std::size_t>(i)].weight >
                                              columns[static_cast<std::size_t>(caption_)].weight))
            caption_ = i;
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
    if (grid_.onEnterCell)
        MakeEntry();
    Shows(box_);
}

/// What is needed where cells are entered: a click enters, the editors lie over the rows, and a turn of the wheel or
/// the scroll bar hides them.
void GridView::MakeEntry()
{
    static_cast<CellDelegate*>(table_->itemDelegate())->marksCell = true;
    QObject::connect(table_, &QTableView::clicked, &connections, [this](const QModelIndex& index) {
        if (QGuiApplication::keyboardModifiers() == Qt::NoModifier) // else rows are selected
            form.Act([&] { grid_.ClickCell(index.row() + 1, index.column()); });
    });
    for (TextBox* editor : grid_.editors())
        form.Add(*editor, {.parent = table_->viewport(), .column = LayoutColumn::Field, .inCell = true});
    for (const QScrollBar* bar : {table_->verticalScrollBar(), table_->horizontalScrollBar()}) {
        QObject::connect(bar, &QScrollBar::actionTriggered, &connections, [this] {
            if (grid_.editor())
                form.Act([this] { grid_.HideEditor(); });
        });
        QObject::connect(bar, &QScrollBar::valueChanged, &connections, [this] { PlaceEditor(); });
    }
    if (caption_ < 0)
        return;
    whole_ = new CaptionLine(box_);
    whole_->setObjectName("caption of " + Text(grid_.name()));
    box_->layout()->addWidget(whole_);
}

/// The widget outlives this view for a moment and must not look for the rows any more.
GridView::~GridView()
{
    grid_.changed.Remove(changedListener_);
    grid_.cellChanged.Remove(cellListener_);
    grid_.moved.Remove(movedListener_);
    for (const QScrollBar* bar : {table_->verticalScrollBar(), table_->horizontalScrollBar()})
        bar->disconnect(&connections); // the editors' views may be gone
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
    HideAndShow();
}

void GridView::HideAndShow()
{
    for (int column = 0; column < model_->columnCount(); ++column)
        if (const bool isShown = grid_.columns()[static_cast<std::size_t>(column)].IsShown();
            table_->isColumnHidden(column) == isShown)
            table_->setColumnHidden(column, !isShown);
    for (int row = 0; row < model_->rowCount(); ++row)
        if (const bool isHidden = grid_.IsHidden(row + 1); table_->isRowHidden(row) != isHidden)
            table_->setRowHidden(row, isHidden);
}

QWidget* GridView::keyboard() const { return table_; }

void GridView::FromModel()
{
    ControlView::FromModel();
    const bool wasStale = std::exchange(stale_, false);
    const bool hasMoved = std::exchange(moved_, false);
    const auto cells = std::exchange(cells_, {});
    if (wasStale) {
        sharing_ = true; // the header forgets its widths where the number of rows changes
        model_->Reload();
        HideAndShow();
        table_->updateGeometry(); // for another number of rows
        Measure();
        ShowFoot();
        AskForWidth();
        ShareWidth();
    } else {
        UpdateCells(cells);
    }
    FollowCurrentCell();
    if (wasStale || hasMoved)
        ShowCurrentRow();
    if (hasMoved && grid_.editor())
        form.Find(grid_.editor())->Forget();
    PlaceEditor();
    ShowWholeCaption();
}

/// A longer amount widens its column.
void GridView::UpdateCells(const std::vector<std::pair<int, int>>& cells)
{
    bool isWider = false;
    for (const auto& [row, column] : cells) {
        model_->Update(row, column);
        if (table_->isColumnHidden(column))
            continue;
        const auto at = static_cast<std::size_t>(column);
        if (grid_.Cell(row, column).size() <= longest_[at])
            continue;
        longest_[at] = grid_.Cell(row, column).size();
        widest_[at] = std::max(widest_[at], WidthOf(DrawnText(grid_, row, column)));
        isWider = true;
    }
    if (isWider)
        ShareWidth();
}

bool GridView::HasFocus() const
{
    const Control* focused = form.form.focused();
    return focused == &grid_ || (focused && focused->host == &grid_);
}

void GridView::PlaceEditor()
{
    const TextBox* editor = grid_.editor();
    if (!editor)
        return;
    const int row = grid_.currentRow();
    const int column = grid_.currentColumn();
    const ControlView& view = *form.Find(editor);
    view.widget()->setGeometry(table_->visualRect(model_->index(row - 1, column)));
    view.widget()->raise();
    view.widget()->setAttribute(Qt::WA_OpaquePaintEvent); // fills its cell; the style takes this back now and then
    view.keyboard()->setAccessibleName(
        Text((caption_ < 0 ? "" : Trim(grid_.Cell(row, caption_)) + ", ") + grid_.Cell(0, column)));
}

/// Has its place as long as any caption is cut, so that the rows stay where they are when the current one changes.
void GridView::ShowWholeCaption()
{
    if (!whole_ || widest_.empty()) // not measured yet
        return;
    const int row = grid_.currentRow();
    const bool isCut =
        widest_[static_cast<std::size_t>(caption_)] - CellDelegate::kMargin > table_->columnWidth(caption_);
    whole_->setVisible(isCut);
    whole_->Show(row > 0 ? Text(Trim(grid_.Cell(row, caption_))) : QString());
    if (std::exchange(measuredFor_, {longestCaption_, table_->width()}) != std::pair(longestCaption_, table_->width()))
        whole_->setFixedHeight(whole_->HeightFor(longestCaption_.trimmed(), table_->width()));
}

void GridView::ShowCurrentRow()
{
    table_->scrollTo(table_->currentIndex());
    if (BeyondLeast() > 0 && HasFocus())
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

void GridView::FollowCurrentCell()
{
    const int row = grid_.currentRow() - 1;
    const int column = grid_.onEnterCell ? grid_.currentColumn() : first_;
    const QModelIndex current = table_->currentIndex();
    if (current.row() != row || (grid_.onEnterCell && current.column() != column))
        table_->setCurrentIndex(model_->index(row, column));
}

/// Room for all columns.
void GridView::AskForWidth()
{
    int wanted = 0;
    for (int column = 0; column < model_->columnCount(); ++column) {
        const GridColumn& its = grid_.columns()[static_cast<std::size_t>(column)];
        wanted += IsText(column) ? kWantedText * its.weight : FixedWidth(column, false);
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
        if (IsText(i)) {
            texts.emplace(columns[at].weight, i);
            weights += columns[at].weight;
            continue;
        }
        const bool isChosen = columns[at].IsShown() && chosen_[at] > 0;
        const int width = isChosen ? chosen_[at] : FixedWidth(i, isNarrow);
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
        width += IsText(i) ? LeastOfText(i) : FixedWidth(i, false);
    return width;
}

bool GridView::IsText(int column) const
{
    const GridColumn& its = grid_.columns()[static_cast<std::size_t>(column)];
    return its.kind == GridColumnKind::Text && its.IsShown();
}

int GridView::WidthOf(const QString& text) const
{
    static const QFontMetrics totals(FontOf(Type::Total));
    const int width = hasTotals_ ? totals.horizontalAdvance(text) : table_->fontMetrics().horizontalAdvance(text);
    return width + 3 * CellDelegate::kMargin;
}

void GridView::Measure()
{
    longest_.assign(grid_.columns().size(), 0);
    widest_.assign(grid_.columns().size(), 0);
    hasTotals_ = false;
    for (int row = 1; row <= grid_.Rows() && !hasTotals_; ++row)
        hasTotals_ = grid_.Look(row, std::max(caption_, 0)) == CellLook::Computed;
    for (int column = 0; column < model_->columnCount(); ++column) {
        if (table_->isColumnHidden(column) || grid_.Rows() == 0)
            continue;
        int longest = 1;
        for (int row = 2; row <= grid_.Rows(); ++row)
            if (grid_.Cell(row, column).size() > grid_.Cell(longest, column).size())
                longest = row;
        const QString text = DrawnText(grid_, longest, column);
        longest_[static_cast<std::size_t>(column)] = grid_.Cell(longest, column).size();
        widest_[static_cast<std::size_t>(column)] = WidthOf(text);
        if (column == caption_)
            longestCaption_ = text;
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
    if (!column.IsShown())
        return 0;
    switch (column.kind) {
    case GridColumnKind::Amount:
        return std::max(
            {WidthOf(isNarrow ? "0,00,000.00" : "00,00,00,00,000.00"), widest_[static_cast<std::size_t>(at)], least});
    case GridColumnKind::Rate:
        return std::max(WidthOf("100.00"), least);
    case GridColumnKind::Serial:
        return std::max({WidthOf("0000"), widest_[static_cast<std::size_t>(at)], least});
    case GridColumnKind::Mark:
        return std::max(widest_[static_cast<std::size_t>(at)], least);
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
    if (event.matches(QKeySequence::Paste)) {
        form.Act([this] { grid_.Paste(QGuiApplication::clipboard()->text().toStdString()); });
        return true;
    }
    const bool takesText = grid_.onType || grid_.onEnterCell; // else the table looks for a row
    const std::u32string typed = takesText ? TypedText(event) : std::u32string();
    for (const char32_t character : typed)
        form.Act([&] { form.form.Type(character); });
    return !typed.empty() || ControlView::KeyPressed(event);
}

bool GridView::Noticed(QEvent& event)
{
    if (event.type() == QEvent::Resize) {
        ShareWidth();
        table_->scrollTo(table_->currentIndex());
        PlaceEditor();
        ShowWholeCaption();
    }
    return false;
}

bool GridView::Wants(Key key) const { return grid_.onEnterCell || (key != Key::Left && key != Key::Right); }

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
        if (!table_->isRowHidden(index.row()))
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
