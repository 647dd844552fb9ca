#include "host/pictures/imagelimits.h"

namespace mox::host {

std::size_t checkedImageBytes(std::int64_t width, std::int64_t height, int bitsPerPixel) {
    constexpr std::int64_t mostPixels = std::int64_t{1} << 31;
    requireImage(width > 0 && height > 0);
    if (width >= mostPixels || height >= mostPixels) {
        throw ImageError(ImageError::Kind::tooLarge);
    }
    const std::size_t rowBytes = (static_cast<std::size_t>(width) * static_cast<std::size_t>(bitsPerPixel) + 7) / 8;
    if (rowBytes > mostImageBytes / static_cast<std::size_t>(height)) {
        throw ImageError(ImageError::Kind::tooLarge);
    }
    return rowBytes * static_cast<std::size_t>(height);
}

void checkRatio(std::size_t imageBytes, std::size_t fileBytes, std::size_t ratio) {
    // A few pixels are always allowed.
    constexpr std::size_t slack = 4096;
    requireImage(imageBytes <= slack || (imageBytes - slack) / ratio <= fileBytes);
}

std::shared_ptr<Bitmap> createImage(BitmapFormat format) {
    auto bitmap = Bitmap::create(std::move(format));
    if (!bitmap) {
        throw ImageError(ImageError::Kind::tooLarge);
    }
    return bitmap;
}

} // namespace mox::host
