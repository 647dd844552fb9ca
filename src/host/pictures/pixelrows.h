// Rows of pixels from pictures and device contexts.
#pragma once

#include "host/graphics/bitmap.h"
#include "host/pictures/picturecontent.h"

namespace mox::host {

class Machine;

/// The picture as a bitmap: its own, or one with an icon or a metafile on white. Throws `ImageError` if it has no pixels.
std::shared_ptr<const Bitmap> bitmapOf(Machine& machine, const PictureContent& content);
/// A copy of a part of a context's surface, in logical units; null if there is nothing to be copied.
std::shared_ptr<const Bitmap> bitmapOf(Machine& machine, platform::Handle hdc, const platform::RECT& area);
/// Copies a rectangle, which has to lie in the bitmap, row by row from the top down.
void copyRows(const Bitmap& bitmap, const platform::RECT& area, std::span<Pixel> rows);

} // namespace mox::host
