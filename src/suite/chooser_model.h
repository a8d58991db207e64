#pragma once

#include "suite/assessee_years.h"

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

namespace pgbp {

/// The assessee-years as rows of a table.
class AssesseeYearModel : public QAbstractTableModel {
  public:
    enum Column { Client, Year, Status, Pan, Head, Code, ColumnCount };

    void Show(std::vector<AssesseeYear> years);
    const AssesseeYear& At(int row) const { return years_[static_cast<std::size_t>(row)]; }
    /// Row of the code; -1 when there is none.
    int RowOf(const std::string& code) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    std::vector<AssesseeYear> years_;
};

/// Those rows of the model that hold the text that was typed.
class SearchModel : public QSortFilterProxyModel {
  public:
    explicit SearchModel(AssesseeYearModel& years);
    void Search(const QString& text);

  protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

  private:
    AssesseeYearModel& years_;
    std::string text_;
};

} // namespace pgbp
