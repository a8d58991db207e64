#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace pgbp::xls {

static_assert(std::endian::native == std::endian::little,
              "the format is little-endian, and numbers are copied as they are");

/// Appends a number of the format: unsigned integers of 1 to 8 bytes and doubles.
template <typename Number>
void Append(std::string& bytes, Number number)
{
    static_assert(std::is_unsigned_v<Number> || std::is_same_v<Number, double>);
    char raw[sizeof number];
    std::memcpy(raw, &number, sizeof number);
    bytes.append(raw, sizeof number);
}

/// Overwrites the number at a place that exists already.
template <typename Number>
void Overwrite(std::string& bytes, std::size_t at, Number number)
{
    std::memcpy(bytes.data() + at, &number, sizeof number);
}

/// The number that stands at a place; nothing where the bytes end before it does.
template <typename Number>
std::optional<Number> NumberAt(std::string_view bytes, std::size_t at)
{
    if (at > bytes.size() || bytes.size() - at < sizeof(Number))
        return std::nullopt;
    Number number;
    std::memcpy(&number, bytes.data() + at, sizeof number);
    return number;
}

} // namespace pgbp::xls
