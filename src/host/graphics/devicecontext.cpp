#include "host/graphics/devicecontext.h"

#include "host/graphics/graphics.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace mox::host {

namespace {

/// Far beyond every surface, and far enough from the ends of the numbers that sums of two do not wrap.
constexpr std::int32_t farthest = 1 << 28;

std::int32_t rounded(double value) {
    return static_cast<std::int32_t>(std::floor(std::clamp<double>(value, -farthest, farthest) + 0.5));
}

double ratio(std::int32_t extent, std::int32_t of) {
    return of == 0 ? 1 : static_cast<double>(extent) / of;
}

} // namespace

DeviceContext::DeviceContext(Graphics& graphics, Kind kind, std::shared_ptr<const Device> device, std::shared_ptr<Canvas> canvas)
    : graphics_(graphics), kind_(kind), device_(std::move(device)), canvas_(std::move(canvas)), state_(graphics.initialState()) {}

DeviceContext::~DeviceContext() = default;

int DeviceContext::save() {
    saved_.push_back(state_);
    return static_cast<int>(saved_.size());
}

bool DeviceContext::restore(int saved) {
    const auto count = static_cast<std::int64_t>(saved_.size());
    const std::int64_t number = saved < 0 ? count + saved + 1 : saved;
    if (number < 1 || number > count) {
        return false;
    }
    // The surface is not the context's own alone: another context may have got it since.
    const platform::Handle bitmap = state_.bitmap;
    state_ = std::move(saved_[static_cast<std::size_t>(number - 1)]);
    state_.bitmap = bitmap;
    saved_.resize(static_cast<std::size_t>(number - 1));
    return true;
}

Transform DeviceContext::toDevice() const {
    const double sx = ratio(state_.viewportExtent.cx, state_.windowExtent.cx);
    const double sy = ratio(state_.viewportExtent.cy, state_.windowExtent.cy);
    const Transform page{
        sx, 0, 0, sy, state_.viewportOrigin.x - state_.windowOrigin.x * sx, state_.viewportOrigin.y - state_.windowOrigin.y * sy};
    return state_.world.then(page);
}

bool DeviceContext::countsPixels() const {
    return state_.windowOrigin == POINT() && state_.viewportOrigin == POINT() && state_.windowExtent == state_.viewportExtent &&
           state_.world.isIdentity();
}

POINT DeviceContext::toDevice(POINT point) const {
    if (countsPixels()) {
        return {std::clamp(point.x, -farthest, farthest), std::clamp(point.y, -farthest, farthest)};
    }
    const PathPoint exact = toDevicePoint({static_cast<double>(point.x), static_cast<double>(point.y)});
    return {rounded(exact.x), rounded(exact.y)};
}

SignedRect DeviceContext::toDevice(const SignedRect& area) const {
    const Transform transform = toDevice();
    const PathPoint from = transform.apply({static_cast<double>(area.x), static_cast<double>(area.y)});
    const PathPoint to = transform.apply({static_cast<double>(area.x) + area.cx, static_cast<double>(area.y) + area.cy});
    return {rounded(from.x), rounded(from.y), rounded(to.x) - rounded(from.x), rounded(to.y) - rounded(from.y)};
}

double DeviceContext::toDeviceLength(double length) const {
    if (countsPixels()) {
        return std::abs(length);
    }
    const Transform transform = toDevice();
    return std::abs(length) * std::hypot(transform.m11, transform.m12);
}

Region DeviceContext::clip() const {
    Region visible(canvas_->bounds());
    if (state_.clip) {
        visible.intersect(*state_.clip);
    }
    return visible;
}

Paint DeviceContext::paint() const {
    return paint(*state_.brush.object);
}

Paint DeviceContext::paint(const Brush& brush) const {
    return {brush, state_.brushOrigin, state_.rop2, state_.textColor, state_.bkColor, state_.bkMode == platform::TRANSPARENT};
}

Stroke DeviceContext::stroke() const {
    Stroke stroke{*state_.pen.object, state_.rop2, state_.bkColor, state_.bkMode == platform::TRANSPARENT, state_.miterLimit};
    stroke.pen.width = rounded(toDeviceLength(stroke.pen.width));
    return stroke;
}

} // namespace mox::host
