#include "desktop/frame_view.h"

#include "controls/buttons.h"
#include "controls/text_controls.h"
#include "desktop/captions.h"
#include "desktop/form_view.h"
#include "desktop/label_view.h"
#include "desktop/page.h"
#include "desktop/theme.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace pgbp {
namespace {

/// A control that stands alone takes the whole row; a button or a field stays in its column.
bool IsWhole(const LayoutRow& row)
{
    if (row.cells.size() != 1 || !row.cells.front())
        return false;
    const auto* box = dynamic_cast<const TextBox*>(row.cells.front());
    return box ? box->multiLine : !dynamic_cast<const cmd*>(row.cells.front());
}

bool IsShown(const LayoutRow& row)
{
    return std::any_of(row.cells.begin(), row.cells.end(), [](const Control* cell) { return cell && cell->visible; });
}

Qt::Alignment SideOf(const Control& control, LayoutColumn column)
{
    if (column == LayoutColumn::Amount || column == LayoutColumn::Previous)
        return Qt::AlignRight | Qt::AlignVCenter;
    const auto* box = dynamic_cast<const TextBox*>(&control);
    const auto* label = dynamic_cast<const Label*>(&control);
    const bool isLink = label && label->onClick;
    const bool isWide = box || dynamic_cast<const cmd*>(&control) || (label && !isLink);
    return isWide ? Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter;
}

} // namespace

FrameView::FrameView(Frame& itsFrame, FormView& itsForm, const Place& place)
    : ControlView(itsFrame, itsForm), frame_(itsFrame)
{
    Build(place.parent);
}

void FrameView::Build(QWidget* parent)
{
    auto* panel = new QFrame(parent);
    Shows(panel);
    const bool isGroup = frame_.place == FramePlace::Group;
    panel->setProperty("panel", !isGroup);
    panel->setAutoFillBackground(!isGroup);
    auto* box = new QVBoxLayout(panel);
    const int padding = isGroup ? 0 : kPadding;
    box->setContentsMargins(padding, padding, padding, padding);
    box->setSpacing(2 * kUnit);
    heading_ = new QLabel(panel);
    heading_->setFont(FontOf(Type::Heading));
    heading_->setTextFormat(Qt::PlainText);
    box->addWidget(heading_);
    if (frame_.place == FramePlace::Card) {
        auto* page = new Page(panel);
        box->addWidget(page, 1);
        page->setWidget(Rows(page->viewport()));
        page->widget()->setAutoFillBackground(false);
        page->onRoom = [this](int height) { FitInto(height); };
    } else {
        box->addWidget(Rows(panel), 1);
    }
    const bool hasButtons = !frame_.layout().buttonsLeft.empty() || !frame_.layout().buttonsRight.empty();
    if (frame_.place != FramePlace::Main && hasButtons) {
        box->addSpacing(kUnit);
        AddButtons(AddButtonRow(*box));
    }
}

QWidget* FrameView::Rows(QWidget* parent)
{
    auto* page = new QWidget(parent);
    page->setBackgroundRole(QPalette::Base); // as the panel: a field is drawn without it
    page->setAutoFillBackground(true);
    rows_ = new QGridLayout(page);
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setHorizontalSpacing(3 * kUnit);
    rows_->setVerticalSpacing(kUnit);
    for (const LayoutRow& row : frame_.layout().rows)
        AddRow(row);
    ofHeight_.empty() ? KeepTogether() : FillWidth();
    return page;
}

void FrameView::FillWidth()
{
    for (int i = 0; i < ColumnCount(); ++i)
        if (frame_.layout().columns[static_cast<std::size_t>(i)] == LayoutColumn::Field)
            rows_->setColumnStretch(i, 1);
}

/// Rows stand together at the upper left, so that the eye finds the way from a caption to its amount.
void FrameView::KeepTogether()
{
    rows_->setColumnStretch(ColumnCount(), 1);
    rows_->setRowStretch(rows_->rowCount(), 1);
}

void FrameView::AddRow(const LayoutRow& row)
{
    if (row.style == RowStyle::Total || row.style == RowStyle::Final)
        AddRule(row);
    const int line = rows_->rowCount();
    LabelView* caption = nullptr;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        if (!row.cells[i])
            continue;
        ControlView& view = AddCell(row, i, line);
        NoteNames(row, i, view);
        auto* text = dynamic_cast<LabelView*>(&view);
        if (text && frame_.layout().columns[i] == LayoutColumn::Caption)
            caption = text;
        else if (caption && row.cells[i]->TakesFocus() && !dynamic_cast<cmd*>(row.cells[i]))
            std::exchange(caption, nullptr)->SetBuddy(view.keyboard());
    }
    if (row.style == RowStyle::Total) // what is below begins a group of its own
        rows_->setRowMinimumHeight(rows_->rowCount(), kUnit);
}

