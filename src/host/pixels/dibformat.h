// Headers of device-independent pixels.
#pragma once

#include "host/graphics/bitmap.h"

#include <optional>

namespace mox::host {

/// The format of a section that a header describes. None for one that is damaged or not supported: sizes below 1 or beyond what a
/// bitmap holds, other depths than 1, 4, 8, 16, 24 and 32, compressed pixels, masks that overlap, have gaps, are empty or do not
/// fit the depth. A colour table counts as far as the depth can use it.
std::optional<BitmapFormat> formatOf(const platform::BITMAPINFO& info);

/// Describes the pixels of a bitmap as rows from the bottom up, without its colours.
platform::BITMAPINFOHEADER describe(const Bitmap& bitmap);

/// Bytes of a row of device-independent pixels, a multiple of 4.
std::size_t dibRowBytes(std::int32_t width, int bitsPerPixel) noexcept;

} // namespace mox::host
