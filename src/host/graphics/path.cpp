#include "host/graphics/path.h"

#include <algorithm>
#include <cmath>

namespace mox::host {

PathPoint bounded(PathPoint point) noexcept {
    const auto coordinate = [](double value) {
        constexpr double most = 1 << 28;
        return std::isnan(value) ? 0 : std::clamp(value, -most, most);
    };
    return {coordinate(point.x), coordinate(point.y)};
}

void Path::moveTo(PathPoint point) {
    verbs_.push_back(Verb::move);
    points_.push_back(point);
}

void Path::lineTo(PathPoint point) {
    verbs_.push_back(Verb::line);
    points_.push_back(point);
}

void Path::curveTo(PathPoint control1, PathPoint control2, PathPoint point) {
    verbs_.push_back(Verb::curve);
    points_.insert(points_.end(), {control1, control2, point});
}

void Path::close() {
    verbs_.push_back(Verb::close);
}

void Path::append(const Path& other) {
    verbs_.insert(verbs_.end(), other.verbs_.begin(), other.verbs_.end());
    points_.insert(points_.end(), other.points_.begin(), other.points_.end());
}

void Path::clear() noexcept {
    verbs_.clear();
    points_.clear();
}

namespace {

/// Lines that a curve needs: its distance from an even division falls with the square of their number, and is bounded by the
/// second differences of its control points (Wang's formula).
int linesOf(PathPoint a, PathPoint b, PathPoint c, PathPoint d, double tolerance) {
    const double first = std::hypot(a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y);
    const double second = std::hypot(b.x - 2 * c.x + d.x, b.y - 2 * c.y + d.y);
    const double lines = std::ceil(std::sqrt(0.75 * std::max(first, second) / tolerance));
    return std::isfinite(lines) ? static_cast<int>(std::clamp(lines, 1.0, 1000.0)) : 1;
}

PathPoint pointOf(PathPoint a, PathPoint b, PathPoint c, PathPoint d, double t) {
    const double u = 1 - t;
    const double wa = u * u * u;
    const double wb = 3 * u * u * t;
    const double wc = 3 * u * t * t;
    const double wd = t * t * t;
    return {wa * a.x + wb * b.x + wc * c.x + wd * d.x, wa * a.y + wb * b.y + wc * c.y + wd * d.y};
}

} // namespace

Path Path::flattened(double tolerance) const {
    Path flat;
    auto point = points_.begin();
    PathPoint current;
    PathPoint start;
    for (const Verb verb : verbs_) {
        switch (verb) {
        case Verb::move:
            start = current = *point++;
            flat.moveTo(current);
            break;
        case Verb::line:
            current = *point++;
            flat.lineTo(current);
            break;
        case Verb::curve: {
            const PathPoint control1 = *point++;
            const PathPoint control2 = *point++;
            const PathPoint end = *point++;
            const int lines = linesOf(current, control1, control2, end, tolerance);
            for (int line = 1; line < lines; ++line) {
                flat.lineTo(pointOf(current, control1, control2, end, static_cast<double>(line) / lines));
            }
            flat.lineTo(end);
            current = end;
            break;
        }
        case Verb::close:
            flat.close();
            current = start;
            break;
        }
    }
    return flat;
}

} // namespace mox::host
