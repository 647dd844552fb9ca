// Pixels of every depth, to plain ones and back.
#pragma once

#include "host/graphics/bitmap.h"

namespace mox::host {

/// Pixels of a row from place `x` on, as `Bitmap::read` has them.
void readPixels(const BitmapFormat& format, const std::byte* row, int x, std::span<Pixel> pixels) noexcept;
/// The same back, as `Bitmap::write` has it.
void writePixels(const BitmapFormat& format, std::byte* row, int x, std::span<const Pixel> pixels) noexcept;

} // namespace mox::host
