// The binary raster modes.
#pragma once

#include "platform/gditypes.h"

#include <cstdint>

namespace mox::host {

/// What drawing one value does to what is there: every mode keeps, flips, sets or clears each bit.
struct Mix {
    std::uint32_t kept = ~0U;
    std::uint32_t flipped = 0;

    std::uint32_t operator()(std::uint32_t target) const noexcept { return (target & kept) ^ flipped; }
    bool changesNothing() const noexcept { return kept == ~0U && flipped == 0; }
};

/// Drawing `value` in the mode, within the bits of `mask`; all others stay as they are. An unknown mode counts as copying.
constexpr Mix mixOf(std::int32_t rop2, std::uint32_t value, std::uint32_t mask) noexcept {
    const bool isKnown = rop2 >= platform::R2_BLACK && rop2 <= platform::R2_WHITE;
    // The modes are numbered, from 1, by what becomes of the four pairs of bits: pen 0 on 0, pen 0 on 1, pen 1 on 0, pen 1 on 1.
    const auto table = static_cast<std::uint32_t>((isKnown ? rop2 : platform::R2_COPYPEN) - 1);
    const auto on = [&](unsigned target) {
        return ((table >> target & 1) != 0 ? ~value : 0) | ((table >> (2 + target) & 1) != 0 ? value : 0);
    };
    return {(on(0) ^ on(1)) | ~mask, on(0) & mask};
}

} // namespace mox::host
