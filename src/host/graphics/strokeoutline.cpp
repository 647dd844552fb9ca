#include "host/graphics/strokeoutline.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace mox::host {

namespace {

PathPoint operator+(PathPoint a, PathPoint b) {
    return {a.x + b.x, a.y + b.y};
}
PathPoint operator-(PathPoint a, PathPoint b) {
    return {a.x - b.x, a.y - b.y};
}
PathPoint operator*(PathPoint a, double factor) {
    return {a.x * factor, a.y * factor};
}
double dot(PathPoint a, PathPoint b) {
    return a.x * b.x + a.y * b.y;
}
double cross(PathPoint a, PathPoint b) {
    return a.x * b.y - a.y * b.x;
}
/// Turned by a quarter.
PathPoint turned(PathPoint a) {
    return {-a.y, a.x};
}

/// Collects pieces that overlap: all turn the same way, so that the winding rule unites them.
class OutlineBuilder {
public:
    explicit OutlineBuilder(const Stroke& stroke)
        : radius_(stroke.pen.width / 2.0), endCap_(stroke.pen.endCap), join_(stroke.pen.join), miterLimit_(stroke.miterLimit) {
        // Arcs stay closer to the circle than the pixels can show.
        constexpr double tolerance = 0.02;
        arcStep_ = std::max(2 * std::acos(1 - tolerance / std::max(radius_, 1.0)), 0.01);
    }

    void figure(std::vector<PathPoint> points, bool isClosed);
    Path take() { return std::move(outline_); }

private:
    void piece(const std::vector<PathPoint>& points);
    void disc(PathPoint centre);
    /// A part of the disc, between two directions of length 1 that are less than half a turn apart.
    void pie(PathPoint centre, PathPoint from, PathPoint to);
    void segment(PathPoint from, PathPoint to, PathPoint direction);
    void cap(PathPoint end, PathPoint direction);
    void join(PathPoint corner, PathPoint before, PathPoint after);
    void lonelyDot(PathPoint point);

    const double radius_;
    const std::uint32_t endCap_;
    const std::uint32_t join_;
    const double miterLimit_;
    double arcStep_;
    Path outline_;
};

void OutlineBuilder::piece(const std::vector<PathPoint>& points) {
    double area = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        area += cross(points[i] - points[0], points[(i + 1) % points.size()] - points[0]);
    }
    const auto add = [&](PathPoint point, bool isFirst) {
        const PathPoint place = point + PathPoint{0.5, 0.5};
        isFirst ? outline_.moveTo(place) : outline_.lineTo(place);
    };
    for (std::size_t i = 0; i < points.size(); ++i) {
        add(points[area < 0 ? points.size() - 1 - i : i], i == 0);
    }
    outline_.close();
}

void OutlineBuilder::disc(PathPoint centre) {
    const int quarter = std::max(2, static_cast<int>(std::ceil(std::numbers::pi / 2 / arcStep_)));
    std::vector<PathPoint> points;
    for (int i = 0; i < 4 * quarter; ++i) {
        const double angle = std::numbers::pi / 2 * i / quarter;
        points.push_back(centre + PathPoint{std::cos(angle), std::sin(angle)} * radius_);
    }
    piece(points);
}

void OutlineBuilder::pie(PathPoint centre, PathPoint from, PathPoint to) {
    const double angle = std::atan2(cross(from, to), dot(from, to));
    const int steps = std::max(1, static_cast<int>(std::ceil(std::abs(angle) / arcStep_)));
    std::vector<PathPoint> points{centre};
    for (int i = 0; i <= steps; ++i) {
        const double part = angle * i / steps;
        points.push_back(centre + (from * std::cos(part) + turned(from) * std::sin(part)) * radius_);
    }
    piece(points);
}

void OutlineBuilder::segment(PathPoint from, PathPoint to, PathPoint direction) {
    const PathPoint side = turned(direction) * radius_;
    // The ends are corners too: pieces that meet there have the same edges, and no gap opens when these go to whole numbers.
    piece({from, from + side, to + side, to, to - side, from - side});
}

void OutlineBuilder::cap(PathPoint end, PathPoint direction) {
    if (endCap_ == endCapSquare) {
        segment(end, end + direction * radius_, direction);
    } else if (endCap_ != endCapFlat) {
        disc(end);
    }
}

void OutlineBuilder::join(PathPoint corner, PathPoint before, PathPoint after) {
    const double turn = cross(before, after);
    const double cosine = dot(before, after);
    if (turn == 0 && cosine > 0) {
        return;
    }
    // The gap is on the side that the line turns away from.
    const double away = turn > 0 ? -1 : 1;
    const PathPoint from = turned(before) * away;
    const PathPoint to = turned(after) * away;
    if (join_ == joinRound && turn == 0) {
        disc(corner);
    } else if (join_ == joinRound) {
        pie(corner, from, to);
    } else {
        // The tip is as far from the corner as half the width over the cosine of half the turn.
        const double ratio = std::sqrt(2 / std::max(1 + cosine, 1e-9));
        std::vector<PathPoint> points{corner, corner + from * radius_};
        if (join_ == joinMiter && ratio <= miterLimit_ && turn != 0) {
            points.push_back(corner + (from + to) * (radius_ * ratio * ratio / 2));
        }
        points.push_back(corner + to * radius_);
        piece(points);
    }
}

void OutlineBuilder::lonelyDot(PathPoint point) {
    if (endCap_ == endCapSquare) {
        segment(point - PathPoint{radius_, 0}, point + PathPoint{radius_, 0}, {1, 0});
    } else if (endCap_ != endCapFlat) {
        disc(point);
    }
}

void OutlineBuilder::figure(std::vector<PathPoint> points, bool isClosed) {
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (isClosed && points.size() > 1 && points.front() == points.back()) {
        points.pop_back();
    }
    if (points.size() < 2) {
        if (!points.empty()) {
            lonelyDot(points[0]);
        }
        return;
    }
    const std::size_t count = isClosed ? points.size() : points.size() - 1;
    std::vector<PathPoint> directions;
    for (std::size_t i = 0; i < count; ++i) {
        const PathPoint from = points[i];
        const PathPoint to = points[(i + 1) % points.size()];
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        directions.push_back((to - from) * (1 / length));
        segment(from, to, directions.back());
        if (i > 0) {
            join(from, directions[i - 1], directions[i]);
        }
    }
    if (isClosed) {
        join(points[0], directions.back(), directions.front());
    } else {
        cap(points.front(), directions.front() * -1);
        cap(points.back(), directions.back());
    }
}

} // namespace

Path outlineOf(const Path& path, const Stroke& stroke) {
    OutlineBuilder builder(stroke);
    const Path flat = path.flattened();
    auto point = flat.points().begin();
    std::vector<PathPoint> points;
    for (const Path::Verb verb : flat.verbs()) {
        if (verb == Path::Verb::close) {
            const PathPoint start = points.empty() ? PathPoint() : points.front();
            builder.figure(std::move(points), true);
            points = {start};
            continue;
        }
        if (verb == Path::Verb::move && points.size() > 1) {
            builder.figure(std::move(points), false);
        }
        if (verb == Path::Verb::move) {
            points.clear();
        }
        points.push_back(bounded(*point++));
    }
    if (points.size() > 1) {
        builder.figure(std::move(points), false);
    }
    return builder.take();
}

} // namespace mox::host
