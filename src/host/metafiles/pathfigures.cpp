#include "host/metafiles/pathfigures.h"

#include "host/graphics/pathspans.h"
#include "host/metafiles/regiondata.h"

namespace mox::host {

Path closedFigures(const Path& path) {
    Path closed;
    bool isOpen = false;
    auto point = path.points().begin();
    for (const Path::Verb verb : path.verbs()) {
        switch (verb) {
        case Path::Verb::move:
            if (isOpen) {
                closed.close();
            }
            closed.moveTo(*point++);
            isOpen = false;
            break;
        case Path::Verb::line:
            closed.lineTo(*point++);
            isOpen = true;
            break;
        case Path::Verb::curve:
            closed.curveTo(point[0], point[1], point[2]);
            point += 3;
            isOpen = true;
            break;
        case Path::Verb::close:
            closed.close();
            isOpen = false;
            break;
        }
    }
    if (isOpen) {
        closed.close();
    }
    return closed;
}

Path moved(const Path& path, double distance) {
    Path result;
    auto point = path.points().begin();
    const auto next = [&] {
        const PathPoint place = *point++;
        return PathPoint{place.x + distance, place.y + distance};
    };
    for (const Path::Verb verb : path.verbs()) {
        if (verb == Path::Verb::move) {
            result.moveTo(next());
        } else if (verb == Path::Verb::line) {
            result.lineTo(next());
        } else if (verb == Path::Verb::curve) {
            const PathPoint control1 = next();
            const PathPoint control2 = next();
            result.curveTo(control1, control2, next());
        } else {
            result.close();
        }
    }
    return result;
}

bool isClosed(const Path& path) {
    return closedFigures(path).verbs().size() == path.verbs().size();
}

Region regionOf(const Path& path, FillRule rule, const RECT& bounds) {
    std::vector<RECT> areas;
    PathSpans spans(path, rule, bounds);
    while (spans.next()) {
        for (const PathSpans::Span& span : spans.spans()) {
            areas.push_back({span.from, spans.row(), span.to, spans.row() + 1});
        }
    }
    Region region = united(areas);
    region.intersect(bounds);
    return region;
}

} // namespace mox::host
