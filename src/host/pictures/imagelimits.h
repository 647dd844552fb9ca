// How much memory an image file may ask for.
#pragma once

#include "host/graphics/bitmap.h"
#include "host/pictures/imagebytes.h"

namespace mox::host {

/// Of the pixels of one image, in bytes.
inline constexpr std::size_t mostImageBytes = std::size_t{512} << 20;

/// The bytes of an image with rows of whole bytes. Throws `ImageError` for one without pixels, and for more than are handled.
std::size_t checkedImageBytes(std::int64_t width, std::int64_t height, int bitsPerPixel);
/// Throws `ImageError` if a file of `fileBytes` that is packed at most by `ratio` cannot hold so much.
void checkRatio(std::size_t imageBytes, std::size_t fileBytes, std::size_t ratio);
/// `Bitmap::create` after both: `ImageError` in the place of null.
std::shared_ptr<Bitmap> createImage(BitmapFormat format);

} // namespace mox::host
