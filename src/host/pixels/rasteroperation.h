// Raster operations with three operands: pattern, source, target.
#pragma once

#include "platform/gditypes.h"

#include <cstdint>

namespace mox::host {

/// The result for each of the eight combinations of a bit of each operand: bit 4 * pattern + 2 * source + target.
constexpr std::uint8_t truthTable(std::uint32_t rop) noexcept {
    return static_cast<std::uint8_t>(rop >> 16);
}
constexpr bool usesPattern(std::uint32_t rop) noexcept {
    return ((truthTable(rop) >> 4 ^ truthTable(rop)) & 0x0F) != 0;
}
constexpr bool usesSource(std::uint32_t rop) noexcept {
    return ((truthTable(rop) >> 2 ^ truthTable(rop)) & 0x33) != 0;
}
constexpr bool usesTarget(std::uint32_t rop) noexcept {
    return ((truthTable(rop) >> 1 ^ truthTable(rop)) & 0x55) != 0;
}

} // namespace mox::host
