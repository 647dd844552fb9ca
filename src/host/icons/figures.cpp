#include "host/icons/figures.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>

namespace mox::host {

namespace {

/// How far the control points of a quarter of a circle are from its ends.
constexpr double quarterCircle = 0.5522847498;
/// Of curves, on the grid.
constexpr double tolerance = 0.01;

void addRoundedRectangle(Path& path, double left, double top, double right, double bottom, double radius) {
    const double bow = radius * (1 - quarterCircle);
    path.moveTo({left + radius, top});
    path.lineTo({right - radius, top});
    path.curveTo({right - bow, top}, {right, top + bow}, {right, top + radius});
    path.lineTo({right, bottom - radius});
    path.curveTo({right, bottom - bow}, {right - bow, bottom}, {right - radius, bottom});
    path.lineTo({left + radius, bottom});
    path.curveTo({left + bow, bottom}, {left, bottom - bow}, {left, bottom - radius});
    path.lineTo({left, top + radius});
    path.curveTo({left, top + bow}, {left + bow, top}, {left + radius, top});
    path.close();
}

void addCircle(Path& path, PathPoint center, double radius) {
    addRoundedRectangle(path, center.x - radius, center.y - radius, center.x + radius, center.y + radius, radius);
}

/// A rectangle around a line, in the direction of the circles.
void addBar(Path& path, PathPoint from, PathPoint to, double width) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (length == 0) {
        return;
    }
    const double dx = -(to.y - from.y) / length * width / 2;
    const double dy = (to.x - from.x) / length * width / 2;
    path.moveTo({from.x - dx, from.y - dy});
    path.lineTo({to.x - dx, to.y - dy});
    path.lineTo({to.x + dx, to.y + dy});
    path.lineTo({from.x + dx, from.y + dy});
    path.close();
}

std::vector<Polygon> polygonsOf(const Path& outline) {
    std::vector<Polygon> polygons;
    const Path flat = outline.flattened(tolerance);
    auto point = flat.points().begin();
    for (const Path::Verb verb : flat.verbs()) {
        if (verb == Path::Verb::close) {
            continue;
        }
        if (verb == Path::Verb::move) {
            polygons.emplace_back();
        }
        polygons.back().push_back(*point++);
    }
    return polygons;
}

/// The outline of a line with round ends and corners.
Path widened(const Path& line, double width) {
    Path result;
    const Path flat = line.flattened(tolerance);
    auto point = flat.points().begin();
    PathPoint start;
    PathPoint current;
    for (const Path::Verb verb : flat.verbs()) {
        const PathPoint next = verb == Path::Verb::close ? start : *point++;
        if (verb == Path::Verb::move) {
            start = next;
        } else {
            addBar(result, current, next, width);
        }
        addCircle(result, next, width / 2);
        current = next;
    }
    return result;
}

class FigureReader {
public:
    explicit FigureReader(std::string_view text) : text_(text) {}

    std::vector<Polygon> read() {
        while (const char word = nextWord()) {
            readFigure(word);
        }
        finishOutline();
        return std::move(polygons_);
    }

private:
    void readFigure(char word) {
        switch (word) {
        case 'M':
            outline_.moveTo(point());
            hasStart_ = true;
            return;
        case 'L':
            requireStart();
            outline_.lineTo(point());
            return;
        case 'C': {
            requireStart();
            const PathPoint control1 = point();
            const PathPoint control2 = point();
            outline_.curveTo(control1, control2, point());
            return;
        }
        case 'Z':
            requireStart();
            outline_.close();
            return;
        case 'O': {
            Path circle;
            const PathPoint center = point();
            addCircle(circle, center, number());
            add(circle);
            return;
        }
        case 'R': {
            Path rectangle;
            const PathPoint from = point();
            const PathPoint to = point();
            addRoundedRectangle(rectangle, from.x, from.y, to.x, to.y, number());
            add(rectangle);
            return;
        }
        case 'W':
            finishOutline();
            width_ = number();
            return;
        default:
            fail();
        }
    }

    void finishOutline() {
        add(width_ > 0 ? widened(outline_, width_) : outline_);
        outline_.clear();
        hasStart_ = false;
    }

    void add(const Path& path) {
        for (Polygon& polygon : polygonsOf(path)) {
            polygons_.push_back(std::move(polygon));
        }
    }

    void skipSpaces() { text_.remove_prefix(std::min(text_.find_first_not_of(' '), text_.size())); }

    /// 0 at the end.
    char nextWord() {
        skipSpaces();
        if (text_.empty()) {
            return 0;
        }
        const char word = text_.front();
        text_.remove_prefix(1);
        return word;
    }

    double number() {
        skipSpaces();
        double value = 0;
        const auto [end, error] = std::from_chars(text_.data(), text_.data() + text_.size(), value);
        if (error != std::errc()) {
            fail();
        }
        text_.remove_prefix(static_cast<std::size_t>(end - text_.data()));
        return value;
    }

    PathPoint point() {
        const double x = number();
        return {x, number()};
    }

    void requireStart() const {
        if (!hasStart_) {
            fail();
        }
    }

    [[noreturn]] void fail() const { throw std::invalid_argument("figures that cannot be read, before: " + std::string(text_)); }

    std::string_view text_;
    double width_ = 0;
    Path outline_;
    bool hasStart_ = false;
    std::vector<Polygon> polygons_;
};

} // namespace

std::vector<Polygon> readFigures(std::string_view figures, double scaleX, double scaleY) {
    std::vector<Polygon> polygons = FigureReader(figures).read();
    for (Polygon& polygon : polygons) {
        std::ranges::for_each(polygon, [&](PathPoint& point) { point = {point.x * scaleX, point.y * scaleY}; });
    }
    return polygons;
}

} // namespace mox::host
