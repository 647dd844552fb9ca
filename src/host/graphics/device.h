// The facts of what a device context draws for.
#pragma once

#include "automation/objects/export.h"

#include <cstdint>

namespace mox::host {

/// A screen or a printer, as far as its contexts ask for it.
class MOX_API Device {
public:
    virtual ~Device() = default;
    /// A fact by its `GetDeviceCaps` number; 0 for one that is not known.
    virtual std::int32_t capability(std::int32_t index) const = 0;
    int dotsPerInchX() const { return capability(88); }
    int dotsPerInchY() const { return capability(90); }
};

} // namespace mox::host
