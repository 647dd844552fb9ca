#include "host/graphics/rasterstroke.h"

#include "host/graphics/dashes.h"
#include "host/graphics/linesteps.h"
#include "host/graphics/rasterfill.h"
#include "host/graphics/spanpainter.h"
#include "host/graphics/strokeoutline.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace mox::host {

namespace {

/// Draws lines of one pixel; the dashes go on from line to line.
class ThinStroke {
public:
    ThinStroke(Bitmap& target, const Stroke& stroke, const Region& clip)
        : bounds_(target.bounds()), clip_(clip), painter_(target, stroke.pen.color, stroke.rop2),
          dashes_(dashesOf(stroke.pen.style)) {
        if (!dashes_.empty() && !stroke.isTransparent) {
            gaps_.emplace(target, stroke.backColor, stroke.rop2);
        }
    }

    void line(POINT from, POINT to) {
        const LineSteps steps(from, to);
        if (steps.count() == 0) {
            return;
        }
        for (const pixman_box32_t& box : clip_.boxes()) {
            const RECT visible = intersection({box.x1, box.y1, box.x2, box.y2}, bounds_);
            if (!isEmpty(visible)) {
                part(steps, steps.within(visible), from, to);
            }
        }
        done_ += steps.count();
    }
    void restart() noexcept { done_ = 0; }

private:
    void part(const LineSteps& steps, LineSteps::Range range, POINT from, POINT to) {
        if (range.first >= range.end) {
            return;
        }
        if (!dashes_.empty()) {
            dashed(steps, range);
        } else if (painter_.isIdle()) {
            return;
        } else if (from.y == to.y) {
            const auto first = static_cast<int>(from.x < to.x ? from.x + range.first : from.x - range.end + 1);
            painter_.run(from.y, first, first + static_cast<int>(range.end - range.first));
        } else {
            steps.walk(range, [&](int x, int y, std::int64_t) { painter_.dot(x, y); });
        }
    }
    void dashed(const LineSteps& steps, LineSteps::Range range) {
        DashWalk dash(dashes_, done_ + range.first);
        steps.walk(range, [&](int x, int y, std::int64_t) {
            if (dash.isInDash()) {
                painter_.dot(x, y);
            } else if (gaps_) {
                gaps_->dot(x, y);
            }
            dash.next();
        });
    }

    const RECT bounds_;
    const Region& clip_;
    const SpanPainter painter_;
    const std::span<const int> dashes_;
    std::optional<SpanPainter> gaps_;
    /// Pixels of the lines before.
    std::int64_t done_ = 0;
};

POINT toPixelPlace(PathPoint point) {
    const PathPoint place = bounded(point);
    return {static_cast<int>(std::floor(place.x + 0.5)), static_cast<int>(std::floor(place.y + 0.5))};
}

void strokeThin(Bitmap& target, const Path& path, const Stroke& stroke, const Region& clip) {
    ThinStroke thin(target, stroke, clip);
    // Finer than areas need: pixels of a line follow each other, so that a corner shows.
    const Path flat = path.flattened(0.04);
    auto point = flat.points().begin();
    POINT start;
    POINT current;
    for (const Path::Verb verb : flat.verbs()) {
        if (verb == Path::Verb::move) {
            start = current = toPixelPlace(*point++);
            thin.restart();
            continue;
        }
        const POINT end = verb == Path::Verb::close ? start : toPixelPlace(*point++);
        thin.line(current, end);
        current = end;
    }
}

bool isNothing(const Stroke& stroke) {
    return stroke.pen.style == platform::PS_NULL;
}

} // namespace

bool strokePath(Bitmap& target, const Path& path, const Stroke& stroke, const Region& clip) {
    if (isNothing(stroke)) {
        return true;
    }
    if (stroke.pen.width <= 1) {
        strokeThin(target, path, stroke, clip);
        return true;
    }
    const Paint paint{.brush = {.color = stroke.pen.color}, .rop2 = stroke.rop2};
    return fillPath(target, outlineOf(path, stroke), FillRule::winding, paint, clip);
}

bool strokeLine(Bitmap& target, POINT from, POINT to, const Stroke& stroke, const Region& clip) {
    if (isNothing(stroke)) {
        return true;
    }
    if (stroke.pen.width <= 1) {
        ThinStroke(target, stroke, clip).line(from, to);
        return true;
    }
    Path path;
    path.moveTo({static_cast<double>(from.x), static_cast<double>(from.y)});
    path.lineTo({static_cast<double>(to.x), static_cast<double>(to.y)});
    return strokePath(target, path, stroke, clip);
}

} // namespace mox::host
