#include "workbook/bytes.h"
#include "workbook/compound_file.h"
#include "workbook/workbook.h"

#include <algorithm>

namespace pgbp::xls {
namespace {

using namespace compound;

[[noreturn]] void FailDamaged(const char* what)
{
    throw WorkbookError(std::string("The workbook is damaged or cut short: ") + what + '.');
}

std::uint32_t HeaderNumber(std::string_view file, std::size_t at)
{
    const auto number = NumberAt<std::uint32_t>(file, at);
    if (!number)
        FailDamaged("its header is not whole");
    return *number;
}

/// Sectors of one size, and for each the number of the one that follows it in its chain. The bytes of a stream are
/// never more than those of all sectors, so a chain that runs in a circle ends at that size.
struct Sectors {
    std::string_view bytes;
    std::size_t sectorSize;
    std::string next; // a 32-bit number each

    /// The first bytes of a sector. The last sector of a file need not be there as a whole.
    std::string_view Begin(std::uint32_t id, std::size_t size) const
    {
        const std::size_t at = id * sectorSize;
        if (at > bytes.size() || bytes.size() - at < size)
            FailDamaged("a part of it lies behind the end of the file");
        return bytes.substr(at, size);
    }

    std::string_view Whole(std::uint32_t id) const { return Begin(id, sectorSize); }

    std::uint32_t Next(std::uint32_t id) const
    {
        const auto number = NumberAt<std::uint32_t>(next, id * sizeof(std::uint32_t));
        if (!number)
            FailDamaged("its allocation table is too short");
        return *number;
    }

    std::string Read(std::uint32_t start, std::size_t size) const
    {
        if (size > bytes.size())
            FailDamaged("it holds less than it announces");
        std::string content;
        content.reserve(size);
        for (auto id = start; content.size() < size; id = Next(id)) {
            const std::size_t wanted = std::min(sectorSize, size - content.size());
            content += Begin(id, wanted);
        }
        return content;
    }

    std::string ReadToEnd(std::uint32_t start) const
    {
        std::size_t size = 0;
        for (auto id = start; id != kEndOfChain && size <= bytes.size(); id = Next(id))
            size += sectorSize;
        return Read(start, size);
    }
};

/// The numbers of the sectors that hold the allocation table: the first ones stand in the header, the others in a chain
/// of sectors of their own.
std::vector<std::uint32_t> FatSectors(std::string_view file, const Sectors& sectors)
{
    const std::size_t most = sectors.bytes.size() / sectors.sectorSize;
    std::vector<std::uint32_t> ids;
    const auto take = [&](std::string_view list) {
        for (std::size_t at = 0; at + 4 <= list.size() && ids.size() < most; at += 4)
            if (const auto id = *NumberAt<std::uint32_t>(list, at); id != kFree)
                ids.push_back(id);
    };
    take(file.substr(kDifatOffset, kDifatInHeader * 4));
    auto id = HeaderNumber(file, 0x44);
    for (auto left = std::min<std::size_t>(HeaderNumber(file, 0x48), most); left > 0 && id < kDifatSector; --left) {
        const auto sector = sectors.Whole(id);
        take(sector.substr(0, sectors.sectorSize - 4));
        id = *NumberAt<std::uint32_t>(sector, sectors.sectorSize - 4);
    }
    return ids;
}

/// All sectors of the file; the header takes the place of one.
Sectors BigSectors(std::string_view file)
{
    const auto shift = NumberAt<std::uint16_t>(file, 0x1E);
    if (shift != 9 && shift != 12)
        FailDamaged("its header is not whole or of an unknown kind");
    Sectors sectors{{}, std::size_t{1} << *shift, {}};
    if (file.size() < sectors.sectorSize)
        FailDamaged("its header is not whole");
    sectors.bytes = file.substr(sectors.sectorSize);
    for (const auto id : FatSectors(file, sectors))
        sectors.next += sectors.Whole(id);
    return sectors;
}

struct Entry {
    std::string name;
    std::uint8_t type;
    std::uint32_t start;
    std::uint32_t size; // the upper half is not used below 4 gigabytes
};

/// Characters outside ASCII become a question mark: no stream that is looked for has one.
std::string EntryName(std::string_view entry)
{
    const std::size_t length = std::min<std::size_t>(*NumberAt<std::uint16_t>(entry, 64), 64) / 2;
    std::string name;
    for (std::size_t i = 0; i + 1 < length; ++i) {
        const auto unit = *NumberAt<std::uint16_t>(entry, i * 2);
        name += unit < 0x80 ? static_cast<char>(unit) : '?';
    }
    return name;
}

std::vector<Entry> Entries(std::string_view directory)
{
    std::vector<Entry> entries;
    for (; directory.size() >= kEntrySize; directory.remove_prefix(kEntrySize))
        entries.push_back({EntryName(directory), *NumberAt<std::uint8_t>(directory, 66),
                           *NumberAt<std::uint32_t>(directory, 116), *NumberAt<std::uint32_t>(directory, 120)});
    return entries;
}

bool SameName(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

} // namespace

std::optional<std::string> ReadStream(std::string_view file, std::string_view streamName)
{
    if (!file.starts_with(kSignature))
        throw WorkbookError(file.starts_with("PK")
                                ? "The file is a newer kind of workbook (.xlsx or .ods), not one in the "
                                  "Excel 97-2003 format (.xls)."
                                : "The file is not a workbook in the Excel 97-2003 format (.xls).");
    const Sectors big = BigSectors(file);
    const auto entries = Entries(big.ReadToEnd(HeaderNumber(file, 0x30)));
    if (entries.empty() || entries.front().type != kRootEntry)
        FailDamaged("it has no directory");
    const auto entry = std::ranges::find_if(
        entries, [&](const Entry& e) { return e.type == kStreamEntry && SameName(e.name, streamName); });
    if (entry == entries.end())
        return std::nullopt;
    if (entry->size >= HeaderNumber(file, 0x38))
        return big.Read(entry->start, entry->size);
    const std::string small = big.Read(entries.front().start, entries.front().size);
    return Sectors{small, 64, big.ReadToEnd(HeaderNumber(file, 0x3C))}.Read(entry->start, entry->size);
}

} // namespace pgbp::xls
