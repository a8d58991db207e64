#include "records/used_texts.h"

#include "services/text.h"

#include <unordered_set>

namespace pgbp {
namespace {

/// Texts in the order in which they came, each in its first writing. The rows that they stand in outlive it.
class TextsOnce {
  public:
    void Add(std::string_view field)
    {
        if (!seenAsItIs_.insert(field).second) // most are written alike
            return;
        std::string text = Trim(field);
        if (!text.empty() && seen_.insert(Upper(text)).second)
            texts.push_back(std::move(text));
    }

    std::vector<std::string> texts;

  private:
    std::unordered_set<std::string_view> seenAsItIs_;
    std::unordered_set<std::string> seen_;
};

/// `type` is that of the rows; empty for all.
UsedTexts Read(const Run& run, const std::string& table, std::string_view type)
{
    const std::string columns =
        std::string("select name1, name2") + (type.empty() ? "" : ", [Type]") + " from {" + table;
    std::vector<Recordset> found;
    found.push_back(run.company.Query(columns + "} where code in (?, ?)", run.Glcode, run.GlPrCode));
    if (const std::string_view latest = run.company.dialect().latestRows; !latest.empty())
        found.push_back(run.company.Query(columns + '}' + std::string(latest)));
    TextsOnce name1;
    TextsOnce name2;
    for (const Recordset& rows : found)
        for (const Row row : rows)
            if (type.empty() || EqualsIgnoringCase(row.At(2).HeldText(), type)) {
                name1.Add(row.At(0).HeldText());
                name2.Add(row.At(1).HeldText());
            }
    return {std::move(name1.texts), std::move(name2.texts)};
}

} // namespace

UsedTexts TextsUsedInLists(const Run& run, std::string_view type) { return Read(run, "business1", type); }

UsedTexts TextsUsedInLines(const Run& run) { return Read(run, "business", ""); }

} // namespace pgbp
