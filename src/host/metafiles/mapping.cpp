#include "host/metafiles/mapping.h"

#include "host/metafiles/enhancedrecords.h"

#include <array>
#include <cmath>

namespace mox::host {

namespace {

/// Units an inch of the modes from 2 on: 0.1 mm, 0.01 mm, 0.01 inch, 0.001 inch, twips.
constexpr std::array<double, 5> unitsAnInch{254, 2540, 100, 1000, 1440};
constexpr double micrometersAnInch = 25400;
constexpr std::int32_t firstMetricMode = 2;

std::int32_t wrapped(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

} // namespace

bool Mapping::setMode(std::int32_t mode) {
    if (mode < MM_TEXT || mode > MM_ANISOTROPIC) {
        return false;
    }
    mode_ = mode;
    if (mode == MM_TEXT) {
        window_ = viewport_ = {};
    } else if (mode != MM_ANISOTROPIC) {
        // An isotropic mode begins with tenths of a millimetre.
        const auto units = mode == MM_ISOTROPIC ? unitsAnInch[0] : unitsAnInch[static_cast<std::size_t>(mode - firstMetricMode)];
        window_ = {micrometers_.cx / micrometersAnInch * units, micrometers_.cy / micrometersAnInch * units};
        viewport_ = {static_cast<double>(device_.cx), -static_cast<double>(device_.cy)};
    }
    wanted_ = viewport_;
    return true;
}

bool Mapping::hasOwnExtents() const noexcept {
    return mode_ == MM_ISOTROPIC || mode_ == MM_ANISOTROPIC;
}

void Mapping::moveWindow(std::int32_t dx, std::int32_t dy) noexcept {
    windowOrigin_ = {wrapped(windowOrigin_.x, dx), wrapped(windowOrigin_.y, dy)};
}

void Mapping::moveViewport(std::int32_t dx, std::int32_t dy) noexcept {
    viewportOrigin_ = {wrapped(viewportOrigin_.x, dx), wrapped(viewportOrigin_.y, dy)};
}

void Mapping::setWindowExtent(SIZE extent) {
    if (hasOwnExtents() && extent.cx != 0 && extent.cy != 0) {
        window_ = {static_cast<double>(extent.cx), static_cast<double>(extent.cy)};
        keepIsotropic();
    }
}

void Mapping::setViewportExtent(SIZE extent) {
    if (hasOwnExtents() && extent.cx != 0 && extent.cy != 0) {
        viewport_ = wanted_ = {static_cast<double>(extent.cx), static_cast<double>(extent.cy)};
        keepIsotropic();
    }
}

namespace {

bool hasZero(POINT numerator, POINT denominator) {
    return numerator.x == 0 || numerator.y == 0 || denominator.x == 0 || denominator.y == 0;
}

} // namespace

bool Mapping::scaleWindow(POINT numerator, POINT denominator) {
    if (hasZero(numerator, denominator)) {
        return false;
    }
    if (hasOwnExtents()) {
        window_ = {window_.cx * numerator.x / denominator.x, window_.cy * numerator.y / denominator.y};
        keepIsotropic();
    }
    return true;
}

bool Mapping::scaleViewport(POINT numerator, POINT denominator) {
    if (hasZero(numerator, denominator)) {
        return false;
    }
    if (hasOwnExtents()) {
        viewport_ = wanted_ = {viewport_.cx * numerator.x / denominator.x, viewport_.cy * numerator.y / denominator.y};
        keepIsotropic();
    }
    return true;
}

void Mapping::keepIsotropic() {
    if (mode_ != MM_ISOTROPIC) {
        return;
    }
    viewport_ = wanted_;
    // Pixels need not be square.
    const double unitX = std::abs(viewport_.cx / window_.cx) * micrometers_.cx / device_.cx;
    const double unitY = std::abs(viewport_.cy / window_.cy) * micrometers_.cy / device_.cy;
    if (unitX > unitY) {
        viewport_.cx *= unitY / unitX;
    } else {
        viewport_.cy *= unitX / unitY;
    }
}

bool Mapping::modifyWorld(const Transform& world, std::uint32_t mode) {
    switch (mode) {
    case 1:
        world_ = {};
        return true;
    case 2:
        world_ = world.then(world_);
        return true;
    case 3:
        world_ = world_.then(world);
        return true;
    case 4:
        world_ = world;
        return true;
    default:
        return false;
    }
}

Transform Mapping::toDevice() const {
    const double sx = viewport_.cx / window_.cx;
    const double sy = viewport_.cy / window_.cy;
    return world_.then({sx, 0, 0, sy, viewportOrigin_.x - windowOrigin_.x * sx, viewportOrigin_.y - windowOrigin_.y * sy});
}

} // namespace mox::host
