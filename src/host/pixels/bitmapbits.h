// The pixels of bitmaps from and to bytes of the application.
#pragma once

#include "host/graphics/bitmap.h"

namespace mox::host {

/// A bitmap of the device with the bytes of rows from the top down, each at an even number of bytes; zeroed without bytes. A size
/// of 0 gives one monochrome pixel. Null for negative sizes, other depths than a bitmap has, too few bytes, or if there is no
/// memory.
std::shared_ptr<Bitmap> makeBitmap(std::int32_t cx, std::int32_t cy, int bitsPerPixel, std::span<const std::byte> bits);

/// Gives `lines` rows of a bitmap, the first one `start` rows above its lowest, in the format of `info`: from the bottom up, or
/// from the top down if the height there is below 0. The width there may differ: rows are cut, or filled up with 0. Fills in the
/// colour table: that of the bitmap if it has one that fits, else a standard one. The number of rows given; 0, with nothing
/// written, if the header is damaged, there are no such rows or they do not fit into `bits`.
///
/// Without `bits` it fills in `info` only, the whole header if its depth is 0, else the colours and the size of the picture. The
/// answer is the height of the bitmap.
std::int32_t getBits(const Bitmap& bitmap, std::uint32_t start, std::uint32_t lines, std::span<std::byte> bits,
                     platform::BITMAPINFO& info);

} // namespace mox::host
