#include "host/pixels/paintrows.h"

#include "host/graphics/repeats.h"
#include "host/pixels/blackorwhite.h"

#include <algorithm>

namespace mox::host {

PaintRows::PaintRows(const Paint& paint, bool isForMonochrome) : paint_(paint), isForMonochrome_(isForMonochrome) {}

bool PaintRows::isLine(int x, int y) const noexcept {
    const auto& hatch = hatchBits(paint_.brush.hatch);
    const int column = placeIn(x, paint_.origin.x, hatchSide);
    const int row = placeIn(y, paint_.origin.y, hatchSide);
    return (hatch[static_cast<std::size_t>(row)] >> (7 - column) & 1) != 0;
}

Pixel PaintRows::shown(platform::COLORREF color) const noexcept {
    const Pixel pixel = toPixel(color);
    return isForMonochrome_ ? blackOrWhite(pixel) : pixel;
}

void PaintRows::readPattern(int y) {
    const Bitmap& pattern = *paint_.brush.pattern;
    pattern_.resize(static_cast<std::size_t>(pattern.width()));
    pattern.read(0, placeIn(y, paint_.origin.y, pattern.height()), pattern_);
    if (pattern.isMonochrome() && !isForMonochrome_) {
        const Pixel colors[] = {toPixel(paint_.textColor), toPixel(paint_.backColor)};
        std::ranges::transform(pattern_, pattern_.begin(), [&](Pixel pixel) { return colors[pixel & 1]; });
    } else if (isForMonochrome_) {
        std::ranges::transform(pattern_, pattern_.begin(), blackOrWhite);
    }
}

const Pixel* PaintRows::row(int x, int y, std::size_t count) {
    row_.resize(count);
    if (paint_.brush.style == platform::BS_HATCHED) {
        const Pixel line = shown(paint_.brush.color);
        const Pixel ground = shown(paint_.backColor);
        for (std::size_t i = 0; i < count; ++i) {
            row_[i] = isLine(x + static_cast<int>(i), y) ? line : ground;
        }
    } else if (paint_.brush.style == platform::BS_PATTERN && paint_.brush.pattern) {
        readPattern(y);
        auto place = static_cast<std::size_t>(placeIn(x, paint_.origin.x, paint_.brush.pattern->width()));
        for (Pixel& pixel : row_) {
            pixel = pattern_[place];
            place = place + 1 == pattern_.size() ? 0 : place + 1;
        }
    } else {
        std::ranges::fill(row_, shown(paint_.brush.color));
    }
    return row_.data();
}

} // namespace mox::host
