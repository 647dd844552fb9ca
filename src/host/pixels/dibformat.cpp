#include "host/pixels/dibformat.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace mox::host {

namespace {

using platform::BITMAPINFO;
using platform::BITMAPINFOHEADER;

bool isSound(const BITMAPINFOHEADER& header) {
    constexpr int depths[] = {1, 4, 8, 16, 24, 32};
    return header.biSize == sizeof(BITMAPINFOHEADER) && header.biPlanes == 1 && header.biWidth > 0 && header.biHeight != 0 &&
           header.biHeight != std::numeric_limits<std::int32_t>::min() && std::ranges::count(depths, header.biBitCount) != 0;
}

/// One run of bits.
bool isRun(std::uint32_t mask) {
    return mask != 0 && std::has_single_bit((std::uint64_t{mask} >> std::countr_zero(mask)) + 1);
}

bool areSound(const ChannelMasks& masks, int bitsPerPixel) {
    const std::uint32_t all = masks.red | masks.green | masks.blue;
    const bool overlap = (masks.red & masks.green) != 0 || ((masks.red | masks.green) & masks.blue) != 0;
    return isRun(masks.red) && isRun(masks.green) && isRun(masks.blue) && !overlap && (bitsPerPixel == 32 || all >> 16 == 0);
}

std::optional<ChannelMasks> masksOf(const BITMAPINFO& info) {
    const int depth = info.bmiHeader.biBitCount;
    if (info.bmiHeader.biCompression == platform::BI_RGB) {
        return depth == 16 ? masks555 : ChannelMasks();
    }
    const ChannelMasks masks{info.bmiColors[0], info.bmiColors[1], info.bmiColors[2]};
    const bool hasMasks = info.bmiHeader.biCompression == platform::BI_BITFIELDS && (depth == 16 || depth == 32);
    return hasMasks && areSound(masks, depth) ? std::optional(masks) : std::nullopt;
}

std::vector<Pixel> colorsOf(const BITMAPINFO& info) {
    if (info.bmiHeader.biBitCount > 8) {
        return {};
    }
    const std::size_t most = std::size_t{1} << info.bmiHeader.biBitCount;
    const std::size_t used = info.bmiHeader.biClrUsed == 0 ? most : std::min<std::size_t>(info.bmiHeader.biClrUsed, most);
    std::vector<Pixel> colors(most);
    std::ranges::transform(info.bmiColors.begin(), info.bmiColors.begin() + static_cast<std::ptrdiff_t>(used), colors.begin(),
                           [](std::uint32_t color) { return color & 0xFFFFFF; });
    return colors;
}

} // namespace

std::optional<BitmapFormat> formatOf(const BITMAPINFO& info) {
    const BITMAPINFOHEADER& header = info.bmiHeader;
    const auto masks = isSound(header) ? masksOf(info) : std::nullopt;
    if (!masks) {
        return std::nullopt;
    }
    return BitmapFormat{.width = header.biWidth,
                        .height = std::abs(header.biHeight),
                        .bitsPerPixel = header.biBitCount,
                        .isSection = true,
                        .isTopDown = header.biHeight < 0,
                        .masks = *masks,
                        .colors = colorsOf(info)};
}

BITMAPINFOHEADER describe(const Bitmap& bitmap) {
    BITMAPINFOHEADER header{
        .biWidth = bitmap.width(), .biHeight = bitmap.height(), .biBitCount = static_cast<std::uint16_t>(bitmap.bitsPerPixel())};
    const bool isUsual = bitmap.bitsPerPixel() == 16   ? bitmap.masks() == masks555
                         : bitmap.bitsPerPixel() == 32 ? bitmap.masks() == ChannelMasks()
                                                       : true;
    header.biCompression = isUsual ? platform::BI_RGB : platform::BI_BITFIELDS;
    header.biSizeImage = static_cast<std::uint32_t>(dibRowBytes(bitmap.width(), bitmap.bitsPerPixel()) *
                                                    static_cast<std::size_t>(bitmap.height()));
    return header;
}

std::size_t dibRowBytes(std::int32_t width, int bitsPerPixel) noexcept {
    return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bitsPerPixel) + 31) / 32 * 4;
}

} // namespace mox::host
