#include "host/metafiles/arcs.h"
#include "host/metafiles/stage.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace mox::host {

namespace {

PathPoint exact(POINT point) {
    return {static_cast<double>(point.x), static_cast<double>(point.y)};
}

/// In a box whose right and lower edge do not belong to it: lines go through the last pixels.
Oval ovalIn(const RECT& area) {
    const double left = std::min(area.left, area.right);
    const double top = std::min(area.top, area.bottom);
    const double right = std::max({area.left, area.right}) - 1.0;
    const double bottom = std::max({area.top, area.bottom}) - 1.0;
    return {{(left + right) / 2, (top + bottom) / 2}, std::max(0.0, (right - left) / 2), std::max(0.0, (bottom - top) / 2)};
}

POINT rounded(PathPoint point) {
    return {static_cast<std::int32_t>(std::floor(point.x + 0.5)), static_cast<std::int32_t>(std::floor(point.y + 0.5))};
}

constexpr double fullTurn = 2 * std::numbers::pi;

/// From one angle to another in a direction; a full turn if they are the same.
double sweepBetween(double from, double to, bool isClockwise) {
    double sweep = std::fmod(isClockwise ? to - from : from - to, fullTurn);
    sweep = sweep <= 1e-12 ? sweep + fullTurn : sweep;
    return isClockwise ? sweep : -sweep;
}

} // namespace

bool Stage::arc(Arc kind, const RECT& area, POINT from, POINT to, bool isClockwise) {
    const Oval oval = ovalIn(area);
    const double start = angleTowards(oval, exact(from));
    const double sweep = sweepBetween(start, angleTowards(oval, exact(to)), isClockwise);
    const PathPoint first = pointAt(oval, start);
    Path curve;
    if (kind == Arc::continued) {
        curve.moveTo(toPath(state().position));
        curve.lineTo(toPath(first));
    } else if (kind == Arc::pie) {
        curve.moveTo(toPath(oval.center));
        curve.lineTo(toPath(first));
    } else {
        curve.moveTo(toPath(first));
    }
    appendArc(curve, oval, target_.toDevice(), start, sweep);
    const bool isArea = kind == Arc::chord || kind == Arc::pie;
    if (isArea) {
        curve.close();
    }
    return drawCurve(curve, isArea, kind == Arc::continued, rounded(pointAt(oval, start + sweep)));
}

bool Stage::angleArc(POINT center, std::uint32_t radius, double start, double sweep) {
    constexpr double radian = std::numbers::pi / 180;
    const double extent = std::min<double>(radius, 1 << 27);
    const Oval oval{exact(center), extent, extent};
    // Counterclockwise is against the way of angles with the y axis down.
    const double from = -std::fmod(start, 360) * radian;
    const double by = -std::clamp(sweep, -360.0, 360.0) * radian;
    Path curve;
    curve.moveTo(toPath(state().position));
    curve.lineTo(toPath(pointAt(oval, from)));
    appendArc(curve, oval, target_.toDevice(), from, by);
    return drawCurve(curve, false, true, rounded(pointAt(oval, from + by)));
}

bool Stage::drawCurve(const Path& curve, bool isArea, bool isContinued, POINT end) {
    bool isDrawn = true;
    if (!isPathOpen_) {
        isDrawn = target_.drawPath(curve, isArea, true);
    } else if (isContinued && isFigureOpen_) {
        appendWithoutMove(curve);
    } else {
        path_.append(curve);
        isFigureOpen_ = isContinued;
    }
    POINT before;
    return isContinued ? target_.moveTo(end, before) && isDrawn : isDrawn;
}

void Stage::appendWithoutMove(const Path& curve) {
    const auto& points = curve.points();
    path_.lineTo(points[1]);
    for (std::size_t index = 2; index + 2 < points.size(); index += 3) {
        path_.curveTo(points[index], points[index + 1], points[index + 2]);
    }
}

void Stage::appendRoundRect(const RECT& area, SIZE corner) {
    const Oval box = ovalIn(area);
    const double radiusX = std::min(box.radiusX, std::abs(corner.cx) / 2.0);
    const double radiusY = std::min(box.radiusY, std::abs(corner.cy) / 2.0);
    const double insideX = box.radiusX - radiusX;
    const double insideY = box.radiusY - radiusY;
    const Transform transform = target_.toDevice();
    constexpr double quarter = fullTurn / 4;
    // From the right upper corner counterclockwise, as other shapes go.
    const PathPoint signs[]{{1, -1}, {-1, -1}, {-1, 1}, {1, 1}};
    double angle = 0;
    for (const PathPoint& sign : signs) {
        const Oval oval{{box.center.x + sign.x * insideX, box.center.y + sign.y * insideY}, radiusX, radiusY};
        const PathPoint start = toPath(pointAt(oval, angle));
        angle == 0 ? path_.moveTo(start) : path_.lineTo(start);
        appendArc(path_, oval, transform, angle, -quarter);
        angle -= quarter;
    }
    path_.close();
    isFigureOpen_ = false;
}

} // namespace mox::host
