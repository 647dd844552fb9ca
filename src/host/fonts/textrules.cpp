#include "host/fonts/textrules.h"

#include <algorithm>
#include <cmath>

namespace mox::host {

namespace {

std::int32_t wholePixel(double place) {
    constexpr double most = 1 << 28;
    return static_cast<std::int32_t>(std::floor(std::clamp(place, -most, most) + 0.5));
}

} // namespace

Paint solidPaint(platform::COLORREF color) {
    Paint paint;
    paint.brush.color = color;
    return paint;
}

bool fillTextArea(Canvas& canvas, const Typeface& typeface, PathPoint baseline, const TextArea& area, platform::COLORREF color,
                  const Region& clip) {
    const Paint paint = solidPaint(color);
    if (!typeface.isTurned()) {
        const Region pixels(RECT{wholePixel(baseline.x + area.from), wholePixel(baseline.y + area.top),
                                 wholePixel(baseline.x + area.to), wholePixel(baseline.y + area.bottom)});
        return pixels.isEmpty() || canvas.fill(pixels, paint, clip);
    }
    const PathPoint along = typeface.along();
    const PathPoint down = typeface.down();
    const auto corner = [&](double x, double y) {
        return PathPoint{baseline.x + along.x * x + down.x * y, baseline.y + along.y * x + down.y * y};
    };
    Path path;
    path.moveTo(corner(area.from, area.top));
    path.lineTo(corner(area.to, area.top));
    path.lineTo(corner(area.to, area.bottom));
    path.lineTo(corner(area.from, area.bottom));
    path.close();
    return canvas.fill(path, FillRule::winding, paint, clip);
}

} // namespace mox::host
