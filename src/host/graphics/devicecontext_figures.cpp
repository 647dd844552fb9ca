#include "host/graphics/devicecontext.h"

#include "host/graphics/shapepaths.h"

#include <algorithm>

namespace mox::host {

namespace {

PathPoint exact(POINT point) {
    return {static_cast<double>(point.x), static_cast<double>(point.y)};
}

template <class Change> Path changed(const Path& path, Change change) {
    Path result;
    auto point = path.points().begin();
    for (const Path::Verb verb : path.verbs()) {
        switch (verb) {
        case Path::Verb::move:
            result.moveTo(change(*point++));
            break;
        case Path::Verb::line:
            result.lineTo(change(*point++));
            break;
        case Path::Verb::curve:
            result.curveTo(change(point[0]), change(point[1]), change(point[2]));
            point += 3;
            break;
        case Path::Verb::close:
            result.close();
            break;
        }
    }
    return result;
}

void appendFigure(Path& path, std::span<const POINT> points, const Transform& transform) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        const PathPoint place = transform.apply(exact(points[i]));
        i == 0 ? path.moveTo(place) : path.lineTo(place);
    }
}

/// Where the middle of the pen goes along the edges of a box in device pixels, whose right and lower edge are left out.
PathBox penBox(POINT a, POINT b, const Stroke& stroke) {
    const double left = std::min(a.x, b.x);
    const double top = std::min(a.y, b.y);
    const double right = std::max(a.x, b.x);
    const double bottom = std::max(a.y, b.y);
    if (stroke.pen.style != platform::PS_INSIDEFRAME || stroke.pen.width <= 1) {
        return {left, top, right - 1, bottom - 1};
    }
    const double inset = stroke.pen.width / 2.0;
    const double insetX = std::min(inset, (right - left) / 2);
    const double insetY = std::min(inset, (bottom - top) / 2);
    // From the edges of pixels to their middle.
    return {left + insetX - 0.5, top + insetY - 0.5, right - insetX - 0.5, bottom - insetY - 0.5};
}

bool isFlat(const RECT& area) {
    return area.left == area.right || area.top == area.bottom;
}

/// A shape that fits in a box, with corners of that size.
bool drawShape(DeviceContext& context, const RECT& area, double cornerWidth, double cornerHeight) {
    const Transform transform = context.toDevice();
    if (isFlat(area)) {
        return true;
    }
    if (transform.keepsAxes()) {
        const PathBox box = penBox(context.toDevice(POINT{area.left, area.top}), context.toDevice(POINT{area.right, area.bottom}),
                                   context.stroke());
        if (box.left > box.right || box.top > box.bottom) {
            return true;
        }
        return context.drawPath(roundBoxPath(box, std::abs(cornerWidth * transform.m11), std::abs(cornerHeight * transform.m22)),
                                true, true);
    }
    const PathBox box{static_cast<double>(std::min(area.left, area.right)), static_cast<double>(std::min(area.top, area.bottom)),
                      static_cast<double>(std::max(area.left, area.right)), static_cast<double>(std::max(area.top, area.bottom))};
    const Path path = roundBoxPath(box, std::abs(cornerWidth), std::abs(cornerHeight));
    return context.drawPath(changed(path, [&](PathPoint point) { return transform.apply(point); }), true, true);
}

} // namespace

bool DeviceContext::ellipse(const RECT& area) {
    return drawShape(*this, area, static_cast<double>(area.right) - area.left, static_cast<double>(area.bottom) - area.top);
}

bool DeviceContext::roundRect(const RECT& area, SIZE corner) {
    return drawShape(*this, area, corner.cx, corner.cy);
}

bool DeviceContext::polyline(std::span<const POINT> points) {
    if (points.size() < 2) {
        return false;
    }
    Path path;
    appendFigure(path, points, toDevice());
    return drawPath(path, false, true);
}

bool DeviceContext::polygon(std::span<const POINT> points) {
    const auto count = static_cast<std::uint32_t>(points.size());
    return polyPolygon(points, {&count, 1});
}

bool DeviceContext::polyPolygon(std::span<const POINT> points, std::span<const std::uint32_t> counts) {
    const Transform transform = toDevice();
    Path path;
    for (const std::uint32_t count : counts) {
        if (count < 2 || count > points.size()) {
            return false;
        }
        appendFigure(path, points.first(count), transform);
        path.close();
        points = points.subspan(count);
    }
    return !counts.empty() && drawPath(path, true, true);
}

bool DeviceContext::polyBezier(std::span<const POINT> points) {
    if (points.size() < 4 || points.size() % 3 != 1) {
        return false;
    }
    const Transform transform = toDevice();
    const auto place = [&](std::size_t index) { return transform.apply(exact(points[index])); };
    Path path;
    path.moveTo(place(0));
    for (std::size_t i = 1; i < points.size(); i += 3) {
        path.curveTo(place(i), place(i + 1), place(i + 2));
    }
    return drawPath(path, false, true);
}

bool DeviceContext::drawPath(const Path& path, bool isFilled, bool isStroked) {
    const Region visible = clip();
    bool isDrawn = true;
    if (isFilled && state_.brush.object->style != platform::BS_NULL) {
        // Outlines run through the middle of pixels, so that no gap opens between the area and its line.
        const Path area = changed(path, [](PathPoint point) { return PathPoint{point.x + 0.5, point.y + 0.5}; });
        isDrawn = canvas_->fill(area, state_.fillRule, paint(), visible);
    }
    if (isStroked && state_.pen.object->style != platform::PS_NULL) {
        isDrawn = canvas_->stroke(path, stroke(), visible) && isDrawn;
    }
    return isDrawn;
}

} // namespace mox::host