/// A field is called by the caption before or above it and the heading of its column, a list by that of its frame.
void FrameView::NoteNames(const LayoutRow& row, std::size_t column, ControlView& view)
{
    if (const auto* text = dynamic_cast<const Label*>(row.cells[column])) {
        if (row.style == RowStyle::Heading)
            columnHeadings_[column] = text;
        else if (text->look == LabelLook::Caption)
            caption_ = text;
    } else if (dynamic_cast<const TextBox*>(row.cells[column])) {
        const auto heading = columnHeadings_.find(column);
        named_.push_back({&view, caption_, heading == columnHeadings_.end() ? nullptr : heading->second});
    } else if (view.TakesHeight()) {
        named_.push_back({&view});
    }
}

void FrameView::NameFields()
{
    const std::string& ofFrame = frame_.caption.get().empty() ? form.form.caption.get() : frame_.caption.get();
    for (const auto& [field, caption, heading] : named_) {
        QString name = PlainCaption(field->TakesHeight() ? ofFrame : caption ? caption->text() : "");
        if (heading)
            name += ", " + PlainCaption(heading->text());
        for (QWidget* widget : {field->keyboard(), field->keyboard()->focusProxy()})
            if (widget && widget->accessibleName() != name)
                widget->setAccessibleName(name);
    }
}

/// A field of a number does not fill its column: buttons right behind it stand beside it.
bool FrameView::IsBeside(const LayoutRow& row, std::size_t column) const
{
    while (column > 0 && dynamic_cast<const PushControl*>(row.cells[column]))
        --column;
    const bool isField = frame_.layout().columns[column] == LayoutColumn::Field;
    return isField && dynamic_cast<const NumberBox*>(row.cells[column]);
}

/// The text of a tick runs on over the empty cells behind it.
int FrameView::Spans(const LayoutRow& row, std::size_t column) const
{
    if (!dynamic_cast<const CheckBox*>(row.cells[column]))
        return 1;
    const auto last = row.cells.begin() + static_cast<std::ptrdiff_t>(column) + 1;
    const auto next = std::find_if(last, row.cells.end(), [](const Control* cell) { return cell != nullptr; });
    return static_cast<int>(next == row.cells.end() ? ColumnCount() - static_cast<int>(column) : next - last + 1);
}

ControlView& FrameView::AddCell(const LayoutRow& row, std::size_t column, int line)
{
    Control& cell = *row.cells[column];
    const bool whole = IsWhole(row);
    const LayoutColumn kind = whole ? LayoutColumn::Field : frame_.layout().columns.at(column);
    ControlView& view = form.Add(cell, {rows_->parentWidget(), kind, row.style});
    if (row.keepsPlace) {
        QSizePolicy policy = view.widget()->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        view.widget()->setSizePolicy(policy);
    }
    if (view.TakesHeight()) {
        rows_->setRowStretch(line, 1);
        ofHeight_.push_back(&view);
    }
    if (whole) {
        rows_->addWidget(view.widget(), line, 0);
        wide_.push_back({view.widget(), line});
    } else if (IsBeside(row, column)) {
        PutBeside(view.widget(), line, column);
    } else {
        rows_->addWidget(view.widget(), line, static_cast<int>(column), 1, Spans(row, column), SideOf(cell, kind));
    }
    return view;
}

void FrameView::PutBeside(QWidget* widget, int line, std::size_t column)
{
    if (frame_.layout().columns[column] == LayoutColumn::Field) {
        beside_ = new QHBoxLayout;
        beside_->setSpacing(rows_->horizontalSpacing());
        beside_->addStretch(1);
        rows_->addLayout(beside_, line, static_cast<int>(column));
    }
    beside_->insertWidget(beside_->count() - 1, widget);
}

void FrameView::AddRule(const LayoutRow& row)
{
    auto* rule = new QFrame(rows_->parentWidget());
    const bool isFinal = row.style == RowStyle::Final;
    rule->setProperty("rule", isFinal ? "double" : "single");
    rule->setFixedHeight(isFinal ? kUnit : 1);
    const int line = rows_->rowCount();
    rows_->addWidget(rule, line, 0);
    wide_.push_back({rule, line, &row});
}

