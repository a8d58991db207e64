#pragma once

#include "store/value.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// One row of a recordset: a view that lives as long as the recordset.
class Row {
  public:
    Row(const std::vector<std::string>& columns, const Value* values) : columns_(&columns), values_(values) {}

    /// The field by name, in any case. Throws std::out_of_range for a name that the statement does not give.
    const Value& operator[](std::string_view column) const;

    std::size_t Size() const { return columns_->size(); }
    const std::string& Name(std::size_t column) const { return (*columns_)[column]; }
    const Value& At(std::size_t column) const { return values_[column]; }

  private:
    const std::vector<std::string>* columns_;
    const Value* values_;
};

/// All rows of one statement, in memory.
class Recordset {
  public:
    class Iterator;

    Recordset() = default;
    Recordset(std::shared_ptr<const std::vector<std::string>> columns, std::vector<Value> values)
        : columns_(std::move(columns)), values_(std::move(values))
    {
    }

    bool Empty() const { return values_.empty(); }
    std::size_t Size() const { return columns_ ? values_.size() / columns_->size() : 0; }
    const std::vector<std::string>& Columns() const { return *columns_; }
    Row operator[](std::size_t row) const { return {*columns_, &values_[row * columns_->size()]}; }
    Row First() const { return (*this)[0]; }

    Iterator begin() const;
    Iterator end() const;

  private:
    std::shared_ptr<const std::vector<std::string>> columns_;
    std::vector<Value> values_;
};

class Recordset::Iterator {
  public:
    Iterator(const Recordset& rows, std::size_t at) : rows_(&rows), at_(at) {}
    Row operator*() const { return (*rows_)[at_]; }
    Iterator& operator++()
    {
        ++at_;
        return *this;
    }
    bool operator!=(const Iterator& other) const { return at_ != other.at_; }

  private:
    const Recordset* rows_;
    std::size_t at_;
};

/// All fields of all rows, Null told apart from an empty text: equal rows give equal texts.
std::string AsText(const Recordset& rows);

inline Recordset::Iterator Recordset::begin() const { return {*this, 0}; }
inline Recordset::Iterator Recordset::end() const { return {*this, Size()}; }

/// One row kept beyond its recordset, as it was read.
class Record {
  public:
    Record() = default;
    explicit Record(const Row& row);
    /// The field by name, in any case; Null for a name that is not there.
    const Value& operator[](std::string_view column) const;

  private:
    std::vector<std::string> columns_;
    std::vector<Value> values_;
};

} // namespace pgbp
