#include "host/pixels/rowcopy.h"

#include "host/pixels/pixelloops.h"

namespace mox::host {

namespace {

using Kind = ImageCopy::Kind;
using Box = pixman_box32_t;

} // namespace

RowCopy::RowCopy(Bitmap& target, const ImageCopy& copy, const Placement& placement, int left, int right, const Bitmap* source,
                 bool isWithin)
    : target_(target), copy_(copy), isRaster_(copy.kind == Kind::raster), hasPaint_(isRaster_ && usesPattern(copy.rop)),
      isUpwards_(isWithin && placement.distance().y < 0), paint_(copy.paint, target.isMonochrome()) {
    if (source) {
        source_.emplace(copy, placement.x, placement.y, left, right, isRaster_ && target.isMonochrome(), isWithin);
    }
}

void RowCopy::copy(const Box& box) {
    for (int i = box.y1; i < box.y2; ++i) {
        const int y = isUpwards_ ? box.y2 - 1 - (i - box.y1) : i;
        const Pixel* const source = source_ ? source_->row(y, box.x1, box.x2) : nullptr;
        if (isRaster_) {
            combineRow(source, box.x1, y, widthOf(box));
        } else {
            target_.change(box.x1, y, widthOf(box), true, [&](Pixel* pixels) { mixRow(pixels, source, widthOf(box)); });
        }
    }
}

void RowCopy::mixRow(Pixel* pixels, const Pixel* source, std::size_t count) const {
    if (copy_.kind == Kind::transparent) {
        copyKeyed(toPixel(copy_.transparentColor), pixels, source, count);
    } else {
        const auto blend = copy_.blend.AlphaFormat == platform::AC_SRC_ALPHA ? layOver : mix;
        blend(copy_.blend.SourceConstantAlpha, pixels, source, count);
    }
}

void RowCopy::combineRow(const Pixel* source, int x, int y, std::size_t count) {
    const Pixel* const pattern = hasPaint_ ? paint_.row(x, y, count) : nullptr;
    const auto change = [&](const Pixel* sources, const Pixel* patterns) {
        return [this, x, y, count, sources, patterns](Pixel* pixels) { combineAt(pixels, sources, patterns, x, y, count); };
    };
    // Nothing but one operand means the same in numbers and in colours.
    const std::uint8_t table = truthTable(copy_.rop);
    const bool isReplacing = table == truthTable(platform::SRCCOPY) || table == truthTable(platform::PATCOPY);
    if (target_.isPlain() || target_.hasTable() || (isReplacing && !hasHoles())) {
        target_.change(x, y, count, usesTarget(copy_.rop) || hasHoles(), change(source, pattern));
    } else {
        target_.changeRaw(x, y, count,
                          change(target_.toRaw(source, count, rawSource_), target_.toRaw(pattern, count, rawPattern_)));
    }
}

void RowCopy::combineAt(Pixel* pixels, const Pixel* source, const Pixel* pattern, int x, int y, std::size_t count) const {
    if (!hasHoles()) {
        combineRun(pixels, source, pattern, count);
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (!paint_.isHole(x + static_cast<int>(i), y)) {
            combineRun(pixels + i, source ? source + i : nullptr, pattern + i, 1);
        }
    }
}

void RowCopy::combineRun(Pixel* pixels, const Pixel* source, const Pixel* pattern, std::size_t count) const {
    if (!source && target_.isPlain()) {
        paintOver(truthTable(copy_.rop), pixels, pattern, count);
    } else {
        combine(truthTable(copy_.rop), pixels, source, pattern, count);
    }
}

} // namespace mox::host
