// The coordinates of a metafile.
#pragma once

#include "host/graphics/transform.h"

#include "platform/gditypes.h"

namespace mox::host {

using platform::POINT;
using platform::SIZE;

/// From logical coordinates to units of the reference device: a world transformation, a window, a viewport.
class Mapping {
public:
    /// `device` and `micrometers`: the size of the reference device.
    Mapping(SIZE device, SIZE micrometers) noexcept : device_(device), micrometers_(micrometers) {}

    /// False for a mode that there is not.
    bool setMode(std::int32_t mode);
    void setWindowOrigin(POINT origin) noexcept { windowOrigin_ = origin; }
    void setViewportOrigin(POINT origin) noexcept { viewportOrigin_ = origin; }
    void moveWindow(std::int32_t dx, std::int32_t dy) noexcept;
    void moveViewport(std::int32_t dx, std::int32_t dy) noexcept;
    /// Extents count in the two modes that have some of their own; others leave them alone.
    void setWindowExtent(SIZE extent);
    void setViewportExtent(SIZE extent);
    /// Multiply and divide the extents; false for a zero that would be divided by.
    bool scaleWindow(POINT numerator, POINT denominator);
    bool scaleViewport(POINT numerator, POINT denominator);
    void setWorld(const Transform& world) noexcept { world_ = world; }
    /// By 1 back to none, 2 first this one then that before, 3 the other way round, 4 this one. False for another number.
    bool modifyWorld(const Transform& world, std::uint32_t mode);

    Transform toDevice() const;

private:
    bool hasOwnExtents() const noexcept;
    /// Units of both axes as long as each other, within the viewport that was set.
    void keepIsotropic();

    SIZE device_;
    SIZE micrometers_;
    std::int32_t mode_ = 1;
    POINT windowOrigin_;
    POINT viewportOrigin_;
    struct Extent {
        double cx = 1;
        double cy = 1;
    };
    Extent window_;
    Extent viewport_;
    Extent wanted_;
    Transform world_;
};

} // namespace mox::host
