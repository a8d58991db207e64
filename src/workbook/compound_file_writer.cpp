#include "workbook/bytes.h"
#include "workbook/compound_file.h"

namespace pgbp::xls {
namespace {

using namespace compound;

constexpr std::size_t kSectorSize = 512;
constexpr std::size_t kSmallStream = 4096;
constexpr std::size_t kIdsInSector = kSectorSize / sizeof(std::uint32_t);
constexpr std::size_t kDifatInSector = kIdsInSector - 1; // the last number leads to the next sector of the list

std::uint32_t Id(std::size_t number) { return static_cast<std::uint32_t>(number); }

std::size_t SectorsFor(std::size_t count, std::size_t perSector) { return (count + perSector - 1) / perSector; }

/// Where each part begins, in sectors: the stream, the directory, the allocation table, the list of the table's
/// sectors.
struct Layout {
    std::size_t streamSectors;
    std::size_t fatSectors;
    std::size_t difatSectors;

    explicit Layout(std::size_t streamSize)
        : streamSectors(SectorsFor(streamSize, kSectorSize)), fatSectors(0), difatSectors(0)
    {
        // The table covers its own sectors and those of its list, so it grows until it is large enough.
        for (std::size_t needed = 1; fatSectors < needed;
             needed = SectorsFor(DifatBegin() + difatSectors, kIdsInSector)) {
            fatSectors = needed;
            difatSectors = needed > kDifatInHeader ? SectorsFor(needed - kDifatInHeader, kDifatInSector) : 0;
        }
    }

    std::size_t Directory() const { return streamSectors; }
    std::size_t FatBegin() const { return streamSectors + 1; }
    std::size_t DifatBegin() const { return FatBegin() + fatSectors; }
};

void AppendIds(std::string& bytes, std::size_t count, std::uint32_t id)
{
    for (std::size_t i = 0; i < count; ++i)
        Append(bytes, id);
}

void FillSector(std::string& bytes, char with)
{
    bytes.resize(SectorsFor(bytes.size(), kSectorSize) * kSectorSize, with);
}

/// The numbers of `count` table sectors from the `first` on, filled up to `room` numbers.
void AppendFatIds(std::string& bytes, const Layout& layout, std::size_t first, std::size_t room)
{
    for (std::size_t i = first; i < first + room; ++i)
        Append(bytes, i < layout.fatSectors ? Id(layout.FatBegin() + i) : kFree);
}

std::string Header(const Layout& layout)
{
    std::string header(kSignature);
    header.append(16, '\0');
    for (const std::uint16_t number : {0x3E, 3, 0xFFFE, 9, 6}) // version 3, little-endian, sectors of 2^9 and 2^6
        Append(header, number);
    header.append(10, '\0');
    Append(header, Id(layout.fatSectors));
    Append(header, Id(layout.Directory()));
    Append(header, std::uint32_t{0});
    Append(header, Id(kSmallStream));
    Append(header, kEndOfChain); // no small sectors
    Append(header, std::uint32_t{0});
    Append(header, layout.difatSectors > 0 ? Id(layout.DifatBegin()) : kEndOfChain);
    Append(header, Id(layout.difatSectors));
    AppendFatIds(header, layout, 0, kDifatInHeader);
    return header;
}

std::string DirectoryEntry(std::string_view name, std::uint8_t type, std::uint32_t child, std::uint32_t start,
                           std::size_t size)
{
    constexpr std::uint8_t black = 1;
    std::string entry;
    for (const char c : name)
        Append(entry, static_cast<std::uint16_t>(c));
    entry.resize(64);
    Append(entry, static_cast<std::uint16_t>(name.empty() ? 0 : (name.size() + 1) * 2));
    Append(entry, type);
    Append(entry, black);
    AppendIds(entry, 2, kFree);
    Append(entry, child);
    entry.resize(116);
    Append(entry, start);
    Append(entry, static_cast<std::uint64_t>(size));
    return entry;
}

std::string Directory(std::string_view streamName, std::size_t size)
{
    constexpr std::uint8_t unused = 0;
    const std::string empty = DirectoryEntry("", unused, kFree, 0, 0);
    return DirectoryEntry("Root Entry", kRootEntry, 1, kEndOfChain, 0) +
           DirectoryEntry(streamName, kStreamEntry, kFree, 0, size) + empty + empty;
}

std::string Fat(const Layout& layout)
{
    std::string fat;
    for (std::size_t i = 1; i < layout.streamSectors; ++i)
        Append(fat, Id(i));
    AppendIds(fat, 2, kEndOfChain); // of the stream and of the directory
    AppendIds(fat, layout.fatSectors, kFatSector);
    AppendIds(fat, layout.difatSectors, kDifatSector);
    FillSector(fat, '\xFF');
    return fat;
}

std::string Difat(const Layout& layout)
{
    std::string difat;
    for (std::size_t i = 0; i < layout.difatSectors; ++i) {
        AppendFatIds(difat, layout, kDifatInHeader + i * kDifatInSector, kDifatInSector);
        Append(difat, i + 1 < layout.difatSectors ? Id(layout.DifatBegin() + i + 1) : kEndOfChain);
    }
    return difat;
}

} // namespace

std::string WriteCompoundFile(std::string_view streamName, std::string_view content)
{
    const std::size_t size = std::max(content.size(), kSmallStream);
    const Layout layout(size);
    std::string file = Header(layout);
    file.reserve(kHeaderSize + (layout.DifatBegin() + layout.difatSectors) * kSectorSize);
    file += content;
    file.append(size - content.size(), '\0');
    FillSector(file, '\0');
    return file + Directory(streamName, size) + Fat(layout) + Difat(layout);
}

} // namespace pgbp::xls
