#include "host/pixels/bitmapbits.h"

#include "host/graphics/pixelformat.h"
#include "host/pixels/dibformat.h"
#include "host/pixels/standardcolors.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace mox::host {

namespace {

using platform::BITMAPINFO;

/// The colour table for `bitsPerPixel` that shows the bitmap best.
std::vector<Pixel> colorsFor(const Bitmap& bitmap, int bitsPerPixel) {
    std::vector<Pixel> colors = standardColors(bitsPerPixel);
    if (!bitmap.isMonochrome() && !bitmap.colors().empty() && bitmap.colors().size() <= colors.size()) {
        std::ranges::fill(std::ranges::copy(bitmap.colors(), colors.begin()).out, colors.end(), 0);
    }
    return colors;
}

void describeWhole(const Bitmap& bitmap, BITMAPINFO& info) {
    info.bmiHeader = describe(bitmap);
    if (info.bmiHeader.biCompression == platform::BI_BITFIELDS) {
        info.bmiColors[0] = bitmap.masks().red;
        info.bmiColors[1] = bitmap.masks().green;
        info.bmiColors[2] = bitmap.masks().blue;
    }
}

void describeFormat(const BitmapFormat& format, BITMAPINFO& info) {
    std::ranges::copy(format.colors, info.bmiColors.begin());
    info.bmiHeader.biClrUsed = 0;
    const std::size_t size = dibRowBytes(format.width, format.bitsPerPixel) * static_cast<std::size_t>(format.height);
    info.bmiHeader.biSizeImage = size <= 0xFFFFFFFF ? static_cast<std::uint32_t>(size) : 0;
}

/// Fills a row with that of the bitmap, and 0 behind it.
void convertRow(const Bitmap& bitmap, int y, const BitmapFormat& format, std::span<std::byte> row) {
    const bool isPlain = bitmap.isPlain() && format.bitsPerPixel == 32 && format.masks == ChannelMasks();
    if (isPlain && bitmap.width() >= format.width) {
        std::memcpy(row.data(), bitmap.row(y), row.size());
        return;
    }
    constexpr int most = 512;
    std::array<Pixel, most> pixels{};
    std::ranges::fill(row, std::byte{0});
    const int width = std::min(format.width, bitmap.width());
    for (int x = 0; x < width; x += std::min(most, width - x)) {
        const std::span<Pixel> part(pixels.data(), static_cast<std::size_t>(std::min(most, width - x)));
        bitmap.read(x, y, part);
        writePixels(format, row.data(), x, part);
    }
}

std::int32_t query(const Bitmap& bitmap, BITMAPINFO& info) {
    if (info.bmiHeader.biBitCount == 0) {
        describeWhole(bitmap, info);
        return bitmap.height();
    }
    auto format = formatOf(info);
    if (!format) {
        return 0;
    }
    format->colors = colorsFor(bitmap, format->bitsPerPixel);
    describeFormat(*format, info);
    return bitmap.height();
}

} // namespace

std::shared_ptr<Bitmap> makeBitmap(std::int32_t cx, std::int32_t cy, int bitsPerPixel, std::span<const std::byte> bits) {
    if (cx == 0 || cy == 0) {
        return Bitmap::create({.width = 1, .height = 1, .bitsPerPixel = 1});
    }
    BitmapFormat format{.width = cx, .height = cy, .bitsPerPixel = bitsPerPixel, .colors = standardColors(bitsPerPixel)};
    if (bitsPerPixel == 16) {
        format.masks = masks555;
    }
    auto bitmap = Bitmap::create(std::move(format));
    if (bitmap && !bits.empty()) {
        if (bits.size() < bitmap->bytes().size()) {
            return nullptr;
        }
        std::ranges::copy(bits.first(bitmap->bytes().size()), bitmap->bytes().begin());
    }
    return bitmap;
}

std::int32_t getBits(const Bitmap& bitmap, std::uint32_t start, std::uint32_t lines, std::span<std::byte> bits,
                     BITMAPINFO& info) {
    if (bits.empty()) {
        return query(bitmap, info);
    }
    auto format = formatOf(info);
    const auto height = static_cast<std::uint32_t>(bitmap.height());
    if (!format || start >= height) {
        return 0;
    }
    const auto count = static_cast<int>(std::min(lines, height - start));
    const std::size_t rowBytes = dibRowBytes(format->width, format->bitsPerPixel);
    if (bits.size() / rowBytes < static_cast<std::size_t>(count)) {
        return 0;
    }
    format->colors = colorsFor(bitmap, format->bitsPerPixel);
    describeFormat(*format, info);
    const int lowest = bitmap.height() - 1 - static_cast<int>(start);
    for (int i = 0; i < count; ++i) {
        const int line = format->isTopDown ? count - 1 - i : i;
        convertRow(bitmap, lowest - i, *format, bits.subspan(static_cast<std::size_t>(line) * rowBytes, rowBytes));
    }
    return count;
}

} // namespace mox::host
