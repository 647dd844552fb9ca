#include "host/graphics/strokeoutline.h"
#include "host/metafiles/pathfigures.h"
#include "host/metafiles/stage.h"

#include <algorithm>
#include <utility>

namespace mox::host {

namespace {

constexpr double farthest = 1 << 28;

/// Where a path may be on a canvas without end.
constexpr RECT widest{-16384, -16384, 16384, 16384};

} // namespace

PathPoint Stage::toPath(POINT point) const {
    return toPath(PathPoint{static_cast<double>(point.x), static_cast<double>(point.y)});
}

PathPoint Stage::toPath(PathPoint point) const {
    const PathPoint place = target_.toDevicePoint(point);
    return {std::clamp(place.x, -farthest, farthest), std::clamp(place.y, -farthest, farthest)};
}

void Stage::beginPath() {
    path_.clear();
    isPathOpen_ = true;
    isFigureOpen_ = false;
}

bool Stage::endPath() {
    return std::exchange(isPathOpen_, false);
}

bool Stage::closeFigure() {
    if (isPathOpen_ && isFigureOpen_) {
        path_.close();
        isFigureOpen_ = false;
    }
    return isPathOpen_;
}

void Stage::abortPath() {
    path_.clear();
    isPathOpen_ = false;
}

bool Stage::drawPath(bool isFilled, bool isStroked) {
    if (isPathOpen_) {
        return false;
    }
    const Path path = std::exchange(path_, Path());
    return path.isEmpty() || target_.drawPath(isFilled ? closedFigures(path) : path, isFilled, isStroked);
}

bool Stage::selectClipPath(std::uint32_t mode) {
    if (isPathOpen_) {
        return false;
    }
    const Path path = std::exchange(path_, Path());
    const RECT bounds = intersection(target_.canvas().bounds(), widest);
    return combineClip(regionOf(closedFigures(path), state().fillRule, bounds), mode);
}

bool Stage::flattenPath() {
    if (!isPathOpen_) {
        path_ = path_.flattened();
    }
    return !isPathOpen_;
}

bool Stage::widenPath() {
    if (!isPathOpen_) {
        // Areas lie half a pixel before the lines that they are made of.
        path_ = moved(outlineOf(path_, target_.stroke()), -0.5);
    }
    return !isPathOpen_;
}

void Stage::continuePath() {
    if (!isFigureOpen_) {
        path_.moveTo(toPath(state().position));
        isFigureOpen_ = true;
    }
}

void Stage::appendLines(std::span<const POINT> points) {
    for (const POINT point : points) {
        path_.lineTo(toPath(point));
    }
}

void Stage::appendCurves(std::span<const POINT> points) {
    for (; points.size() >= 3; points = points.subspan(3)) {
        path_.curveTo(toPath(points[0]), toPath(points[1]), toPath(points[2]));
    }
}

void Stage::appendFigure(std::span<const POINT> points, bool isClosed) {
    if (!points.empty()) {
        path_.moveTo(toPath(points.front()));
        appendLines(points.subspan(1));
        if (isClosed) {
            path_.close();
        }
        isFigureOpen_ = false;
    }
}

} // namespace mox::host
