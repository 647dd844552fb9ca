// The inner loops of copies, over pixels in a row. Each has vector code of the processor's kind, and gives what the arithmetic
// for one pixel beside it gives.
#pragma once

#include "host/graphics/bitmap.h"
#include "host/pixels/rasteroperation.h"

namespace mox::host {

/// The result for each bit of the operands.
constexpr Pixel combined(std::uint8_t table, Pixel pattern, Pixel source, Pixel target) noexcept {
    Pixel result = 0;
    for (int bit = 0; bit < 32; ++bit) {
        const std::uint32_t place = (pattern >> bit & 1) << 2 | (source >> bit & 1) << 1 | (target >> bit & 1);
        result |= (table >> place & 1U) << bit;
    }
    return result;
}
/// target = operation(pattern, source, target). An operand that the operation does not use may be null.
MOX_API void combine(std::uint8_t table, Pixel* target, const Pixel* source, const Pixel* pattern, std::size_t count) noexcept;

/// target = operation(pattern, target), for operations without a source: those leave the fourth byte alone.
MOX_API void paintOver(std::uint8_t table, Pixel* target, const Pixel* pattern, std::size_t count) noexcept;

/// The source unless it is `key` in all but the fourth byte.
constexpr Pixel keyed(Pixel key, Pixel source, Pixel target) noexcept {
    return ((source ^ key) & 0xFFFFFF) == 0 ? target : source;
}
MOX_API void copyKeyed(Pixel key, Pixel* target, const Pixel* source, std::size_t count) noexcept;

/// value / 255, rounded to the nearest, for values up to 255 * 255.
constexpr std::uint32_t divided255(std::uint32_t value) noexcept {
    return (value + 128 + ((value + 128) >> 8)) >> 8;
}
/// (source * alpha + target * (255 - alpha)) / 255 for each of the four bytes, rounded to the nearest.
constexpr Pixel mixed(std::uint8_t alpha, Pixel source, Pixel target) noexcept {
    Pixel result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        result |= divided255((source >> shift & 0xFF) * alpha + (target >> shift & 0xFF) * (255U - alpha)) << shift;
    }
    return result;
}
MOX_API void mix(std::uint8_t alpha, Pixel* target, const Pixel* source, std::size_t count) noexcept;

/// The source, whose fourth byte is its alpha and in its colours already, first times `alpha` / 255, and then over the target:
/// source + target * (255 - alpha of the source) / 255 for each of the four bytes, both products rounded to the nearest, and at
/// most 255.
constexpr Pixel laidOver(std::uint8_t alpha, Pixel source, Pixel target) noexcept {
    const std::uint32_t rest = 255 - divided255((source >> 24) * alpha);
    Pixel result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const std::uint32_t sum = divided255((source >> shift & 0xFF) * alpha) + divided255((target >> shift & 0xFF) * rest);
        result |= (sum > 255 ? 255 : sum) << shift;
    }
    return result;
}
MOX_API void layOver(std::uint8_t alpha, Pixel* target, const Pixel* source, std::size_t count) noexcept;

/// The mean of two pixels of one row and two of the next, each byte rounded to the nearest, halves upwards.
constexpr Pixel meanOfFour(Pixel a, Pixel b, Pixel c, Pixel d) noexcept {
    Pixel result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        result |= ((a >> shift & 0xFF) + (b >> shift & 0xFF) + (c >> shift & 0xFF) + (d >> shift & 0xFF) + 2) / 4 << shift;
    }
    return result;
}
/// Each pixel from two of both rows.
MOX_API void halve(Pixel* target, const Pixel* upper, const Pixel* lower, std::size_t count) noexcept;

/// Adds each value, times the weight.
MOX_API void addWeighted(std::uint32_t weight, std::uint32_t* totals, const std::uint32_t* values, std::size_t count) noexcept;
/// total / whole of each byte, rounded to the nearest, halves upwards. Totals are below 2^31 and up to 255 times the whole.
MOX_API void toMeans(std::uint32_t whole, std::uint8_t* bytes, const std::uint32_t* totals, std::size_t count) noexcept;

} // namespace mox::host
