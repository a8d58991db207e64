#pragma once

#include "controls/grid.h"
#include "desktop/control_view.h"

class QTableView;

namespace pgbp {

class CaptionLine;
class GridFoot;
class GridModel;

/// A grid: heading and totals fixed, amounts at the right and never scrolled out, texts share what is left and elide.
class GridView : public ControlView {
  public:
    GridView(Grid& itsGrid, FormView& itsForm, const Place& place);
    ~GridView() override;

    void FromModel() override;
    bool KeyPressed(const QKeyEvent& event) override;
    bool Noticed(QEvent& event) override;
    bool TakesHeight() const override { return true; }
    void ShowWhole(bool whole) override;
    int BeyondLeast() const override;
    QRect Spot() const override;
    QWidget* keyboard() const override;

  protected:
    bool Wants(Key key) const override;

  private:
    void Dress();
    void ShareWidth();
    bool IsText(int column) const;
    /// Of a column that is not a text, which shares what is left: 0 then.
    int FixedWidth(int column, bool isNarrow) const;
    int LeastOfText(int column) const;
    int WidthOfAll() const;
    int WidthOf(const QString& text) const;
    void Measure();
    void AskForWidth();
    void Resized(int column, int width);
    QString NameInMemory() const;
    void ShowFoot();
    void HideAndShow();
    void UpdateCells(const std::vector<std::pair<int, int>>& cells);
    void FollowCurrentCell();
    void ShowCurrentRow();
    bool HasFocus() const;
    void MakeEntry();
    void PlaceEditor();
    void ShowWholeCaption();
    QString CopiedText(int row, int column) const;
    void Copy() const;

    Grid& grid_;
    std::unique_ptr<GridModel> model_;
    QWidget* box_; ///< the rows with their totals below
    QTableView* table_;
    GridFoot* foot_ = nullptr;     ///< made when there is a total first
    CaptionLine* whole_ = nullptr; ///< where cells are entered: the caption of the current row, which its cell may cut
    int changedListener_ = 0;
    int cellListener_ = 0;
    int movedListener_ = 0;
    std::vector<std::size_t> longest_; ///< of the texts in each column: how many bytes
    std::vector<int> widest_;          ///< and its width
    int first_ = 0;                    ///< the first column that is seen
    int caption_ = -1;                 ///< the column that tells what a row is: the widest text
    QString longestCaption_;
    std::pair<QString, int> measuredFor_;    ///< the longest caption and the width that its lines were counted for
    bool hasTotals_ = false;                 ///< rows that are drawn with more weight
    bool stale_ = true;                      ///< the grid changed since it was last drawn
    bool moved_ = true;                      ///< and so did the current cell
    std::vector<std::pair<int, int>> cells_; ///< else: the cells that changed
    std::vector<int> chosen_;                ///< widths that the preparer gave to columns; 0: none
    bool sharing_ = false;
};

} // namespace pgbp
