#include "suite/years_chart.h"

#include "services/year.h"

#include <algorithm>
#include <cmath>

namespace pgbp {
namespace {

constexpr double kLeastBar = 2;     // an amount that is not 0 is seen beside one a million times as high
constexpr double kOverflow = 1e300; // sums and differences below it stay finite

double DrawnAmount(double amount) { return std::clamp(amount, -kOverflow, kOverflow); }

struct Range {
    double lowest = 0, highest = 0;
};

Range RangeOf(std::span<const ClientYear> years)
{
    Range range;
    for (const ClientYear& year : years)
        if (year.head) {
            range.lowest = std::min(range.lowest, DrawnAmount(*year.head));
            range.highest = std::max(range.highest, DrawnAmount(*year.head));
        }
    return range;
}

bool IsGap(const ClientYear& before, const ClientYear& after)
{
    return YearNumber(after.year) - YearNumber(before.year) > 1;
}

/// The least of 1, 2 or 5 and zeros that is not below the amount.
double RoundStep(double least)
{
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1, 2, 5})
        if (factor * power >= least * (1 - 1e-9))
            return factor * power;
    return 10 * power;
}

/// Columns from left to right. Where a year is missing half a column stays free. The first and the last label keep
/// within the field where they are wider than their columns.
void PlaceColumns(YearsChart& chart, std::span<const ClientYear> years, std::size_t marked, double width,
                  double usualColumn, double label, double gap)
{
    double units = 0; // columns, and the halves between them
    for (std::size_t i = 0; i < years.size(); ++i) {
        chart.columns[i].followsGap = i > 0 && IsGap(years[i - 1], years[i]);
        units += chart.columns[i].followsGap ? 1.5 : 1;
    }
    const double field = std::max(0.0, width - chart.left);
    double column = std::min(field / units, usualColumn);
    if (column < label && units > 1)
        column = std::max(0.0, (field - label) / (units - 1));
    const double bar = std::min(0.6 * column, label);
    const auto every = static_cast<std::size_t>(std::ceil((label + gap) / std::max(column, 1.0)));
    double left = chart.left + (units > 1 ? std::max(0.0, label - column) / 2 : 0);
    for (std::size_t i = 0; i < years.size(); ++i) {
        YearsChart::Column& place = chart.columns[i];
        left += place.followsGap ? column / 2 : 0;
        place.left = left;
        place.right = left += column;
        place.barLeft = (place.left + place.right - bar) / 2;
        place.barRight = place.barLeft + bar;
        place.isLabelled = (i > marked ? i - marked : marked - i) % every == 0;
    }
    chart.right = left;
}

double WidestOf(const std::vector<std::string>& texts, const TextRoom& room)
{
    double widest = 0;
    for (const std::string& text : texts)
        widest = std::max(widest, room.width(text));
    return widest;
}

/// The bars and the lines of the ticks, between the two heights.
void PlaceHeights(YearsChart& chart, std::span<const ClientYear> years, const std::vector<double>& roundAmounts,
                  double top, double bottom)
{
    const auto [lowest, highest] = RangeOf(years);
    const double span = highest - lowest;
    const auto heightOf = [&, low = lowest](double amount) {
        return span > 0 ? bottom - (amount - low) / span * (bottom - top) : bottom;
    };
    chart.zero = heightOf(0);
    for (const double amount : roundAmounts)
        chart.ticks.push_back({heightOf(amount), RoundFigure(amount)});
    for (std::size_t i = 0; i < years.size(); ++i) {
        YearsChart::Column& place = chart.columns[i];
        place.top = place.bottom = chart.zero;
        place.hasBar = years[i].head.has_value();
        const double head = DrawnAmount(years[i].head.value_or(0));
        if (head < 0)
            place.bottom = std::max(heightOf(head), chart.zero + kLeastBar);
        else if (head > 0)
            place.top = std::min(heightOf(head), chart.zero - kLeastBar);
    }
}

} // namespace

std::optional<std::size_t> YearsChart::ColumnAt(double x) const
{
    const auto found =
        std::ranges::find_if(columns, [x](const Column& column) { return x >= column.left && x < column.right; });
    if (found == columns.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - columns.begin());
}

std::vector<double> RoundAmounts(double lowest, double highest, int steps)
{
    const double span = highest - lowest;
    if (span <= 0)
        return {0};
    const double step = RoundStep(span / std::max(1, steps));
    std::vector<double> amounts;
    for (double i = std::ceil(lowest / step - 1e-9); i <= highest / step + 1e-9; ++i)
        amounts.push_back(i * step + 0.0); // no minus before the zero
    return amounts;
}

YearsChart LayOut(std::span<const ClientYear> years, std::size_t marked, double width, double height,
                  const TextRoom& room)
{
    YearsChart chart;
    chart.columns.resize(years.size());
    if (years.empty())
        return chart;
    const double line = room.lineHeight, gap = line / 2;
    chart.labels = height - line;

    const Range range = RangeOf(years);
    const int steps = static_cast<int>((chart.labels - 2 * line) / (1.1 * line));
    const std::vector<double> roundAmounts = RoundAmounts(range.lowest, range.highest, steps);
    std::vector<std::string> ticks, labels, figures;
    std::ranges::transform(roundAmounts, std::back_inserter(ticks), RoundFigure);
    for (const ClientYear& year : years) {
        labels.push_back(year.year);
        figures.push_back(year.head ? ExactFigure(*year.head) : HeadInWords(year));
    }
    chart.left = std::min(WidestOf(ticks, room) + gap, width / 3);

    const double label = WidestOf(labels, room), figure = WidestOf(figures, room) + gap;
    PlaceColumns(chart, years, marked, width, std::max(3 * label, figure), label, gap);
    chart.hasFigures = figure <= chart.columns[0].right - chart.columns[0].left;

    const auto isLoss = [](const ClientYear& year) { return year.head.value_or(0) < 0; };
    const double above = chart.hasFigures && !std::ranges::all_of(years, isLoss) ? line : kLeastBar;
    const double below = chart.hasFigures && std::ranges::any_of(years, isLoss) ? line : kLeastBar;
    PlaceHeights(chart, years, roundAmounts, above, std::max(above + 1, chart.labels - below));
    return chart;
}

} // namespace pgbp
