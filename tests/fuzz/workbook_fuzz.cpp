#include "workbook/compound_file.h"
#include "workbook/workbook.h"

#include <cstdlib>

namespace {

using namespace pgbp::xls;

/// A whole file where the bytes begin like one; any other bytes are taken as the records inside a sound file, so that
/// damage there is not hidden behind damage of the file around them.
std::string FileOf(std::string_view bytes)
{
    return bytes.starts_with(compound::kSignature) ? std::string(bytes) : WriteCompoundFile("Workbook", bytes);
}

/// Nothing where the work is refused with a message.
template <typename Work>
auto Allowed(Work work) -> std::optional<decltype(work())>
{
    try {
        return work();
    } catch (const WorkbookError&) {
        return std::nullopt;
    }
}

} // namespace

/// Any bytes are read or refused; what was read and can be written comes back the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string file = FileOf({reinterpret_cast<const char*>(data), size});
    const auto workbook = Allowed([&] { return ReadXls(file); });
    const auto written = workbook ? Allowed([&] { return WriteXls(*workbook); }) : std::nullopt;
    if (written && ReadXls(*written) != *workbook)
        std::abort();
    return 0;
}
