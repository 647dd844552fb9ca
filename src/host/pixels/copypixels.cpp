#include "host/pixels/copypixels.h"

#include "host/pixels/rasteroperation.h"
#include "host/pixels/rowcopy.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace mox::host {

namespace {

using Kind = ImageCopy::Kind;
using Box = pixman_box32_t;

Placement placementOf(const ImageCopy& copy, const Bitmap* source, const RECT& bounds) {
    const SignedRect& to = copy.target;
    const SignedRect& from = source ? copy.area : copy.target;
    Placement placement{{to.x, to.cx, from.x, from.cx}, {to.y, to.cy, from.y, from.cy}, {}};
    const auto reach = [&](const CopyAxis& axis, int begin, int end, int size) {
        const PlaceRange places{begin, end};
        const PlaceRange all{std::max(places.begin, axis.target().begin), std::min(places.end, axis.target().end)};
        return source ? axis.within(places, size) : all;
    };
    const PlaceRange columns = reach(placement.x, bounds.left, bounds.right, source ? source->width() : 0);
    const PlaceRange rows = reach(placement.y, bounds.top, bounds.bottom, source ? source->height() : 0);
    if (!columns.isEmpty() && !rows.isEmpty()) {
        placement.visible = {static_cast<std::int32_t>(columns.begin), static_cast<std::int32_t>(rows.begin),
                             static_cast<std::int32_t>(columns.end), static_cast<std::int32_t>(rows.end)};
    }
    return placement;
}

RECT sourceArea(const Placement& placement, const Bitmap& source) {
    const auto within = [](std::int64_t place, int size) {
        return static_cast<std::int32_t>(std::clamp<std::int64_t>(place, 0, size));
    };
    return {within(placement.x.source().begin, source.width()), within(placement.y.source().begin, source.height()),
            within(placement.x.source().end, source.width()), within(placement.y.source().end, source.height())};
}

/// What the sums of places and their products have room for.
bool isInReach(const SignedRect& area) {
    constexpr std::int64_t most = 1 << 29;
    const std::int64_t numbers[] = {area.x, area.y, area.cx, area.cy};
    return std::ranges::all_of(numbers, [](std::int64_t number) { return std::abs(number) <= most; });
}

/// Columns that are copied at a time, so that rows in between stay small whatever the width of a bitmap is.
constexpr int widest = 1 << 14;

/// A bitmap of its own with an area of another.
std::shared_ptr<Bitmap> cutOut(const Bitmap& source, const RECT& area) {
    BitmapFormat format = source.format();
    format.width = area.right - area.left;
    format.height = area.bottom - area.top;
    auto result = Bitmap::create(std::move(format));
    if (result) {
        std::vector<Pixel> row;
        for (int y = 0; y < result->height(); ++y) {
            for (int x = 0; x < result->width(); x += widest) {
                row.resize(static_cast<std::size_t>(std::min(widest, result->width() - x)));
                source.read(area.left + x, area.top + y, row);
                result->write(x, y, row);
            }
        }
    }
    return result;
}

/// True for two bitmaps of which one may show pixels of the other, or both those of a third one.
bool overlap(const Bitmap& a, const Bitmap& b) {
    const std::byte* const aEnd = a.bytes().data() + a.bytes().size();
    const std::byte* const bEnd = b.bytes().data() + b.bytes().size();
    return &a != &b && std::less<>()(a.bytes().data(), bEnd) && std::less<>()(b.bytes().data(), aEnd);
}

/// True if pixels go from one to the other as they are, a whole number of bytes each.
bool haveSameLayout(const Bitmap& a, const Bitmap& b) {
    return a.bitsPerPixel() == b.bitsPerPixel() && a.bitsPerPixel() >= 8 && a.masks() == b.masks() &&
           std::ranges::equal(a.colors(), b.colors());
}

/// Copies an area whose pixels are all there. The bitmaps may be the same.
void moveBytes(Bitmap& target, const Box& box, const Bitmap& source, POINT distance) {
    const std::size_t pixelBytes = static_cast<std::size_t>(target.bitsPerPixel()) / 8;
    const std::size_t size = widthOf(box) * pixelBytes;
    const auto to = [&](int y) { return target.row(y) + static_cast<std::size_t>(box.x1) * pixelBytes; };
    const auto from = [&](int y) {
        return source.row(y + distance.y) + static_cast<std::size_t>(box.x1 + distance.x) * pixelBytes;
    };
    if (target.stride() == source.stride() && size == target.rowBytes()) {
        const int first = target.stride() > 0 ? box.y1 : box.y2 - 1;
        std::memmove(to(first), from(first), size * static_cast<std::size_t>(box.y2 - box.y1));
        return;
    }
    const bool isDownwards = distance.y > 0;
    for (int i = box.y1; i < box.y2; ++i) {
        const int y = isDownwards ? i : box.y2 - 1 - (i - box.y1);
        std::memmove(to(y), from(y), size);
    }
}

bool copyVisible(Bitmap& target, const ImageCopy& copy, const Bitmap* source, const Placement& placement, const Region& visible) {
    const auto boxes = visible.boxes();
    const bool isWithin = source == &target && !isEmpty(intersection(sourceArea(placement, target), placement.visible));
    const int width = placement.visible.right - placement.visible.left;
    if ((isWithin && (boxes.size() > 1 || !placement.isShift() || width > widest)) || (source && overlap(target, *source))) {
        const RECT area = sourceArea(placement, *source);
        ImageCopy detached = copy;
        detached.source = cutOut(*source, area);
        detached.area.x -= area.left;
        detached.area.y -= area.top;
        return detached.source && copyPixels(target, detached, visible);
    }
    const bool isPlainCopy = copy.kind == Kind::raster && truthTable(copy.rop) == truthTable(platform::SRCCOPY);
    if (source && isPlainCopy && placement.isShift() && haveSameLayout(target, *source)) {
        for (const Box& box : boxes) {
            moveBytes(target, box, *source, placement.distance());
        }
        return true;
    }
    for (int left = placement.visible.left; left < placement.visible.right;) {
        const int right = left + std::min(widest, placement.visible.right - left);
        RowCopy rows(target, copy, placement, left, right, source, isWithin);
        for (const Box& box : boxes) {
            if (box.x1 < right && box.x2 > left) {
                rows.copy({std::max(box.x1, left), box.y1, std::min(box.x2, right), box.y2});
            }
        }
        left = right;
    }
    return true;
}

} // namespace

bool copyPixels(Bitmap& target, const ImageCopy& copy, const Region& clip) {
    const bool isRaster = copy.kind == Kind::raster;
    const Bitmap* const source = !isRaster || usesSource(copy.rop) ? copy.source.get() : nullptr;
    if (!source && (!isRaster || usesSource(copy.rop))) {
        return false;
    }
    if (!isInReach(copy.target) || (source && !isInReach(copy.area))) {
        return false;
    }
    if (isRaster && usesPattern(copy.rop) && copy.paint.brush.style == platform::BS_NULL) {
        return true;
    }
    const Placement placement = placementOf(copy, source, intersection(target.bounds(), clip.bounds()));
    if (isEmpty(placement.visible)) {
        return true;
    }
    Region visible(clip);
    visible.intersect(placement.visible);
    return copyVisible(target, copy, source, placement, visible);
}

} // namespace mox::host
