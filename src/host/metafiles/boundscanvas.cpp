#include "host/metafiles/boundscanvas.h"

#include "host/fonts/typeface.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace mox::host {

namespace {

constexpr std::int32_t farthest = 1 << 28;

std::int32_t whole(double value) {
    return static_cast<std::int32_t>(std::clamp(value, -1.0 * farthest, 1.0 * farthest));
}

/// Around points, with so much on every side.
RECT around(PathPoint least, PathPoint most, double margin) {
    return {whole(std::floor(least.x - margin)), whole(std::floor(least.y - margin)), whole(std::ceil(most.x + margin)),
            whole(std::ceil(most.y + margin))};
}

} // namespace

RECT unitedBounds(const RECT& a, const RECT& b) noexcept {
    if (isEmpty(a) || isEmpty(b)) {
        return isEmpty(a) ? b : a;
    }
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

RECT BoundsCanvas::bounds() const {
    return {-farthest, -farthest, farthest, farthest};
}

RECT BoundsCanvas::take() noexcept {
    return std::exchange(drawn_, RECT());
}

void BoundsCanvas::include(const RECT& area, const Region& clip) {
    drawn_ = unitedBounds(drawn_, intersection(area, clip.bounds()));
}

void BoundsCanvas::include(const Path& path, double margin, const Region& clip) {
    if (path.points().empty()) {
        return;
    }
    PathPoint least = path.points().front();
    PathPoint most = least;
    for (const PathPoint& point : path.points()) {
        least = {std::min(least.x, point.x), std::min(least.y, point.y)};
        most = {std::max(most.x, point.x), std::max(most.y, point.y)};
    }
    include(around(least, most, margin), clip);
}

bool BoundsCanvas::fill(const Region& area, const Paint&, const Region& clip) {
    include(area.bounds(), clip);
    return true;
}

bool BoundsCanvas::fill(const Path& path, FillRule, const Paint&, const Region& clip) {
    include(path.flattened(), 0, clip);
    return true;
}

bool BoundsCanvas::stroke(const Path& path, const Stroke& stroke, const Region& clip) {
    // Lines lie in the middle of pixels.
    RECT before = std::exchange(drawn_, RECT());
    include(path.flattened(), std::max(0.0, (stroke.pen.width - 1) / 2.0), clip);
    if (!path.points().empty()) {
        const RECT line{drawn_.left, drawn_.top, drawn_.right + 1, drawn_.bottom + 1};
        drawn_ = intersection(line, clip.bounds());
    }
    drawn_ = unitedBounds(before, drawn_);
    return true;
}

bool BoundsCanvas::copy(const ImageCopy& copy, const Region& clip) {
    const SignedRect& target = copy.target;
    include({std::min(target.x, target.x + target.cx), std::min(target.y, target.y + target.cy),
             std::max(target.x, target.x + target.cx), std::max(target.y, target.y + target.cy)},
            clip);
    return true;
}

bool BoundsCanvas::text(const TextRun& run, const Region& clip) {
    if (run.glyphs.empty() || !run.typeface) {
        return true;
    }
    Path box;
    const PathPoint along = run.typeface->along();
    const PathPoint down = run.typeface->down();
    const double ascent = run.typeface->ascent();
    const double descent = run.typeface->descent();
    const double width = run.typeface->averageWidth();
    for (const TextRun::Glyph& glyph : run.glyphs) {
        const auto [x, y] = glyph.position;
        box.moveTo({x - down.x * ascent, y - down.y * ascent});
        box.lineTo({x + down.x * descent, y + down.y * descent});
        box.lineTo({x + along.x * width + down.x * descent, y + along.y * width + down.y * descent});
    }
    include(box, 0, clip);
    return true;
}

platform::COLORREF BoundsCanvas::setPixel(POINT point, platform::COLORREF color) {
    drawn_ = unitedBounds(drawn_, {point.x, point.y, point.x + 1, point.y + 1});
    return color & 0xFFFFFF;
}

} // namespace mox::host
