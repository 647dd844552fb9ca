// The clock of a machine.
#pragma once

#include "automation/objects/export.h"

#include <cstdint>

namespace mox::host {

/// Milliseconds since the system started, and waiting on that scale. This one is the system's own steady clock; tests put one in
/// its place that they move. Any thread may use it.
class MOX_API Clock {
public:
    Clock() = default;
    virtual ~Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;

    virtual std::uint64_t now() const;
    /// Returns when `now()` has reached `time`.
    virtual void waitUntil(std::uint64_t time);
};

} // namespace mox::host
