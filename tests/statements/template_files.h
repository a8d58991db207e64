#pragma once

#include "statements/template_row.h"

#include <map>
#include <string>
#include <vector>

namespace pgbp::test {

/// A template as its data file holds it, with the order number beside each row.
struct TemplateFile {
    std::string name; ///< d_type
    std::vector<int> pslno{};
    std::vector<std::vector<std::string>> texts{}; ///< of the rows, which view them
    std::vector<TemplateRow> rows{};

    /// Line of the number `slno`, 1 for the first; 0 where the template lacks it.
    std::size_t Line(int slno) const;
    const TemplateRow& At(std::size_t line) const { return rows.at(line - 1); }
};

/// All templates of the data folders, and the one layout that only the tests hold.
const std::vector<TemplateFile>& TemplateFiles();
const TemplateFile& TemplateNamed(const std::string& name);

/// The rules of each form written out in full, as the tests hold them: name -> "5 = 3..4; ...".
const std::map<std::string, std::string>& RulesInFull();

std::string CaptionOf(const TemplateRow& row);

} // namespace pgbp::test
