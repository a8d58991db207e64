#include "desktop/frame_view.h"

#include "controls/buttons.h"
#include "controls/text_controls.h"
#include "desktop/captions.h"
#include "desktop/form_view.h"
#include "desktop/label_view.h"
#include "desktop/theme.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace pgbp {
namespace {

class Page : public QScrollArea {
  public:
    using QScrollArea::QScrollArea;
    QSize sizeHint() const override { return widget()->sizeHint(); }
    QSize minimumSizeHint() const override { return {60 * kUnit, 20 * kUnit}; }
};

/// How much of the width that is left over a column takes.
int Stretch(LayoutColumn column, const std::vector<LayoutColumn>& columns)
{
    const bool hasFields = std::find(columns.begin(), columns.end(), LayoutColumn::Field) != columns.end();
    return column == (hasFields ? LayoutColumn::Field : LayoutColumn::Caption) ? 1 : 0;
}

/// A button or a field stays in its column even where it stands alone.
bool TakesWholeRow(const Control& control)
{
    const auto* box = dynamic_cast<const TextBox*>(&control);
    return box ? box->multiLine : !dynamic_cast<const cmd*>(&control);
}

Qt::Alignment SideOf(const Control& control, LayoutColumn column)
{
    if (column == LayoutColumn::Amount)
        return Qt::AlignRight | Qt::AlignVCenter;
    const auto* box = dynamic_cast<const TextBox*>(&control);
    const bool isWide = box || dynamic_cast<const cmd*>(&control) || dynamic_cast<const label*>(&control);
    return isWide ? Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter;
}

} // namespace

QScrollArea* MakePage(QWidget* content, QWidget* parent)
{
    auto* page = new Page(parent);
    page->setWidgetResizable(true);
    page->setFrameShape(QFrame::NoFrame);
    page->setFocusPolicy(Qt::NoFocus);
    page->setWidget(content);
    page->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    return page;
}

FrameView::FrameView(frame& itsFrame, FormView& itsForm, const Place& place)
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
    QWidget* rows = Rows(panel);
    const bool scrolls = frame_.place == FramePlace::Card;
    box->addWidget(scrolls ? MakePage(rows, panel) : rows, 1);
    if (frame_.place != FramePlace::Main)
        AddOwnButtons(*box);
}

QWidget* FrameView::Rows(QWidget* parent)
{
    auto* page = new QWidget(parent);
    auto* rows = new QGridLayout(page);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setHorizontalSpacing(3 * kUnit);
    rows->setVerticalSpacing(kUnit);
    const auto& columns = frame_.layout().columns;
    for (int i = 0; i < Columns(); ++i)
        rows->setColumnStretch(i, Stretch(columns[static_cast<std::size_t>(i)], columns));
    for (const LayoutRow& row : frame_.layout().rows)
        AddRow(*rows, row);
    if (!takesHeight_)
        rows->setRowStretch(rows->rowCount(), 1);
    return page;
}

void FrameView::AddRow(QGridLayout& rows, const LayoutRow& row)
{
    if (row.style == RowStyle::Total || row.style == RowStyle::Final)
        AddRule(rows, row);
    const int line = rows.rowCount();
    LabelView* caption = nullptr;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        if (!row.cells[i])
            continue;
        ControlView& view = AddCell(rows, row, i, line);
        auto* text = dynamic_cast<LabelView*>(&view);
        if (text && frame_.layout().columns[i] == LayoutColumn::Caption)
            caption = text;
        else if (caption && row.cells[i]->TakesFocus() && !dynamic_cast<cmd*>(row.cells[i]))
            std::exchange(caption, nullptr)->SetBuddy(view.keyboard());
    }
}

ControlView& FrameView::AddCell(QGridLayout& rows, const LayoutRow& row, std::size_t column, int line)
{
    Control& cell = *row.cells[column];
    const bool whole = row.cells.size() == 1 && TakesWholeRow(cell);
    const LayoutColumn kind = whole ? LayoutColumn::Field : frame_.layout().columns.at(column);
    ControlView& view = form.Add(cell, {rows.parentWidget(), kind, row.style});
    if (view.TakesHeight()) {
        rows.setRowStretch(line, 1);
        takesHeight_ = true;
    }
    if (whole)
        rows.addWidget(view.widget(), line, 0, 1, Columns());
    else
        rows.addWidget(view.widget(), line, static_cast<int>(column), SideOf(cell, kind));
    return view;
}

/// Under the columns of captions and figures, not under the buttons at the left.
void FrameView::AddRule(QGridLayout& rows, const LayoutRow& row)
{
    auto* rule = new QFrame(rows.parentWidget());
    const bool isFinal = row.style == RowStyle::Final;
    rule->setProperty("rule", isFinal ? "double" : "single");
    rule->setFixedHeight(isFinal ? kUnit : 1);
    const auto& columns = frame_.layout().columns;
    const auto isButton = [](LayoutColumn column) { return column == LayoutColumn::Button; };
    const auto first = std::find_if_not(columns.begin(), columns.end(), isButton) - columns.begin();
    const auto last = columns.rend() - std::find_if_not(columns.rbegin(), columns.rend(), isButton);
    rows.addWidget(rule, rows.rowCount(), static_cast<int>(first), 1, static_cast<int>(last - first));
    rules_.push_back({rule, &row});
}

void FrameView::AddOwnButtons(QVBoxLayout& box)
{
    const Layout& layout = frame_.layout();
    if (layout.buttonsLeft.empty() && layout.buttonsRight.empty())
        return;
    auto* row = new QHBoxLayout;
    auto* right = new QHBoxLayout;
    row->setSpacing(2 * kUnit);
    right->setSpacing(2 * kUnit);
    box.addSpacing(kUnit);
    box.addLayout(row);
    AddButtons(*row, *right);
    row->addStretch(1);
    row->addLayout(right);
}

void FrameView::AddButtons(QHBoxLayout& left, QHBoxLayout& right)
{
    const auto add = [this](QHBoxLayout& to, const std::vector<Control*>& buttons) {
        QWidget* parent = to.parentWidget() ? to.parentWidget() : widget();
        for (Control* button : buttons)
            to.addWidget(form.Add(*button, {.parent = parent, .inRow = false}).widget());
    };
    add(left, frame_.layout().buttonsLeft);
    add(right, frame_.layout().buttonsRight);
}

void FrameView::FromModel()
{
    widget()->setVisible(frame_.visible);
    heading_->setVisible(!frame_.caption.get().empty());
    heading_->setText(PlainCaption(frame_.caption));
    widget()->setAccessibleName(heading_->text());
    for (const Rule& rule : rules_)
        rule.line->setVisible(std::any_of(rule.row->cells.begin(), rule.row->cells.end(),
                                          [](const Control* cell) { return cell && cell->visible; }));
}

} // namespace pgbp
