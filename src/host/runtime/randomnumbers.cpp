#include "host/runtime/randomnumbers.h"

namespace mox::host {

namespace {
constexpr std::uint32_t stateMask = 0xFFFFFF;
}

void RandomNumbers::seed(std::uint32_t time) noexcept {
    // The low bits of the clock change from call to call; spread over the state, they change the first number as a whole.
    state_ = (state_ ^ (time * 0x9E3779B1u >> 8)) & stateMask;
}

float RandomNumbers::next() noexcept {
    state_ = (state_ * 0x43FD43FDu + 0xC39EC3u) & stateMask;
    return static_cast<float>(state_) * 0x1p-24F; // exact: 24 bits fit the fraction
}

} // namespace mox::host
