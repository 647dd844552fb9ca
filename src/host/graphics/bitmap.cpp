#include "host/graphics/bitmap.h"

#include "host/graphics/pixelformat.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace mox::host {

namespace {

constexpr std::size_t mostBytes = std::size_t{1} << 31;

bool isKnownDepth(int bitsPerPixel) {
    return bitsPerPixel == 1 || bitsPerPixel == 4 || bitsPerPixel == 8 || bitsPerPixel == 16 || bitsPerPixel == 24 ||
           bitsPerPixel == 32;
}

} // namespace

void Bitmap::Free::operator()(std::byte* bytes) const noexcept {
    std::free(bytes);
}

std::shared_ptr<Bitmap> Bitmap::create(BitmapFormat format) {
    if (format.width < 1 || format.height < 1 || !isKnownDepth(format.bitsPerPixel)) {
        return nullptr;
    }
    const std::size_t unit = format.isSection ? 32 : 16;
    const std::size_t rowBits = static_cast<std::size_t>(format.width) * static_cast<std::size_t>(format.bitsPerPixel);
    const std::size_t rowBytes = (rowBits + unit - 1) / unit * unit / 8;
    const std::size_t size = rowBytes * static_cast<std::size_t>(format.height);
    if (size >= mostBytes) {
        return nullptr;
    }
    if (format.bitsPerPixel <= 8) {
        format.colors.resize(std::size_t{1} << format.bitsPerPixel);
    }
    // Zeroed pages come from the system untouched, so that a large bitmap costs what is drawn into it.
    std::unique_ptr<std::byte, Free> bytes(static_cast<std::byte*>(std::calloc(size, 1)));
    return bytes ? std::make_shared<Bitmap>(Made(), std::move(format), rowBytes, std::move(bytes)) : nullptr;
}

std::shared_ptr<Bitmap> Bitmap::create(int width, int height) {
    return create({.width = width, .height = height});
}

std::shared_ptr<Bitmap> Bitmap::copy() const {
    auto result = create(format_);
    if (result && whole_) {
        for (int y = 0; y < height(); ++y) {
            std::copy_n(row(y), result->rowBytes_, result->row(y));
        }
    } else if (result) {
        std::ranges::copy(bytes(), result->bytes().begin());
    }
    return result;
}

std::shared_ptr<Bitmap> Bitmap::part(const std::shared_ptr<Bitmap>& whole, const platform::RECT& area) {
    const bool isWithin = area.left >= 0 && area.top >= 0 && area.left < area.right && area.top < area.bottom &&
                          area.right <= whole->width() && area.bottom <= whole->height();
    if (!isWithin || !whole->isPlain() || !whole->isTopDown()) {
        return nullptr;
    }
    BitmapFormat format = whole->format_;
    format.width = area.right - area.left;
    format.height = area.bottom - area.top;
    auto result = std::make_shared<Bitmap>(Made(), std::move(format), whole->rowBytes_, nullptr);
    result->first_ = reinterpret_cast<std::byte*>(whole->pixels(area.top) + area.left);
    result->whole_ = whole;
    return result;
}

std::span<std::byte> Bitmap::bytes() const noexcept {
    const auto rows = static_cast<std::size_t>(height());
    if (whole_) {
        return {first_, rowBytes_ * (rows - 1) + sizeof(Pixel) * static_cast<std::size_t>(width())};
    }
    return {bytes_.get(), rowBytes_ * rows};
}

Bitmap::Bitmap(Made, BitmapFormat format, std::size_t rowBytes, std::unique_ptr<std::byte, Free> bytes) noexcept
    : format_(std::move(format)), isPlain_(format_.bitsPerPixel == 32 && format_.masks == ChannelMasks()), rowBytes_(rowBytes),
      bytes_(std::move(bytes)),
      stride_(format_.isTopDown ? static_cast<std::ptrdiff_t>(rowBytes) : -static_cast<std::ptrdiff_t>(rowBytes)),
      first_(format_.isTopDown ? bytes_.get() : bytes_.get() + rowBytes * static_cast<std::size_t>(format_.height - 1)) {}

void Bitmap::read(int x, int y, std::span<Pixel> pixels) const noexcept {
    readPixels(format_, row(y), x, pixels);
}

void Bitmap::write(int x, int y, std::span<const Pixel> pixels) noexcept {
    writePixels(format_, row(y), x, pixels);
}

} // namespace mox::host
