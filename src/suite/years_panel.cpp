#include "suite/years_panel.h"

#include "desktop/captions.h"
#include "desktop/elided_label.h"
#include "desktop/theme.h"
#include "suite/years_chart_view.h"

#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>

namespace pgbp {
namespace {

ElidedLabel* LineOf(QVBoxLayout& column, QWidget* parent, Type type)
{
    auto* label = new ElidedLabel(parent);
    label->setFont(FontOf(type));
    label->GiveWay(0);
    column.addWidget(label);
    return label;
}

} // namespace

YearsPanel::YearsPanel(QWidget* parent, YearList& list) : QWidget(parent), list_(list)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addStretch();
    client_ = LineOf(*column, this, Type::Heading);
    year_ = LineOf(*column, this, Type::Base);
    year_->SetColor(Theme().muted);
    head_ = LineOf(*column, this, Type::Total);
    column->addStretch();
    chart_ = new YearsChartView(this);
    chart_->tells = [this](const ClientYear& year) { Tell(year); };
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(2 * kUnit, kUnit, kUnit, kUnit);
    row->setSpacing(2 * kUnit);
    row->addLayout(column, 1);
    row->addWidget(chart_, 4);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    stays_.setSingleShot(true);
    connect(&stays_, &QTimer::timeout, this, [this] { ShowMarked(); });
}

void YearsPanel::Mark(std::optional<std::size_t> row)
{
    stays_.stop();
    row_ = row;
    if (isHidden())
        return;
    if (!row || list_.KnowsYearsOfClient(*row)) {
        ShowMarked();
        return;
    }
    ShowNothingOf(Text(list_.At(*row).name)); // no figures of another client beside this one's row
    stays_.start(kStays);
}

void YearsPanel::ShowNothingOf(const QString& client)
{
    client_->Show(client);
    year_->Show("");
    head_->Show("");
    chart_->Show(client, {}, 0);
}

void YearsPanel::ShowMarked()
{
    if (!row_ || *row_ >= list_.Size()) {
        ShowNothingOf("");
        return;
    }
    const AssesseeYear& marked = list_.At(*row_);
    std::vector<ClientYear> years = list_.YearsOfClient(*row_);
    const auto place = std::ranges::find(years, marked.code, &ClientYear::code) - years.begin();
    client_->Show(Text(marked.name));
    chart_->Show(Text(marked.name), std::move(years), static_cast<std::size_t>(place));
}

void YearsPanel::Tell(const ClientYear& year)
{
    year_->Show("Head of income " + Text(year.year));
    head_->SetColor(year.head.value_or(0) < 0 ? Theme().negative : Theme().text);
    head_->Show(Text(HeadInWords(year)));
}

void YearsPanel::GiveWay(int windowHeight)
{
    constexpr int rowsBesides = 13, listRows = 8;
    const bool fits = windowHeight >= rowsBesides * RowHeight() + listRows * GridRowHeight() + 3 * kPadding;
    if (fits != isHidden())
        return;
    setVisible(fits);
    Mark(row_);
}

void YearsPanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Theme().line);
    painter.setBrush(Theme().panel);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}

} // namespace pgbp
