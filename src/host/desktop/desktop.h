// The screen and the windows on it.
#pragma once

#include "host/desktop/screen.h"
#include "host/graphics/canvas.h"
#include "host/graphics/device.h"

#include <memory>

namespace mox::host {

/// A screen in memory.
class MOX_API Desktop {
public:
    Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    ~Desktop();

    const std::shared_ptr<const Device>& device() const noexcept { return device_; }
    /// The pixels of the whole screen.
    std::shared_ptr<Canvas> canvas() const noexcept { return canvas_; }

private:
    std::shared_ptr<const Device> device_;
    std::shared_ptr<Canvas> canvas_;
};

} // namespace mox::host
