// The library's 32-bit text checksum.
#pragma once

#include <mox/values.h>

#include <array>
#include <span>
#include <vector>

namespace mox::server {

/// The table of the reflected CRC-32 with the polynomial 0xEDB88320, and its powers, so that sixteen bytes go at once. Not the
/// common CRC-32: the register starts at 0.
class ChecksumTable {
public:
    /// The register after all bytes.
    std::uint32_t update(std::uint32_t crc, std::span<const Byte> bytes);

private:
    void build();

    /// Row n: the effect of a byte that n more bytes follow.
    std::vector<std::array<std::uint32_t, 256>> rows_;
};

} // namespace mox::server
