#pragma once

#include "workbook/record_writer.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace pgbp::xls {

/// The texts of all cells of a workbook, each once.
class SharedStrings {
  public:
    /// The text's number in the table, which takes it in if it is new. Throws WorkbookError for one that does not fit
    /// into a cell.
    std::size_t NumberOf(const std::string& text);

    void Write(std::string& stream) const;

  private:
    std::unordered_map<std::string, std::size_t> numbers_;
    std::vector<EncodedText> texts_;
    std::size_t uses_ = 0;
};

} // namespace pgbp::xls
