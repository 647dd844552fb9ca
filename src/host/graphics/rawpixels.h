// Pixels as the numbers that a bitmap holds, whatever its depth: raster modes work on those.
#pragma once

#include "host/graphics/bitmap.h"

namespace mox::host {

/// The bits of a pixel that carry its colour.
std::uint32_t rawMask(const Bitmap& bitmap) noexcept;
/// What the bitmap would hold for plain pixels.
void toRaw(const Bitmap& bitmap, std::span<const Pixel> pixels, std::span<std::uint32_t> raw) noexcept;
inline std::uint32_t toRaw(const Bitmap& bitmap, Pixel pixel) noexcept {
    std::uint32_t raw = pixel;
    if (!bitmap.isPlain()) {
        toRaw(bitmap, {&pixel, 1}, {&raw, 1});
    }
    return raw;
}

std::uint32_t rawAt(const std::byte* row, int bitsPerPixel, int x) noexcept;
void setRawAt(std::byte* row, int bitsPerPixel, int x, std::uint32_t raw) noexcept;

} // namespace mox::host
