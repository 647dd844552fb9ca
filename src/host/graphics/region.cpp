#include "host/graphics/region.h"

#include <algorithm>

namespace mox::host {

std::span<const pixman_box32_t> Region::boxes() const noexcept {
    if (isOneBox()) {
        return {&region_.extents, 1};
    }
    int count = 0;
    const pixman_box32_t* const boxes = pixman_region32_rectangles(raw(), &count);
    return {boxes, static_cast<std::size_t>(count)};
}

bool Region::contains(const RECT& area) const noexcept {
    pixman_box32_t box{area.left, area.top, area.right, area.bottom};
    return pixman_region32_contains_rectangle(raw(), &box) == PIXMAN_REGION_IN;
}

void Region::intersect(const RECT& area) {
    intersect(Region(area));
}

RECT intersection(const RECT& a, const RECT& b) noexcept {
    const RECT common{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
    return isEmpty(common) ? RECT{} : common;
}

} // namespace mox::host
