#include "host/pictures/pngfile.h"

#include "host/pictures/imagelimits.h"

#include <png.h>

#include <algorithm>
#include <bit>

namespace mox::host {

namespace {

// Pixels are blue, green, red, alpha in memory.
constexpr auto pixelFormat = PNG_FORMAT_BGRA;
constexpr std::size_t mostDeflateRatio = 1032;

/// The library's reader and writer, freed at the end.
class Png {
public:
    Png() { image_.version = PNG_IMAGE_VERSION; }
    ~Png() { png_image_free(&image_); }
    Png(const Png&) = delete;
    Png& operator=(const Png&) = delete;

    png_image& operator*() noexcept { return image_; }
    png_image* operator->() noexcept { return &image_; }

private:
    png_image image_{};
};

/// What the rows of the file take before they are made into pixels.
std::size_t fileRowBytes(ImageBytes bytes, std::int64_t width, std::int64_t height) {
    constexpr int samples[] = {1, 0, 3, 1, 2, 0, 4};
    const unsigned depth = bytes.u8(24);
    const unsigned color = bytes.u8(25);
    requireImage(color < std::size(samples) && samples[color] != 0 && depth >= 1 && depth <= 16);
    return checkedImageBytes(width, height, static_cast<int>(depth) * samples[color]);
}

} // namespace

bool isPng(std::span<const std::byte> file) noexcept {
    constexpr unsigned char signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    return file.size() >= sizeof signature && std::memcmp(file.data(), signature, sizeof signature) == 0;
}

platform::SIZE sizeOfPng(std::span<const std::byte> file) {
    const ImageBytes bytes(file);
    requireImage(isPng(file));
    const auto extent = [&](std::size_t place) {
        const std::uint32_t value = __builtin_bswap32(bytes.u32(place));
        requireImage(value > 0 && value <= 0x7FFFFFFF);
        return static_cast<std::int32_t>(value);
    };
    return {extent(16), extent(20)};
}

std::shared_ptr<Bitmap> readPng(std::span<const std::byte> file) {
    const platform::SIZE size = sizeOfPng(file);
    checkRatio(fileRowBytes(file, size.cx, size.cy), file.size(), mostDeflateRatio);
    checkedImageBytes(size.cx, size.cy, 32);
    Png png;
    requireImage(png_image_begin_read_from_memory(&*png, file.data(), file.size()) != 0);
    requireImage(png->width == static_cast<png_uint_32>(size.cx) && png->height == static_cast<png_uint_32>(size.cy));
    png->flags |= PNG_IMAGE_FLAG_16BIT_sRGB;
    png->format = pixelFormat;
    auto bitmap = createImage({.width = size.cx, .height = size.cy});
    requireImage(
        png_image_finish_read(&*png, nullptr, bitmap->bytes().data(), static_cast<png_int_32>(bitmap->rowBytes()), nullptr) != 0);
    return bitmap;
}

std::vector<std::byte> writePng(const Bitmap& bitmap) {
    const auto rows = createImage({.width = bitmap.width(), .height = bitmap.height(), .bitsPerPixel = 24});
    std::vector<Pixel> row(static_cast<std::size_t>(bitmap.width()));
    for (int y = 0; y < bitmap.height(); ++y) {
        bitmap.read(0, y, row);
        rows->write(0, y, row);
    }
    Png png;
    png->width = static_cast<png_uint_32>(bitmap.width());
    png->height = static_cast<png_uint_32>(bitmap.height());
    png->format = PNG_FORMAT_BGR;
    png->flags = PNG_IMAGE_FLAG_FAST;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(*png);
    std::vector<std::byte> file(size);
    if (png_image_write_to_memory(&*png, file.data(), &size, 0, rows->bytes().data(), static_cast<png_int_32>(rows->rowBytes()),
                                  nullptr) == 0) {
        throw ImageError(ImageError::Kind::tooLarge);
    }
    file.resize(size);
    return file;
}

} // namespace mox::host
