#include "values/checksum.h"

#include <cstring>

namespace mox::server {

namespace {
constexpr std::size_t bytesAtOnce = 16;
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
        std::array<std::uint32_t, bytesAtOnce / 4> words;
        std::memcpy(words.data(), bytes.data(), bytesAtOnce);
        words[0] ^= crc;
        crc = 0;
        for (std::size_t i = 0; i < words.size(); ++i) {
            const auto* rows = table + bytesAtOnce - 4 * (i + 1);
            crc ^= rows[3][words[i] & 0xFF] ^ rows[2][words[i] >> 8 & 0xFF] ^ rows[1][words[i] >> 16 & 0xFF] ^
                   rows[0][words[i] >> 24];
        }
    }
    for (const Byte byte : bytes) {
        crc = crc >> 8 ^ table[0][(crc ^ byte) & 0xFF];
    }
    return crc;
}

} // namespace mox::server
