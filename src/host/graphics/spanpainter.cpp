#include "host/graphics/spanpainter.h"

#include "host/graphics/rawpixels.h"
#include "host/graphics/repeats.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace mox::host {

SpanPainter::SpanPainter(Bitmap& target, platform::COLORREF color, std::int32_t rop2) noexcept
    : target_(target), rop2_(rop2), mask_(rawMask(target)) {
    setSolid(color);
}

SpanPainter::SpanPainter(Bitmap& target, const Paint& paint) noexcept
    : target_(target), paint_(&paint), rop2_(paint.rop2), mask_(rawMask(target)) {
    switch (paint.brush.style) {
    case platform::BS_SOLID:
        setSolid(paint.brush.color);
        break;
    case platform::BS_HATCHED:
        setSolid(paint.brush.color);
        ground_ = paint.isTransparent ? Mix() : mixOf(rop2_, toRaw(target, toPixel(paint.backColor)), mask_);
        kind_ = mix_.changesNothing() && ground_.changesNothing() ? Kind::none : Kind::hatch;
        break;
    case platform::BS_PATTERN:
        kind_ = paint.brush.pattern && rop2_ != platform::R2_NOP ? Kind::pattern : Kind::none;
        break;
    default:
        break;
    }
}

void SpanPainter::setSolid(platform::COLORREF color) noexcept {
    mix_ = mixOf(rop2_, toRaw(target_, toPixel(color)), mask_);
    if (!mix_.changesNothing()) {
        kind_ = target_.isPlain() ? Kind::plain : Kind::solid;
    }
}

void SpanPainter::mixPlain(Pixel* pixels, int count, Mix mix) noexcept {
    // Blocks of a fixed size become vector instructions.
    constexpr int block = 8;
    for (; count >= block; count -= block, pixels += block) {
        for (int place = 0; place < block; ++place) {
            pixels[place] = mix(pixels[place]);
        }
    }
    for (; count > 0; --count, ++pixels) {
        *pixels = mix(*pixels);
    }
}

void SpanPainter::runOther(int y, int x1, int x2) const noexcept {
    switch (kind_) {
    case Kind::plain:
        mixPlain(target_.pixels(y) + x1, x2 - x1, mix_);
        break;
    case Kind::solid:
        runSolid(y, x1, x2);
        break;
    case Kind::hatch:
        runHatch(y, x1, x2);
        break;
    case Kind::pattern:
        runPattern(y, x1, x2);
        break;
    case Kind::none:
        break;
    }
}

void SpanPainter::mix(std::byte* row, int x, const Mix& mix) const noexcept {
    setRawAt(row, target_.bitsPerPixel(), x, mix(rawAt(row, target_.bitsPerPixel(), x)));
}

void SpanPainter::runSolid(int y, int x1, int x2) const noexcept {
    std::byte* const row = target_.row(y);
    const bool isCopy = (mix_.kept & mask_) == 0;
    if (target_.bitsPerPixel() == 8 && isCopy) {
        std::memset(row + x1, static_cast<int>(mix_.flipped), static_cast<std::size_t>(x2 - x1));
        return;
    }
    for (int x = x1; x < x2; ++x) {
        mix(row, x, mix_);
    }
}

void SpanPainter::runHatch(int y, int x1, int x2) const noexcept {
    const HatchBits& hatch = hatchBits(paint_->brush.hatch);
    const unsigned bits = hatch[static_cast<std::size_t>(placeIn(y, paint_->origin.y, hatchSide))];
    std::byte* const row = target_.row(y);
    int place = placeIn(x1, paint_->origin.x, 8);
    for (int x = x1; x < x2; ++x) {
        mix(row, x, (bits >> (7 - place) & 1) != 0 ? mix_ : ground_);
        place = (place + 1) & 7;
    }
}

void SpanPainter::runPattern(int y, int x1, int x2) const noexcept {
    constexpr int most = 128;
    std::array<Pixel, most> colors;
    std::array<std::uint32_t, most> raw;
    const Bitmap& pattern = *paint_->brush.pattern;
    const int patternRow = placeIn(y, paint_->origin.y, pattern.height());
    std::byte* const row = target_.row(y);
    int place = placeIn(x1, paint_->origin.x, pattern.width());
    for (int x = x1; x < x2;) {
        const int count = std::min({most, x2 - x, pattern.width() - place});
        const std::span<Pixel> part(colors.data(), static_cast<std::size_t>(count));
        pattern.read(place, patternRow, part);
        if (pattern.isMonochrome()) {
            std::ranges::transform(part, part.begin(),
                                   [&](Pixel bit) { return toPixel(bit != 0 ? paint_->backColor : paint_->textColor); });
        }
        toRaw(target_, part, raw);
        for (int i = 0; i < count; ++i) {
            mix(row, x + i, mixOf(rop2_, raw[static_cast<std::size_t>(i)], mask_));
        }
        x += count;
        place = (place + count) % pattern.width();
    }
}

} // namespace mox::host
