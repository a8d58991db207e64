#pragma once

#include "suite/client_years.h"

#include <functional>
#include <vector>

namespace pgbp {

/// How much room texts take.
struct TextRoom {
    std::function<double(const std::string&)> width;
    double lineHeight = 0;
};

/// Where a chart of a client's years has its bars, lines and texts, in units of the window, downwards from the top
/// left. Heads of income stand above the line of zero, losses below it, and a head that is not written has no bar.
/// Plain figures: the drawing itself is the window's.
struct YearsChart {
    struct Column {
        double left = 0, right = 0;       ///< over the whole height: what is pointed at
        double barLeft = 0, barRight = 0; ///< centred in the column
        double top = 0, bottom = 0;       ///< of the bar
        bool hasBar = false;
        bool isLabelled = false; ///< there is room for the year below it
        bool followsGap = false; ///< the client has no such year as should stand before it
    };
    struct Tick {
        double y = 0;
        std::string text;
    };

    std::vector<Column> columns; ///< one for each year
    std::vector<Tick> ticks;     ///< round amounts, zero among them
    double left = 0;             ///< the texts of the ticks end before it
    double right = 0;            ///< end of the last column
    double zero = 0;
    double labels = 0;       ///< top of the line of years
    bool hasFigures = false; ///< there is room for the exact figure of each year, above its bar or, of a loss, below it

    std::optional<std::size_t> ColumnAt(double x) const;
};

/// The year in the place `marked` keeps its label where there is not room for all.
YearsChart LayOut(std::span<const ClientYear> years, std::size_t marked, double width, double height,
                  const TextRoom& room);

/// Round amounts (1, 2 or 5 and zeros) between two, zero among them; at most so many steps. `lowest` is not above zero,
/// `highest` not below it.
std::vector<double> RoundAmounts(double lowest, double highest, int steps);

} // namespace pgbp
