// Pixels packed as runs of equal ones.
#pragma once

#include "host/graphics/bitmap.h"

namespace mox::host {

/// The most that files gain by it, but for rows that they leave out.
inline constexpr std::size_t mostRunLengthRatio = 256;

/// Unpacks `BI_RLE8` or `BI_RLE4`, by the bitmap's depth. What the runs leave out stays 0, what they have beyond the edges is
/// dropped. Throws `ImageError` if the data end before the picture does.
void expandRunLengths(std::span<const std::byte> data, Bitmap& bitmap);

} // namespace mox::host
