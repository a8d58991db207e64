#pragma once

#include "suite/finding.h"

#include <QAbstractTableModel>

namespace pgbp {

/// The findings of a check as rows of a table.
class FindingsModel : public QAbstractTableModel {
  public:
    enum Column { Client, Year, What, Where, Stored, Follows, Code, ColumnCount };
    /// Of a cell: what it is sorted by. An amount counts as a number.
    static constexpr int kSortRole = Qt::UserRole;

    void Clear();
    void Add(std::vector<Finding> more);
    void RemoveOf(const std::string& code);
    const Finding& At(int row) const { return findings_[static_cast<std::size_t>(row)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    std::vector<Finding> findings_;
};

} // namespace pgbp
