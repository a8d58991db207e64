#include "records/used_texts.h"

#include "services/text.h"

#include <algorithm>

namespace pgbp {
namespace {

void AddOnce(std::vector<std::string>& texts, const std::string& text)
{
    const bool isThere = std::any_of(texts.begin(), texts.end(),
                                     [&](const std::string& other) { return EqualsIgnoringCase(other, text); });
    if (!text.empty() && !isThere)
        texts.push_back(text);
}

/// `type` is that of the rows; empty for all.
UsedTexts Read(const Run& run, const std::string& table, std::string_view type)
{
    UsedTexts used;
    const auto add = [&](const Recordset& rows) {
        for (const Row row : rows) {
            if (!type.empty() && !EqualsIgnoringCase(row["Type"].Text(), type))
                continue;
            AddOnce(used.name1, Trim(row["name1"].Text()));
            AddOnce(used.name2, Trim(row["name2"].Text()));
        }
    };
    const std::string columns = "select [Type], name1, name2 from {" + table + "}";
    for (const std::string& code : {run.Glcode, run.GlPrCode})
        add(run.company.Query(columns + " where code = ?", code));
    if (const std::string_view latest = run.company.dialect().latestRows; !latest.empty())
        add(run.company.Query(columns + std::string(latest)));
    return used;
}

} // namespace

UsedTexts TextsUsedInLists(const Run& run, std::string_view type) { return Read(run, "business1", type); }

UsedTexts TextsUsedInLines(const Run& run) { return Read(run, "business", ""); }

} // namespace pgbp
