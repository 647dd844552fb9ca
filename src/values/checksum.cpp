#include "values/checksum.h"

#include <cstring>

namespace mox::server {

namespace {
constexpr std::size_t bytesAtOnce = 8;
}

void ChecksumTable::build() {
    rows_.resize(bytesAtOnce);
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit) {
            value = value & 1 ? value >> 1 ^ 0xEDB88320u : value >> 1;
        }
        rows_[0][byte] = value;
    }
    for (std::size_t row = 1; row < bytesAtOnce; ++row) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t before = rows_[row - 1][byte];
            rows_[row][byte] = before >> 8 ^ rows_[0][before & 0xFF];
        }
    }
}

std::uint32_t ChecksumTable::update(std::uint32_t crc, std::span<const Byte> bytes) {
    if (rows_.empty()) {
        build();
    }
    const auto* table = rows_.data();
    for (; bytes.size() >= bytesAtOnce; bytes = bytes.subspan(bytesAtOnce)) {
        std::uint32_t low = 0;
        std::uint32_t high = 0;
        std::memcpy(&low, bytes.data(), 4);
        std::memcpy(&high, bytes.data() + 4, 4);
        low ^= crc;
        crc = table[7][low & 0xFF] ^ table[6][low >> 8 & 0xFF] ^ table[5][low >> 16 & 0xFF] ^ table[4][low >> 24] ^ table[3][high & 0xFF] ^
              table[2][high >> 8 & 0xFF] ^ table[1][high >> 16 & 0xFF] ^ table[0][high >> 24];
    }
    for (const Byte byte : bytes) {
        crc = crc >> 8 ^ table[0][(crc ^ byte) & 0xFF];
    }
    return crc;
}

} // namespace mox::server
