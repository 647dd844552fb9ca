#include "host/metafiles/stage.h"

#include <algorithm>

namespace mox::host {

namespace {

constexpr std::uint8_t closesFigure = 1;
constexpr std::uint8_t isLine = 2;
constexpr std::uint8_t isCurve = 4;
constexpr std::uint8_t isMove = 6;

std::vector<POINT> fromPosition(POINT position, std::span<const POINT> points) {
    std::vector<POINT> all{position};
    all.insert(all.end(), points.begin(), points.end());
    return all;
}

} // namespace

bool Stage::moveTo(POINT point) {
    isFigureOpen_ = false;
    POINT before;
    return target_.moveTo(point, before);
}

bool Stage::lineTo(POINT point) {
    if (!isPathOpen_) {
        return target_.lineTo(point);
    }
    return polylineTo({&point, 1});
}

bool Stage::polyline(std::span<const POINT> points) {
    if (!isPathOpen_) {
        return target_.polyline(points);
    }
    appendFigure(points, false);
    return true;
}

bool Stage::polylineTo(std::span<const POINT> points) {
    if (points.empty()) {
        return true;
    }
    if (isPathOpen_) {
        continuePath();
        appendLines(points);
        state().position = points.back();
        return true;
    }
    POINT before;
    return target_.polyline(fromPosition(state().position, points)) && target_.moveTo(points.back(), before);
}

bool Stage::polygon(std::span<const POINT> points) {
    if (!isPathOpen_) {
        return target_.polygon(points);
    }
    appendFigure(points, true);
    return true;
}

bool Stage::polyPolyline(std::span<const POINT> points, std::span<const std::uint32_t> counts) {
    bool isDrawn = true;
    for (const std::uint32_t count : counts) {
        isDrawn = polyline(points.first(count)) && isDrawn;
        points = points.subspan(count);
    }
    return isDrawn;
}

bool Stage::polyPolygon(std::span<const POINT> points, std::span<const std::uint32_t> counts) {
    if (!isPathOpen_) {
        return target_.polyPolygon(points, counts);
    }
    for (const std::uint32_t count : counts) {
        appendFigure(points.first(count), true);
        points = points.subspan(count);
    }
    return true;
}

bool Stage::polyBezier(std::span<const POINT> points) {
    if (!isPathOpen_) {
        return target_.polyBezier(points);
    }
    if (!points.empty()) {
        path_.moveTo(toPath(points.front()));
        appendCurves(points.subspan(1));
        isFigureOpen_ = false;
    }
    return true;
}

bool Stage::polyBezierTo(std::span<const POINT> points) {
    if (points.empty() || points.size() % 3 != 0) {
        return false;
    }
    if (isPathOpen_) {
        continuePath();
        appendCurves(points);
        state().position = points.back();
        return true;
    }
    POINT before;
    return target_.polyBezier(fromPosition(state().position, points)) && target_.moveTo(points.back(), before);
}

bool Stage::polyDraw(std::span<const POINT> points, std::span<const std::byte> kinds) {
    if (kinds.size() < points.size()) {
        return false;
    }
    const bool isDrawn = !isPathOpen_;
    if (isDrawn) {
        beginPath();
    }
    for (std::size_t index = 0; index < points.size();) {
        const auto kind = std::to_integer<std::uint8_t>(kinds[index]);
        const std::size_t count = (kind & ~closesFigure) == isCurve ? 3 : 1;
        if (count > points.size() - index) {
            break;
        }
        const auto part = points.subspan(index, count);
        index += count;
        switch (kind & ~closesFigure) {
        case isMove:
            isFigureOpen_ = false;
            state().position = part.front();
            continue;
        case isLine:
            polylineTo(part);
            break;
        case isCurve:
            polyBezierTo(part);
            break;
        default:
            continue;
        }
        if ((std::to_integer<std::uint8_t>(kinds[index - 1]) & closesFigure) != 0) {
            closeFigure();
        }
    }
    return !isDrawn || (endPath() && drawPath(false, true));
}

bool Stage::rectangle(const RECT& area) {
    if (!isPathOpen_) {
        return target_.rectangle(area);
    }
    // An outline goes through the last pixels, not behind them.
    const POINT corners[]{
        {area.right - 1, area.top}, {area.left, area.top}, {area.left, area.bottom - 1}, {area.right - 1, area.bottom - 1}};
    appendFigure(corners, true);
    return true;
}

bool Stage::roundRect(const RECT& area, SIZE corner) {
    if (!isPathOpen_) {
        return target_.roundRect(area, corner);
    }
    appendRoundRect(area, corner);
    return true;
}

bool Stage::ellipse(const RECT& area) {
    if (!isPathOpen_) {
        return target_.ellipse(area);
    }
    appendRoundRect(area, {area.right - area.left, area.bottom - area.top});
    return true;
}

} // namespace mox::host
