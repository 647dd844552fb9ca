#include "host/metafiles/metafilecontext_record.h"
#include "host/metafiles/pathfigures.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace mox::host {

namespace {

/// Records hold the last pixels of rectangles.
RECT boxOf(const RECT& area) {
    return {std::min(area.left, area.right), std::min(area.top, area.bottom), std::max(area.left, area.right) - 1,
            std::max(area.top, area.bottom) - 1};
}

bool isShort(std::span<const POINT> points) {
    constexpr std::int32_t least = std::numeric_limits<std::int16_t>::min();
    constexpr std::int32_t most = std::numeric_limits<std::int16_t>::max();
    return std::ranges::all_of(
        points, [](POINT point) { return std::min(point.x, point.y) >= least && std::max(point.x, point.y) <= most; });
}

void addPoints(RecordWriter& record, std::span<const POINT> points, bool isNarrow) {
    for (const POINT point : points) {
        if (isNarrow) {
            record.u16(static_cast<std::uint32_t>(point.x)).u16(static_cast<std::uint32_t>(point.y));
        } else {
            record.point(point);
        }
    }
}

/// Units of a pixel in which the places of a path are whole, as far as that goes.
double unitsFor(const Path& path) {
    constexpr double finest = 4096;
    constexpr double farthest = 1 << 27;
    double units = 1;
    for (; units < finest; units *= 16) {
        const auto isWhole = [&](double place) { return place * units == std::floor(place * units); };
        const auto isFar = [&](double place) { return std::abs(place) * units * 16 > farthest; };
        const auto& points = path.points();
        if (std::ranges::all_of(points, [&](PathPoint point) { return isWhole(point.x) && isWhole(point.y); }) ||
            std::ranges::any_of(points, [&](PathPoint point) { return isFar(point.x) || isFar(point.y); })) {
            break;
        }
    }
    return units;
}

} // namespace

bool MetafileContext::lineTo(POINT point) {
    syncMapping();
    syncPosition();
    return record([&] { return DeviceContext::lineTo(point); },
                  [&](const RECT&) { write(begin(EnhancedRecord::lineTo).point(point)); });
}

bool MetafileContext::rectangle(const RECT& area) {
    return record([&] { return DeviceContext::rectangle(area); },
                  [&](const RECT&) { write(begin(EnhancedRecord::rectangle).rect(boxOf(area))); });
}

bool MetafileContext::ellipse(const RECT& area) {
    return record([&] { return DeviceContext::ellipse(area); },
                  [&](const RECT&) { write(begin(EnhancedRecord::ellipse).rect(boxOf(area))); });
}

bool MetafileContext::roundRect(const RECT& area, SIZE corner) {
    return record([&] { return DeviceContext::roundRect(area, corner); },
                  [&](const RECT&) { write(begin(EnhancedRecord::roundRect).rect(boxOf(area)).size(corner)); });
}

bool MetafileContext::fillRect(const RECT& area, const Brush& brush) {
    if (isRecorded_) {
        return DeviceContext::fillRect(area, brush);
    }
    // A copy of the brush alone, with the brush chosen for it.
    const Selected<Brush> chosen = std::exchange(state().brush, {0, std::make_shared<const Brush>(brush)});
    const bool isDrawn = record(
        [&] { return DeviceContext::fillRect(area, brush); },
        [&](const RECT& bounds) {
            writePatternCopy(bounds, {area.left, area.top, area.right - area.left, area.bottom - area.top}, platform::PATCOPY);
        });
    state().brush = chosen;
    return isDrawn;
}

void MetafileContext::writePoints(EnhancedRecord wide, EnhancedRecord narrow, const RECT& bounds, std::span<const POINT> points) {
    const bool isNarrow = isShort(points);
    RecordWriter record = begin(isNarrow ? narrow : wide);
    record.rect(bounds).u32(points.size());
    addPoints(record, points, isNarrow);
    write(record);
}

bool MetafileContext::polyline(std::span<const POINT> points) {
    return record([&] { return DeviceContext::polyline(points); },
                  [&](const RECT& bounds) { writePoints(EnhancedRecord::polyline, EnhancedRecord::polyline16, bounds, points); });
}

bool MetafileContext::polygon(std::span<const POINT> points) {
    return record([&] { return DeviceContext::polygon(points); },
                  [&](const RECT& bounds) { writePoints(EnhancedRecord::polygon, EnhancedRecord::polygon16, bounds, points); });
}

