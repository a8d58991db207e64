#pragma once

#include "suite/year_list.h"

#include <QAbstractTableModel>

#include <functional>

namespace pgbp {

/// The list of assessee-years as rows of a table.
class AssesseeYearModel : public QAbstractTableModel {
  public:
    explicit AssesseeYearModel(YearList& list) : list_(list) {}

    /// Does something to the list that changes its rows.
    void Change(const std::function<void()>& work);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    YearList& list_;
};

} // namespace pgbp
