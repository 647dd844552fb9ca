#include "host/files/crc32.h"

#include <isa-l/crc.h>

namespace mox::host {

std::uint32_t crc32(std::uint32_t crc, std::span<const char> bytes) noexcept {
    return crc32_gzip_refl(crc, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
}

} // namespace mox::host
