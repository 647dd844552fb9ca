// Checksums.
#pragma once

#include <cstdint>
#include <span>

namespace mox::host {

/// The CRC-32 (reflected, polynomial 0xEDB88320) of bytes that follow those of which `crc` is the CRC; 0 is that of no bytes.
std::uint32_t crc32(std::uint32_t crc, std::span<const char> bytes) noexcept;

} // namespace mox::host
