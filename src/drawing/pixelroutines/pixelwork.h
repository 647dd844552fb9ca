// What a pixel routine works on.
#pragma once

#include "drawing/pixelroutines/vectors.h"

#include <mox/values.h>

#include <array>
#include <cstdint>
#include <span>

namespace mox::server {

/// A picture's pixels before and after: blue in bits 0 to 7, green, red, and a fourth byte. Rows come one behind the other,
/// the bottom row first. Each routine writes all pixels of the target; only the routines that say so must have it apart from
/// the source.
struct PixelWork {
    std::span<const std::uint32_t> source;
    std::span<std::uint32_t> target;
    std::size_t width = 0;
    std::size_t height = 0;
};

inline constexpr std::uint32_t colorBits = 0x00FFFFFF;
inline constexpr std::uint32_t fourthByte = 0xFF000000;

constexpr std::uint32_t blueOf(std::uint32_t pixel) noexcept {
    return pixel & 0xFF;
}
constexpr std::uint32_t greenOf(std::uint32_t pixel) noexcept {
    return pixel >> 8 & 0xFF;
}
constexpr std::uint32_t redOf(std::uint32_t pixel) noexcept {
    return pixel >> 16 & 0xFF;
}
/// From three values of a byte each.
constexpr std::uint32_t colorOf(std::uint32_t blue, std::uint32_t green, std::uint32_t red) noexcept {
    return blue | green << 8 | red << 16;
}

/// How much blue, green and red weigh in the grey value of a pixel, in thousandths.
inline constexpr std::uint32_t blueWeight = 71;
inline constexpr std::uint32_t greenWeight = 707;
inline constexpr std::uint32_t redWeight = 222;

constexpr std::uint32_t weightedSum(std::uint32_t blue, std::uint32_t green, std::uint32_t red) noexcept {
    return blueWeight * blue + greenWeight * green + redWeight * red;
}

/// A value for each value of a byte.
using ByteTable = std::array<Byte, 256>;

} // namespace mox::server
