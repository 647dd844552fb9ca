// msimg32: copies that mix.
#pragma once

#include "platform/gditypes.h"
#include "platform/operation.h"

namespace mox::platform {

struct Msimg32 : SystemLibrary {
    Msimg32() : SystemLibrary("msimg32") {}

    /// Copies and stretches all pixels but those of one colour. Negative extents are refused.
    Operation<bool(Handle hdc, std::int32_t x, std::int32_t y, std::int32_t cx, std::int32_t cy, Handle source,
                   std::int32_t xSource, std::int32_t ySource, std::int32_t cxSource, std::int32_t cySource,
                   COLORREF transparent)>
        TransparentBlt{*this, "TransparentBlt", false};
    /// Stretches and mixes. A source area that is not within its surface is refused, as are negative extents.
    Operation<bool(Handle hdc, std::int32_t x, std::int32_t y, std::int32_t cx, std::int32_t cy, Handle source,
                   std::int32_t xSource, std::int32_t ySource, std::int32_t cxSource, std::int32_t cySource,
                   const BLENDFUNCTION& blend)>
        AlphaBlend{*this, "AlphaBlend", false};
};

/// Of the present machine.
MOX_API Msimg32& msimg32();

} // namespace mox::platform
