// The facts of the screen.
#pragma once

#include "host/graphics/device.h"

namespace mox::host {

/// A raster display of 32 bits a pixel.
class ScreenDevice final : public Device {
public:
    std::int32_t capability(std::int32_t index) const override;
};

} // namespace mox::host
