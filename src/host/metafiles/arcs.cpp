#include "host/metafiles/arcs.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace mox::host {

double angleTowards(const Oval& oval, PathPoint point) {
    const double dx = point.x - oval.center.x;
    const double dy = point.y - oval.center.y;
    if (oval.radiusX == 0 || oval.radiusY == 0) {
        return std::atan2(dy, dx);
    }
    return std::atan2(dy / oval.radiusY, dx / oval.radiusX);
}

PathPoint pointAt(const Oval& oval, double angle) {
    return {oval.center.x + oval.radiusX * std::cos(angle), oval.center.y + oval.radiusY * std::sin(angle)};
}

namespace {

/// Within what paths may hold.
PathPoint placed(const Transform& transform, PathPoint point) {
    constexpr double farthest = 1 << 28;
    const PathPoint place = transform.apply(point);
    return {std::clamp(place.x, -farthest, farthest), std::clamp(place.y, -farthest, farthest)};
}

} // namespace

void appendArc(Path& path, const Oval& oval, const Transform& transform, double start, double sweep) {
    constexpr double quarter = std::numbers::pi / 2;
    constexpr double most = 4 * quarter;
    sweep = std::clamp(sweep, -most, most);
    const int parts = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / quarter - 1e-9)));
    const double step = sweep / parts;
    const double reach = 4.0 / 3 * std::tan(step / 4);
    for (int part = 0; part < parts; ++part) {
        const double from = start + part * step;
        const double to = from + step;
        const PathPoint first = pointAt(oval, from);
        const PathPoint last = pointAt(oval, to);
        const PathPoint control1{first.x - oval.radiusX * std::sin(from) * reach,
                                 first.y + oval.radiusY * std::cos(from) * reach};
        const PathPoint control2{last.x + oval.radiusX * std::sin(to) * reach, last.y - oval.radiusY * std::cos(to) * reach};
        path.curveTo(placed(transform, control1), placed(transform, control2), placed(transform, last));
    }
}

} // namespace mox::host
