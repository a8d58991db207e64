#include "audit_report/report.h"

#include "services/text.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

namespace pgbp {

void Members::Add(std::string_view name, std::string_view text)
{
    texts_.emplace_back(name.substr(name.rfind(':') + 1), Trim(text));
}

const std::string& Members::operator[](std::initializer_list<std::string_view> names) const
{
    static const std::string none;
    for (const std::string_view wanted : names)
        for (const auto& [name, text] : texts_)
            if (!text.empty() && EqualsIgnoringCase(name, wanted))
                return text;
    return none;
}

std::vector<ReportedBlock> ReadReport(std::string content)
{
    constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
    if (content.starts_with(kUtf8Mark))
        content.erase(0, kUtf8Mark.size());
    const bool isUtf16 = content.starts_with("\xFF\xFE") || content.starts_with("\xFE\xFF");
    const auto first = content.find_first_not_of(" \t\r\n");
    const char begins = first == std::string::npos ? ' ' : content[first];
    std::vector<ReportedBlock> blocks;
    if (begins == '<' || isUtf16)
        blocks = ReadXmlReport(content);
    else if (begins == '{')
        blocks = ReadJsonReport(content);
    else
        throw ReportError("This is no audit report: the file is neither XML nor JSON.");
    if (blocks.empty())
        throw ReportError("The file holds no depreciation schedule (" + std::string(kBlockElement) +
                          "): it is no audit report, or one without depreciation.");
    return blocks;
}

std::string ReportFileContent(const std::string& path)
{
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status))
        throw FileFault(error ? error.value() : ENOENT, Attempt::Read, path);
    if (!std::filesystem::is_regular_file(status))
        throw ReportError(path + " is no file.");
    const auto size = std::filesystem::file_size(path);
    if (size > kLargestReport)
        throw ReportError(path + " is larger than 64 MB: no audit report is.");
    std::string content(size, '\0');
    std::ifstream file(path, std::ios::binary);
    if (!file.read(content.data(), static_cast<std::streamsize>(size)))
        throw FileFault(errno, Attempt::Read, path);
    return content;
}

} // namespace pgbp
