#include "host/icons/iconparts.h"

#include <algorithm>
#include <vector>

namespace mox::host {

namespace {

std::shared_ptr<Bitmap> monochrome(int width, int height) {
    return Bitmap::create({.width = width, .height = height, .bitsPerPixel = 1});
}

/// Copies what there is of `source` from a row on to rows of `target`, as well as its format can hold it.
void copyRows(const Bitmap& source, int from, Bitmap& target, int to, int rows) {
    std::vector<Pixel> pixels(static_cast<std::size_t>(std::min(source.width(), target.width())));
    for (int row = 0; row < std::min(rows, source.height() - from); ++row) {
        source.read(0, from + row, pixels);
        if (source.bitsPerPixel() != 32 && !target.isMonochrome()) {
            std::ranges::for_each(pixels, [](Pixel& pixel) { pixel &= 0xFFFFFF; });
        }
        target.write(0, to + row, pixels);
    }
}

bool anyAlpha(const Bitmap& image) {
    for (int y = 0; y < image.height(); ++y) {
        if (std::any_of(image.pixels(y), image.pixels(y) + image.width(), [](Pixel pixel) { return pixel >> 24 != 0; })) {
            return true;
        }
    }
    return false;
}

/// Without alpha nothing shows through.
std::shared_ptr<Bitmap> maskFromAlpha(const Icon& icon) {
    const Bitmap& image = *icon.image;
    auto mask = monochrome(image.width(), image.height());
    std::vector<Pixel> row(static_cast<std::size_t>(image.width()));
    for (int y = 0; mask && icon.hasAlpha && y < image.height(); ++y) {
        std::transform(image.pixels(y), image.pixels(y) + image.width(), row.begin(),
                       [](Pixel pixel) { return pixel >> 24 == 0 ? Pixel{0xFFFFFF} : Pixel{0}; });
        mask->write(0, y, row);
    }
    return mask;
}

} // namespace

std::optional<Icon> makeIcon(const Bitmap& mask, const Bitmap* color) {
    const int width = mask.width();
    const int height = color ? mask.height() : mask.height() / 2;
    const auto maskCopy = monochrome(width, height);
    const auto image = color ? Bitmap::create(width, height) : monochrome(width, height);
    if (!maskCopy || !image) {
        return std::nullopt;
    }
    copyRows(mask, 0, *maskCopy, 0, height);
    copyRows(color ? *color : mask, color ? 0 : height, *image, 0, height);
    return Icon{.image = image, .mask = maskCopy, .hasAlpha = color && color->bitsPerPixel() == 32 && anyAlpha(*image)};
}

std::shared_ptr<Bitmap> maskBitmapOf(const Icon& icon) {
    if (!icon.mask) {
        return maskFromAlpha(icon);
    }
    const int height = icon.mask->height();
    auto result = monochrome(icon.mask->width(), isBlackAndWhite(icon) ? 2 * height : height);
    if (result) {
        copyRows(*icon.mask, 0, *result, 0, height);
        if (isBlackAndWhite(icon)) {
            copyRows(*icon.image, 0, *result, height, height);
        }
    }
    return result;
}

std::shared_ptr<Bitmap> colorBitmapOf(const Icon& icon) {
    if (isBlackAndWhite(icon)) {
        return nullptr;
    }
    auto result = Bitmap::create(icon.image->width(), icon.image->height());
    if (result) {
        copyRows(*icon.image, 0, *result, 0, result->height());
    }
    return result;
}

} // namespace mox::host
