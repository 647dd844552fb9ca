// Icons in device contexts.
#pragma once

#include "host/graphics/devicecontext.h"

namespace mox::host {

/// Draws an icon so that it fills a rectangle in logical coordinates. `flags`: `DI_NORMAL` lets the ground through where the icon
/// has holes, `DI_MASK` and `DI_IMAGE` alone draw that part of it. Alpha belongs to the image. False if there is nothing to draw,
/// or if it could not be drawn.
bool drawIcon(DeviceContext& context, const Icon& icon, const SignedRect& target, std::uint32_t flags);

} // namespace mox::host
