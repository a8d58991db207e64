#pragma once

#include "statements/workbook/record_writer.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace pgbp::xls {

/// The texts of all cells of a workbook, each once.
class SharedStrings {
  public:
    /// The text's number in the table, adding it if it is new. `what` names the text in the message of the WorkbookError
    /// for one that does not fit into a cell.
    template <typename What>
    std::size_t NumberOf(const std::string& text, What what)
    {
        const auto [entry, isNew] = numbers_.try_emplace(text, texts_.size());
        if (isNew)
            texts_.push_back(EncodeCellText(text, what()));
        ++uses_;
        return entry->second;
    }

    void Write(std::string& stream) const;

  private:
    std::unordered_map<std::string, std::size_t> numbers_;
    std::vector<EncodedText> texts_;
    std::size_t uses_ = 0;
};

} // namespace pgbp::xls
