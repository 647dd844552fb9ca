// The random numbers of the language.
#pragma once

#include "automation/objects/export.h"

#include <cstdint>

namespace mox::host {

/// The generator of the run-time layer: a linear congruential one of 24 bits, x' = (x * 0x43FD43FD + 0xC39EC3) mod 2^24, as
/// Microsoft's article 231847 documents it. Each apartment has its own, and all begin with the same numbers. Not for secrets.
class MOX_API RandomNumbers {
public:
    /// Mixes 32 bits of a clock into the state.
    void seed(std::uint32_t time) noexcept;
    /// From 0 up to but without 1, in steps of 2^-24.
    float next() noexcept;

private:
    std::uint32_t state_ = 0x50000;
};

} // namespace mox::host
