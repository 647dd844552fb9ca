#include "host/graphics/rawpixels.h"

#include "host/graphics/pixelformat.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace mox::host {

std::uint32_t rawMask(const Bitmap& bitmap) noexcept {
    switch (bitmap.bitsPerPixel()) {
    case 32:
    case 16:
        return bitmap.masks().red | bitmap.masks().green | bitmap.masks().blue;
    default:
        return (1U << bitmap.bitsPerPixel()) - 1;
    }
}

void toRaw(const Bitmap& bitmap, std::span<const Pixel> pixels, std::span<std::uint32_t> raw) noexcept {
    if (bitmap.isPlain()) {
        std::ranges::copy(pixels, raw.begin());
        return;
    }
    constexpr std::size_t step = 64;
    std::array<std::byte, 4 * step> row{};
    for (std::size_t from = 0; from < pixels.size(); from += step) {
        const std::size_t count = std::min(step, pixels.size() - from);
        writePixels(bitmap.format(), row.data(), 0, pixels.subspan(from, count));
        for (std::size_t place = 0; place < count; ++place) {
            raw[from + place] = rawAt(row.data(), bitmap.bitsPerPixel(), static_cast<int>(place));
        }
    }
}

std::uint32_t rawAt(const std::byte* row, int bitsPerPixel, int x) noexcept {
    std::uint32_t raw = 0;
    if (bitsPerPixel >= 8) {
        const auto size = static_cast<std::size_t>(bitsPerPixel / 8);
        std::memcpy(&raw, row + size * static_cast<std::size_t>(x), size);
        return raw;
    }
    const int perByte = 8 / bitsPerPixel;
    const int shift = 8 - bitsPerPixel * (x % perByte + 1);
    return std::to_integer<std::uint32_t>(row[x / perByte]) >> shift & ((1U << bitsPerPixel) - 1);
}

void setRawAt(std::byte* row, int bitsPerPixel, int x, std::uint32_t raw) noexcept {
    if (bitsPerPixel >= 8) {
        const auto size = static_cast<std::size_t>(bitsPerPixel / 8);
        std::memcpy(row + size * static_cast<std::size_t>(x), &raw, size);
        return;
    }
    const int perByte = 8 / bitsPerPixel;
    const int shift = 8 - bitsPerPixel * (x % perByte + 1);
    std::byte& place = row[x / perByte];
    const auto mask = static_cast<std::byte>(((1U << bitsPerPixel) - 1) << shift);
    place = (place & ~mask) | (static_cast<std::byte>(raw << shift) & mask);
}

} // namespace mox::host
