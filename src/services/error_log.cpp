#include "services/error_log.h"

#include "services/fault.h"
#include "services/text.h"

#include <fcntl.h>
#include <unistd.h>

namespace pgbp {
namespace {

constexpr std::uintmax_t kFull = 256UL * 1024;

std::string Entry(const DateTime& when, const std::exception& error, const std::string& technical)
{
    return IsoText(when) + "  " + Replace(Replace(PreparersWords(error), "\n\n", " "), "\n", " ") + "\n    " +
           Replace(technical, "\n", "\n    ") + '\n';
}

} // namespace

void LogError(const std::filesystem::path& folder, const DateTime& when, const std::exception& error)
{
    const std::string technical = TechnicalWords(error);
    if (technical.empty())
        return;
    const auto path = folder / kErrorLog;
    std::error_code ignored;
    if (const auto size = std::filesystem::file_size(path, ignored); !ignored && size > kFull)
        std::filesystem::rename(path, path.string() + ".1", ignored);
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file < 0)
        return;
    const std::string entry = Entry(when, error, technical); // in one piece, as several programs may write
    [[maybe_unused]] const auto written = write(file, entry.data(), entry.size());
    close(file);
}

} // namespace pgbp
