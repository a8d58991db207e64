#pragma once

#include "module/module.h"
#include "report/computation_reader.h"
#include "startup/sub_main.h"
#include "suite/assessee_years.h"
#include "suite/client_settings.h"
#include "suite/hand_over_row.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pgbp {

/// A practice of its own with the demonstration clients.
class Demonstration {
  public:
    Demonstration()
    {
        std::filesystem::copy(Template(), root, std::filesystem::copy_options::recursive);
        folder_.Write("practice/Drive.txt", (root / "handover").string());
    }

    HandOver RecordOf(const std::string& code) const
    {
        const Practice practice(root);
        HandOver record = PrepareHandOver(practice, FindAssesseeYear(practice, code));
        ApplySettings(record, ReadSettings(practice, code));
        return record;
    }

    report::Document Read(const HandOver& record) const
    {
        const Practice practice(root);
        report::ClientCopy copy({root, practice.company, practice.balance, practice.tax}, record,
                                ReturnFormOf(root, record.Glcode));
        return report::ReadComputation(copy);
    }
    report::Document Read(const std::string& code) const { return Read(RecordOf(code)); }

    std::vector<std::string> Codes() const
    {
        std::vector<std::string> codes;
        for (const AssesseeYear& each : AssesseeYears(Practice(root)))
            codes.push_back(each.code);
        return codes;
    }

  private:
    static const std::filesystem::path& Template()
    {
        static const TemporaryFolder folder;
        static const std::filesystem::path made = [] {
            const auto path = folder.path() / "practice";
            CreatePractice(path, PGBP_DATA);
            return path;
        }();
        return made;
    }

    const TemporaryFolder folder_;

  public:
    const std::filesystem::path root = folder_.path() / "practice";
};

inline const report::Section* FindSection(const report::Document& document, std::string_view title)
{
    for (const report::Section& section : document.sections)
        if (section.title.find(title) != std::string::npos)
            return &section;
    return nullptr;
}

/// The cells of the row with this text in its first cell; none when no table of the section has one.
inline std::vector<std::string> CellsOf(const report::Section& section, std::string_view caption)
{
    for (const report::Table& table : section.tables)
        for (const report::Row& row : table.rows)
            if (row.cells.front() == caption)
                return row.cells;
    return {};
}

inline std::string RemarkOf(const report::Section& section, std::string_view caption)
{
    for (const report::Table& table : section.tables)
        for (const report::Row& row : table.rows)
            if (row.cells.front() == caption)
                return row.remark;
    return {};
}

} // namespace pgbp
