// Areas made of rectangles: clipping, and what is visible.
#pragma once

#include "automation/objects/export.h"

#include "platform/gditypes.h"

#include <pixman.h>

#include <span>

namespace mox::host {

using platform::POINT;
using platform::RECT;
using platform::SIZE;

/// A set of pixels, as rectangles from the top down that do not overlap. Empty at first.
class MOX_API Region {
public:
    Region() noexcept { pixman_region32_init(&region_); }
    explicit Region(const RECT& area) noexcept : region_{{area.left, area.top, area.right, area.bottom}, nullptr} {
        if (area.left >= area.right || area.top >= area.bottom) {
            pixman_region32_init(&region_);
        }
    }
    Region(const Region& other) : Region() { pixman_region32_copy(&region_, other.raw()); }
    Region(Region&& other) noexcept : Region() { swap(other); }
    Region& operator=(Region other) noexcept {
        swap(other);
        return *this;
    }
    ~Region() {
        if (!isOneBox()) {
            pixman_region32_fini(&region_);
        }
    }

    bool isEmpty() const noexcept { return !isOneBox() && !pixman_region32_not_empty(raw()); }
    RECT bounds() const noexcept { return {region_.extents.x1, region_.extents.y1, region_.extents.x2, region_.extents.y2}; }
    /// Valid until the region is changed.
    std::span<const pixman_box32_t> boxes() const noexcept;
    bool contains(POINT point) const noexcept { return pixman_region32_contains_point(raw(), point.x, point.y, nullptr) != 0; }
    /// True if every pixel of the area is in the region.
    bool contains(const RECT& area) const noexcept;

    void intersect(const Region& other) { pixman_region32_intersect(&region_, raw(), other.raw()); }
    void intersect(const RECT& area);
    void unite(const Region& other) { pixman_region32_union(&region_, raw(), other.raw()); }
    void subtract(const Region& other) { pixman_region32_subtract(&region_, raw(), other.raw()); }
    void translate(int dx, int dy) { pixman_region32_translate(&region_, dx, dy); }

private:
    /// As most are. They have no list of boxes, and cost no more than the rectangle.
    bool isOneBox() const noexcept { return region_.data == nullptr; }
    void swap(Region& other) noexcept { std::swap(region_, other.region_); }
    /// The functions of the library that only read lack the const.
    pixman_region32_t* raw() const noexcept { return const_cast<pixman_region32_t*>(&region_); }

    pixman_region32_t region_;
};

inline bool isEmpty(const RECT& area) noexcept {
    return area.left >= area.right || area.top >= area.bottom;
}
RECT intersection(const RECT& a, const RECT& b) noexcept;

} // namespace mox::host
