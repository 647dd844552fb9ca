#include "host/graphics/rasterfill.h"

#include "host/graphics/pathspans.h"
#include "host/graphics/spanpainter.h"

#include <algorithm>

namespace mox::host {

namespace {

RECT toRect(const pixman_box32_t& box) {
    return {box.x1, box.y1, box.x2, box.y2};
}

void fillClipped(const SpanPainter& painter, const RECT& box, const Region& clip) {
    for (const pixman_box32_t& part : clip.boxes()) {
        painter.box(intersection(box, toRect(part)));
    }
}

/// The boxes of a region that a row meets, for rows that follow each other downwards.
class RowBoxes {
public:
    explicit RowBoxes(const Region& region) : boxes_(region.boxes()) {}

    std::span<const pixman_box32_t> at(int y) {
        // Boxes come in bands of one height.
        while (first_ < boxes_.size() && boxes_[first_].y2 <= y) {
            ++first_;
        }
        std::size_t end = first_;
        while (end < boxes_.size() && boxes_[end].y1 <= y) {
            ++end;
        }
        return boxes_.subspan(first_, end - first_);
    }

private:
    std::span<const pixman_box32_t> boxes_;
    std::size_t first_ = 0;
};

} // namespace

bool fillBox(Bitmap& target, const RECT& box, const Paint& paint, const Region& clip) {
    const SpanPainter painter(target, paint);
    if (!painter.isIdle()) {
        fillClipped(painter, intersection(box, target.bounds()), clip);
    }
    return true;
}

bool fillRegion(Bitmap& target, const Region& area, const Paint& paint, const Region& clip) {
    const SpanPainter painter(target, paint);
    if (!painter.isIdle()) {
        for (const pixman_box32_t& box : area.boxes()) {
            fillClipped(painter, intersection(toRect(box), target.bounds()), clip);
        }
    }
    return true;
}

bool fillPath(Bitmap& target, const Path& path, FillRule rule, const Paint& paint, const Region& clip) {
    const SpanPainter painter(target, paint);
    const RECT bounds = intersection(clip.bounds(), target.bounds());
    if (painter.isIdle() || isEmpty(bounds)) {
        return true;
    }
    RowBoxes boxes(clip);
    PathSpans spans(path, rule, bounds);
    while (spans.next()) {
        const int y = spans.row();
        for (const pixman_box32_t& box : boxes.at(y)) {
            for (const PathSpans::Span& span : spans.spans()) {
                const int from = std::max({span.from, box.x1, bounds.left});
                const int to = std::min({span.to, box.x2, bounds.right});
                if (from < to) {
                    painter.run(y, from, to);
                }
            }
        }
    }
    return true;
}

} // namespace mox::host
