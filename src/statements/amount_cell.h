#pragma once

#include <string>
#include <string_view>

namespace pgbp {

/// A cell of a statement's amount column: the text that the preparer sees and the number that this text stands for,
/// read once when the text is set. The number is what the text begins with, its grouping commas left out; an empty
/// cell, and a text that is no number, count as 0.
class AmountCell {
  public:
    AmountCell() = default;
    explicit AmountCell(std::string_view text) { SetText(text); }

    const std::string& text() const { return text_; }
    double figure() const { return figure_; }

    void SetText(std::string_view text);

    /// Takes a total through "###0.00" and the grouping. Places of zero are not shown: 1500 is "1,500", 1500.5 is
    /// "1,500.5". Throws std::overflow_error for a figure that is not finite.
    void SetRounded(double figure);

    /// Takes a figure with all the places it has, grouped.
    void SetAsItStands(double figure);

  private:
    void SetPlaces(const std::string& places);
    void SetWhole(double figure);

    std::string text_;
    double figure_ = 0;
    bool isWhole_ = false; ///< the text is what SetWhole wrote for the figure
};

} // namespace pgbp
