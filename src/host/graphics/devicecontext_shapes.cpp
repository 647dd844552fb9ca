#include "host/graphics/devicecontext.h"

namespace mox::host {

bool DeviceContext::moveTo(POINT, POINT&) {
    return false;
}

bool DeviceContext::lineTo(POINT) {
    return false;
}

bool DeviceContext::rectangle(const RECT&) {
    return false;
}

bool DeviceContext::fillRect(const RECT&, const Brush&) {
    return false;
}

bool DeviceContext::ellipse(const RECT&) {
    return false;
}

bool DeviceContext::roundRect(const RECT&, SIZE) {
    return false;
}

bool DeviceContext::polyline(std::span<const POINT>) {
    return false;
}

bool DeviceContext::polygon(std::span<const POINT>) {
    return false;
}

bool DeviceContext::polyPolygon(std::span<const POINT>, std::span<const std::uint32_t>) {
    return false;
}

bool DeviceContext::polyBezier(std::span<const POINT>) {
    return false;
}

bool DeviceContext::drawPath(const Path&, bool, bool) {
    return false;
}

platform::COLORREF DeviceContext::pixel(POINT) const {
    return platform::CLR_INVALID;
}

platform::COLORREF DeviceContext::setPixel(POINT, platform::COLORREF) {
    return platform::CLR_INVALID;
}

} // namespace mox::host
