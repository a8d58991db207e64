#pragma once

#include "services/fault.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pgbp {

/// A file that is no audit report, or one that can not be taken; what the preparer is told.
class ReportError : public Fault {
  public:
    using Fault::Fault;
};

/// The plain members of an element or object: names without prefix, texts without blanks around them.
class Members {
  public:
    void Add(std::string_view name, std::string_view text);
    /// The text of the first of the names that has one, in any case of letters; empty where none has.
    const std::string& operator[](std::initializer_list<std::string_view> names) const;

  private:
    std::vector<std::pair<std::string, std::string>> texts_;
};

/// One block of assets as the report has it (Form 3CD, clause 18).
struct ReportedBlock {
    Members members;
    std::vector<Members> additions;
    std::vector<Members> deductions;
};

inline constexpr std::string_view kBlockElement = "Form3cdDeprAllw";
inline constexpr std::string_view kAdditionElement = "Additions";
inline constexpr std::string_view kDeductionElement = "Deductions";

/// The blocks of a report in the XML schema of the audit forms, in the order of the file: the elements count wherever
/// they stand, whatever their name-space prefix. What a document type declares is not looked at: a file that has one is
/// refused, as is one that is not well-formed. Empty where there are none. Throws ReportError. `content` is used up.
std::vector<ReportedBlock> ReadXmlReport(std::string& content);

/// The same of a report as the portal's utility writes it since 2021, in JSON.
std::vector<ReportedBlock> ReadJsonReport(std::string_view content);

/// Either, told by what the content begins with. Throws ReportError, also where there is no block.
std::vector<ReportedBlock> ReadReport(std::string content);

/// The content of the file. Throws ReportError where it is none, or larger than a report can be, and Fault where it
/// cannot be read.
inline constexpr std::size_t kLargestReport = 64U << 20;
std::string ReportFileContent(const std::string& path);

} // namespace pgbp