bool FrameView::IsSeen(std::size_t column) const
{
    const auto& rows = frame_.layout().rows;
    const bool isOfButtons = frame_.layout().columns[column] == LayoutColumn::Button;
    return std::any_of(rows.begin(), rows.end(), [&](const LayoutRow& row) {
        const bool isThere = column < row.cells.size() && row.cells[column] && row.cells[column]->visible;
        return isThere && !IsWhole(row) && !(isOfButtons && IsBeside(row, column));
    });
}

FrameView::Columns FrameView::Seen(bool withButtons) const
{
    int first = -1;
    int last = -1;
    for (int i = 0; i < ColumnCount(); ++i) {
        const auto column = static_cast<std::size_t>(i);
        const bool counts = withButtons || frame_.layout().columns[column] != LayoutColumn::Button;
        if (!counts || !IsSeen(column))
            continue;
        first = first < 0 ? i : first;
        last = i;
    }
    return first < 0 ? Columns{} : Columns{first, last - first + 1};
}

/// A hidden column under it would still take the space between columns.
void FrameView::Spread(Wide& wide, Columns over)
{
    if (wide.over == over)
        return;
    rows_->removeWidget(wide.widget);
    rows_->addWidget(wide.widget, wide.line, over.first, 1, over.count);
    wide.over = over;
}

void FrameView::AddButtons(const ButtonRow& row)
{
    const auto add = [this](QHBoxLayout& side, const std::vector<Control*>& buttons) {
        for (Control* button : buttons)
            side.addWidget(form.Add(*button, {.parent = side.parentWidget(), .inRow = false}).widget());
    };
    add(*row.left, frame_.layout().buttonsLeft);
    add(*row.right, frame_.layout().buttonsRight);
}

QRect FrameView::FinalRow() const
{
    for (const Wide& wide : wide_)
        if (wide.totalBelow && wide.totalBelow->style == RowStyle::Final && IsShown(*wide.totalBelow)) {
            const QRect row = rows_->cellRect(wide.line, 0).united(rows_->cellRect(wide.line + 1, 0));
            return row.translated(rows_->parentWidget()->mapTo(widget(), QPoint())).adjusted(0, -kUnit, 0, kUnit);
        }
    return {};
}

bool FrameView::TakesHeight() const
{
    return std::any_of(ofHeight_.begin(), ofHeight_.end(),
                       [](const auto* view) -> bool { return view->control.visible; });
}

void FrameView::FitInto(int height)
{
    int beyond = 0;
    for (const ControlView* view : ofHeight_)
        beyond += view->BeyondLeast();
    const QWidget& content = *(frame_.place == FramePlace::Card ? rows_->parentWidget() : widget());
    const int least = content.minimumSizeHint().height() - beyond - Gaps() * rows_->verticalSpacing();
    const int spacing = least + Gaps() * kUnit <= height ? kUnit : kUnit / 2;
    for (ControlView* view : ofHeight_)
        view->ShowWhole(least + Gaps() * spacing > height);
    if (spacing != rows_->verticalSpacing())
        rows_->setVerticalSpacing(spacing);
}

/// Spaces between rows that are there.
int FrameView::Gaps() const
{
    int rows = 0;
    for (int line = 0; line < rows_->rowCount(); ++line) {
        bool isThere = false;
        for (int column = 0; !isThere && column < rows_->columnCount(); ++column) {
            QLayoutItem* item = rows_->itemAtPosition(line, column);
            isThere = item && !item->isEmpty();
        }
        rows += isThere ? 1 : 0;
    }
    return std::max(0, rows - 1);
}

void FrameView::FromModel()
{
    widget()->setVisible(frame_.visible);
    heading_->setVisible(!frame_.caption.get().empty());
    heading_->setText(PlainCaption(frame_.caption));
    widget()->setAccessibleName(heading_->text());
    NameFields();
    const Columns texts = Seen(false);
    const Columns all = Seen(true);
    for (Wide& wide : wide_) {
        if (wide.totalBelow)
            wide.widget->setVisible(IsShown(*wide.totalBelow));
        Spread(wide, wide.totalBelow ? texts.UpTo(wide.totalBelow->cells.size()) : all);
    }
}

} // namespace pgbp
