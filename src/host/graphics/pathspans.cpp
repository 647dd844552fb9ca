#include "host/graphics/pathspans.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace mox::host {

namespace {

/// Points go to a grid much finer than the pixels, so that what is meant to be on an edge is on it in spite of rounding.
PathPoint onGrid(PathPoint point) {
    constexpr double grid = 256;
    const PathPoint place = bounded(point);
    return {std::round(place.x * grid) / grid, std::round(place.y * grid) / grid};
}

/// The first pixel whose centre is not before the coordinate.
int firstCentre(double coordinate) {
    return static_cast<int>(std::ceil(coordinate - 0.5));
}

} // namespace

PathSpans::PathSpans(const Path& path, FillRule rule, const RECT& area) : rule_(rule), area_(area), row_(area.top - 1) {
    addEdges(path.flattened());
    std::ranges::sort(edges_, {}, &Edge::first);
}

void PathSpans::addEdges(const Path& path) {
    auto point = path.points().begin();
    PathPoint start;
    PathPoint current;
    for (const Path::Verb verb : path.verbs()) {
        const bool isLine = verb == Path::Verb::line;
        const PathPoint target = verb == Path::Verb::close ? start : onGrid(*point++);
        if (isLine) {
            addEdge(current, target);
        } else {
            addEdge(current, start); // areas are closed whether their outlines are or not
            start = target;
        }
        current = target;
    }
    addEdge(current, start);
}

void PathSpans::addEdge(PathPoint from, PathPoint to) {
    const int winding = from.y < to.y ? 1 : -1;
    if (from.y > to.y) {
        std::swap(from, to);
    }
    const int first = std::max(firstCentre(from.y), area_.top);
    const int last = std::min(firstCentre(to.y), area_.bottom) - 1;
    if (first > last) {
        return;
    }
    const double slope = (to.x - from.x) / (to.y - from.y);
    edges_.push_back({first, last, from.x + (first + 0.5 - from.y) * slope, slope, winding});
}

bool PathSpans::next() {
    spans_.clear();
    while (spans_.empty()) {
        ++row_;
        std::erase_if(active_, [&](const Edge& edge) { return edge.last < row_; });
        if (active_.empty()) {
            if (nextEdge_ == edges_.size()) {
                return false;
            }
            row_ = edges_[nextEdge_].first;
        }
        for (; nextEdge_ < edges_.size() && edges_[nextEdge_].first <= row_; ++nextEdge_) {
            active_.push_back(edges_[nextEdge_]);
        }
        collectSpans();
    }
    return true;
}

void PathSpans::collectSpans() {
    crossings_.clear();
    for (const Edge& edge : active_) {
        crossings_.push_back({edge.x + (row_ - edge.first) * edge.slope, edge.winding});
    }
    std::ranges::sort(crossings_, {}, &Crossing::x);
    int winding = 0;
    std::optional<int> from;
    for (const Crossing& crossing : crossings_) {
        winding += crossing.winding;
        const int x = firstCentre(std::clamp(crossing.x, area_.left - 1.0, area_.right + 1.0));
        if (isInside(winding) && !from) {
            from = x;
        } else if (!isInside(winding) && from) {
            if (!spans_.empty() && spans_.back().to == *from) {
                spans_.back().to = x;
            } else if (*from < x) {
                spans_.push_back({*from, x});
            }
            from.reset();
        }
    }
}

} // namespace mox::host
