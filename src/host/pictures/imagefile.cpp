#include "host/pictures/imagefile.h"

#include "host/pictures/bmpfile.h"
#include "host/pictures/giffile.h"
#include "host/pictures/iconfile.h"
#include "host/pictures/imagelimits.h"
#include "host/pictures/jpegfile.h"
#include "host/pictures/pngfile.h"

#include <algorithm>

namespace mox::host {

namespace {

/// A pixel with alpha on a ground.
Pixel mixed(Pixel pixel, Pixel ground) {
    const Pixel alpha = pixel >> 24;
    const auto channel = [&](int shift) {
        return ((pixel >> shift & 0xFF) * alpha + (ground >> shift & 0xFF) * (255 - alpha) + 127) / 255 << shift;
    };
    return channel(0) | channel(8) | channel(16);
}

constexpr Pixel white = 0xFFFFFF;

std::shared_ptr<Bitmap> onWhite(std::shared_ptr<Bitmap> bitmap) {
    for (int y = 0; y < bitmap->height(); ++y) {
        for (Pixel& pixel : std::span(bitmap->pixels(y), static_cast<std::size_t>(bitmap->width()))) {
            pixel = pixel >> 24 == 0xFF ? pixel & white : mixed(pixel, white);
        }
    }
    return bitmap;
}

} // namespace

Image readImage(std::span<const std::byte> file) {
    if (isBmp(file)) {
        return readBmp(file);
    }
    if (isPng(file)) {
        return onWhite(readPng(file));
    }
    if (isJpeg(file)) {
        return readJpeg(file);
    }
    if (isGif(file)) {
        return readGif(file);
    }
    if (isIconFile(file)) {
        return readIconFile(file);
    }
    if (isEnhancedMetafile(file)) {
        return readEnhancedMetafile(file);
    }
    if (isOldMetafile(file)) {
        return readOldMetafile(file);
    }
    throw ImageError();
}

std::shared_ptr<Bitmap> readBitmap(std::span<const std::byte> file) {
    const Image image = readImage(file);
    if (const auto* bitmap = std::get_if<std::shared_ptr<Bitmap>>(&image)) {
        return *bitmap;
    }
    const auto* icon = std::get_if<Icon>(&image);
    requireImage(icon != nullptr);
    return flattened(*icon);
}

std::vector<std::byte> writeImage(const Image& image) {
    struct Writer {
        std::vector<std::byte> operator()(const std::shared_ptr<Bitmap>& bitmap) const { return writeBmp(*bitmap); }
        std::vector<std::byte> operator()(const Icon& icon) const { return writeIconFile(icon); }
        std::vector<std::byte> operator()(const PlacedMetafile& metafile) const { return writeOldMetafile(metafile); }
        std::vector<std::byte> operator()(const EnhancedMetafile& metafile) const { return metafile.bits; }
    };
    return std::visit(Writer(), image);
}

std::shared_ptr<Bitmap> flattened(const Icon& icon) {
    const Bitmap& image = *icon.image;
    auto result = createImage({.width = image.width(), .height = image.height()});
    std::vector<Pixel> row(static_cast<std::size_t>(image.width()));
    std::vector<Pixel> mask(row.size());
    for (int y = 0; y < image.height(); ++y) {
        if (icon.hasAlpha) {
            std::copy_n(image.pixels(y), row.size(), row.begin());
        } else {
            image.read(0, y, row);
        }
        if (icon.mask && !icon.hasAlpha) {
            icon.mask->read(0, y, mask);
        }
        for (std::size_t x = 0; x < row.size(); ++x) {
            result->pixels(y)[x] = icon.hasAlpha  ? mixed(row[x], white)
                                   : mask[x] != 0 ? (row[x] ^ white) & white
                                                  : row[x] & white;
        }
    }
    return result;
}

} // namespace mox::host
