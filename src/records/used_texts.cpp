#include "records/used_texts.h"

#include "services/text.h"

#include <unordered_set>

namespace pgbp {
namespace {

/// Texts in the order in which they came, each in its first writing.
class TextsOnce {
  public:
    void Add(const Value& field)
    {
        std::string text = Trim(field.Text());
        if (!text.empty() && seen_.insert(Upper(text)).second)
            texts.push_back(std::move(text));
    }

    std::vector<std::string> texts;

  private:
    std::unordered_set<std::string> seen_;
};

/// `type` is that of the rows; empty for all.
UsedTexts Read(const Run& run, const std::string& table, std::string_view type)
{
    TextsOnce name1;
    TextsOnce name2;
    const auto add = [&](const Recordset& rows) {
        for (const Row row : rows) {
            if (!type.empty() && !EqualsIgnoringCase(row.At(0).Text(), type))
                continue;
            name1.Add(row.At(1));
            name2.Add(row.At(2));
        }
    };
    const std::string columns = "select [Type], name1, name2 from {" + table + "}";
    for (const std::string& code : {run.Glcode, run.GlPrCode})
        add(run.company.Query(columns + " where code = ?", code));
    if (const std::string_view latest = run.company.dialect().latestRows; !latest.empty())
        add(run.company.Query(columns + std::string(latest)));
    return {std::move(name1.texts), std::move(name2.texts)};
}

} // namespace

UsedTexts TextsUsedInLists(const Run& run, std::string_view type) { return Read(run, "business1", type); }

UsedTexts TextsUsedInLines(const Run& run) { return Read(run, "business", ""); }

} // namespace pgbp
