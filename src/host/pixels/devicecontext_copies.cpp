#include "host/graphics/devicecontext.h"

namespace mox::host {

bool DeviceContext::bitBlt(const SignedRect&, const DeviceContext*, POINT, std::uint32_t) {
    return false;
}

bool DeviceContext::stretchBlt(const SignedRect&, const DeviceContext*, const SignedRect&, std::uint32_t) {
    return false;
}

bool DeviceContext::transparentBlt(const SignedRect&, const DeviceContext&, const SignedRect&, platform::COLORREF) {
    return false;
}

bool DeviceContext::alphaBlend(const SignedRect&, const DeviceContext&, const SignedRect&, const platform::BLENDFUNCTION&) {
    return false;
}

bool DeviceContext::drawBitmap(const SignedRect&, std::shared_ptr<const Bitmap>, const SignedRect&, std::uint32_t) {
    return false;
}

} // namespace mox::host