bool MetafileContext::polyBezier(std::span<const POINT> points) {
    return record(
        [&] { return DeviceContext::polyBezier(points); },
        [&](const RECT& bounds) { writePoints(EnhancedRecord::polyBezier, EnhancedRecord::polyBezier16, bounds, points); });
}

bool MetafileContext::polyPolygon(std::span<const POINT> points, std::span<const std::uint32_t> counts) {
    return record([&] { return DeviceContext::polyPolygon(points, counts); },
                  [&](const RECT& bounds) {
                      const bool isNarrow = isShort(points);
                      RecordWriter record = begin(isNarrow ? EnhancedRecord::polyPolygon16 : EnhancedRecord::polyPolygon);
                      const auto count = std::accumulate(counts.begin(), counts.end(), std::size_t{0});
                      record.rect(bounds).u32(counts.size()).u32(count).bytes(std::as_bytes(counts));
                      addPoints(record, points.first(count), isNarrow);
                      write(record);
                  });
}

platform::COLORREF MetafileContext::setPixel(POINT point, platform::COLORREF color) {
    platform::COLORREF set = platform::CLR_INVALID;
    record(
        [&] {
            set = DeviceContext::setPixel(point, color);
            return set != platform::CLR_INVALID;
        },
        [&](const RECT&) { write(begin(EnhancedRecord::setPixel).point(point).u32(color)); });
    return set;
}

bool MetafileContext::drawPath(const Path& path, bool isFilled, bool isStroked) {
    return record([&] { return DeviceContext::drawPath(path, isFilled, isStroked); },
                  [&](const RECT& bounds) {
                      // Places are in device pixels, with fractions, which logical coordinates have not.
                      const double units = unitsFor(path);
                      const auto draw = [&](const Path& figures, EnhancedRecord step) {
                          const DeviceState before = state();
                          const DeviceState plain = graphics().initialState();
                          state().windowOrigin = state().viewportOrigin = {};
                          state().windowExtent = state().viewportExtent = plain.windowExtent;
                          state().world = {1 / units, 0, 0, 1 / units, 0, 0};
                          syncMapping();
                          writeFigures(figures, units);
                          state() = before;
                          syncMapping();
                          write(begin(step).rect(bounds));
                      };
                      if (isFilled && isStroked && isClosed(path)) {
                          draw(path, EnhancedRecord::strokeAndFillPath);
                          return;
                      }
                      if (isFilled) {
                          draw(path, EnhancedRecord::fillPath);
                      }
                      if (isStroked) {
                          draw(path, EnhancedRecord::strokePath);
                      }
                  });
}

void MetafileContext::writeFigures(const Path& path, double units) {
    const auto place = [&](PathPoint point) {
        constexpr double farthest = 1 << 27;
        const auto whole = [&](double value) {
            return static_cast<std::int32_t>(std::lround(std::clamp(value * units, -farthest, farthest)));
        };
        return POINT{whole(point.x), whole(point.y)};
    };
    write(EnhancedRecord::beginPath);
    const RECT none{0, 0, -1, -1};
    auto point = path.points().begin();
    const auto& verbs = path.verbs();
    for (std::size_t index = 0; index < verbs.size();) {
        const Path::Verb verb = verbs[index];
        // Steps of a kind go into one record.
        std::vector<POINT> points;
        std::size_t end = index;
        const std::ptrdiff_t pointsAStep = verb == Path::Verb::curve ? 3 : verb == Path::Verb::close ? 0 : 1;
        do {
            std::transform(point, point + pointsAStep, std::back_inserter(points), place);
            point += pointsAStep;
            ++end;
        } while (end < verbs.size() && verbs[end] == verb && verb != Path::Verb::move);
        index = end;
        switch (verb) {
        case Path::Verb::move:
            write(begin(EnhancedRecord::moveTo).point(points.front()));
            break;
        case Path::Verb::line:
            writePoints(EnhancedRecord::polylineTo, EnhancedRecord::polylineTo16, none, points);
            break;
        case Path::Verb::curve:
            writePoints(EnhancedRecord::polyBezierTo, EnhancedRecord::polyBezierTo16, none, points);
            break;
        case Path::Verb::close:
            write(EnhancedRecord::closeFigure);
            break;
        }
    }
    write(EnhancedRecord::endPath);
    // Whatever the position is now, nothing relies on it.
    recorded_.position = {std::numeric_limits<std::int32_t>::min(), 0};
}

} // namespace mox::host
