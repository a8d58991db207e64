#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

/// OLE2 compound files: a small file system in one file, whose streams lie in chains of sectors.
namespace pgbp::xls {

/// The numbers that both directions share.
namespace compound {
inline constexpr std::string_view kSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
inline constexpr std::uint32_t kDifatSector = 0xFFFFFFFC;
inline constexpr std::uint32_t kFatSector = 0xFFFFFFFD;
inline constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
inline constexpr std::uint32_t kFree = 0xFFFFFFFF;
inline constexpr std::size_t kHeaderSize = 512;
inline constexpr std::size_t kDifatInHeader = 109;
inline constexpr std::size_t kDifatOffset = 0x4C;
inline constexpr std::size_t kEntrySize = 128;
inline constexpr std::uint8_t kStreamEntry = 2;
inline constexpr std::uint8_t kRootEntry = 5;
} // namespace compound

/// A file that holds one stream under its root. A stream of less than 4096 bytes is filled up with zeros: shorter ones
/// would have to lie in sectors of another size.
std::string WriteCompoundFile(std::string_view streamName, std::string_view content);

/// The stream with that ASCII name in any letter case; nothing when the file has none. Throws WorkbookError for a file
/// that is no compound file or is damaged. Never takes more memory than a few times the size of the file.
std::optional<std::string> ReadStream(std::string_view file, std::string_view streamName);

} // namespace pgbp::xls
